#pragma once
// Form1, the desk: the model of the main window. It owns the controls the
// whole console shares (timers, strips, masters, the menu bar); each
// subsystem adds the controls of its own panel through add() and hangs its
// handlers on them.

#include <array>
#include <string>
#include <vector>

#include "engine/controls/picture.h"
#include "engine/controls/window.h"
#include "engine/core/scheduler.h"
#include "engine/submasters/function_words.h"

namespace q {

constexpr int kFirstStrip = 3;
constexpr int kLastStrip = 22;

class MainWindow : public Window {
 public:
  MainWindow(Registry& registry, Scheduler& scheduler);

  using Window::add;

  // Timers.
  Timer& DMXTimer;
  Timer& MemTimer;
  std::array<Timer*, 2> FXTimer{};
  std::array<Label*, 2> FxStep{};
  // The chasers' run keys: `ImgLedOn` while running, `ImgLedPush` while pressed.
  std::array<Lamp*, 2> FXbutton{};

  // Masters.
  Scroller& SMaster;
  Scroller& Xfader;

  // Strips, indices 3..22 (FaderCFG also 1 and 2).
  Scroller& Fader(int n) { return *faders_.at(n - kFirstStrip); }
  Label& SLevel(int n) { return *slevels_.at(n - kFirstStrip); }
  Label& FaderFunc(int n) { return *funcs_.at(n - kFirstStrip); }
  // What the caption of FaderFunc(N) means, kept by the label's caption hook.
  StripWord stripWord(int n) const { return words_.at(n - kFirstStrip); }
  Lamp& Flash(int n) { return *flashes_.at(n - kFirstStrip); }
  TextBox& Slabel(int n) { return *slabels_.at(n - kFirstStrip); }
  Lamp& FaderCFG(int n) { return *cfgs_.at(n - 1); }

  // The live display strip and its scroll bar.
  Picture& Picture1;
  Scroller& HScroll1;

  // Menu bar, in the order the desk shows it.
  MenuItem& mnuRecent(int i) { return *recent_.at(i); }
  MenuItem& mnuValue(int i) { return *values_.at(i); }

  // Window height in twips, as the load handler sets it.
  int heightTwips = 11625;

 private:
  void buildMenus();

  std::array<Scroller*, 20> faders_{};
  std::array<Label*, 20> slevels_{};
  std::array<Label*, 20> funcs_{};
  std::array<StripWord, 20> words_{};
  std::array<Lamp*, 20> flashes_{};
  std::array<TextBox*, 20> slabels_{};
  std::array<Lamp*, 22> cfgs_{};
  std::array<MenuItem*, 5> recent_{};
  std::array<MenuItem*, 3> values_{};
};

}  // namespace q
