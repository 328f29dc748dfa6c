#pragma once
// The twenty fader strips of the main window, indices 3..22. What a strip
// does is decided at every event by its function word, the caption of
// FaderFunc(N): a SUB strip plays its column of ChanTable, other words turn
// the fader into a master, a chaser's level or speed, or a media player's
// volume, balance or speed. Strip N is submaster N - 2 and column N
// (counted from 1) of ChanTable.

#include <functional>
#include <memory>
#include <string>

#include "engine/controls/control.h"
#include "engine/submasters/function_words.h"

namespace q {

class Console;
class FaderConfig;
class TextBox;

class SubmasterBank {
 public:
  explicit SubmasterBank(Console& c);
  ~SubmasterBank();
  SubmasterBank(const SubmasterBank&) = delete;
  SubmasterBank& operator=(const SubmasterBank&) = delete;

  // Fader(N) moved to its present position (the position is already set).
  void faderChange(int n);
  // Flash(N) pressed and released.
  void flashDown(int n, MouseButton b);
  void flashUp(int n, MouseButton b);
  // FaderCFG(N) pressed (1..22): selects the column; right button on a strip opens Config.
  void select(int n, MouseButton b);
  // Slabel(N) double-clicked: selects the column for the label menu.
  void labelDblClick(int n);
  // A file dropped on FaderCFG, Flash or SLevel of column N.
  void dropOnStrip(int n, const std::string& path, MouseButton b);

  // The fader configuration dialog, loaded on first use.
  FaderConfig& config();
  void openConfig();

  // The level a fader position stands for, as SLevel shows it: "100" .. "00".
  static std::string percentText(int position);

  // The desk pops up the label menu at the mouse.
  std::function<void()> onPopupLabelMenu;

 private:
  void wireStrip(int n);
  void wireMenus();
  void addKnobPictures();
  void applyWord(int n, StripWord word, int position);
  void playPause(int player);
  void loadKey(int player);
  TextBox* selectedLabel();
  void changeFont();
  void changeColor(bool background);

  Console& c_;
};

}  // namespace q
