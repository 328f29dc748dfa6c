#pragma once
// CueProps ("Cue Properties"): everything of one cue but its levels. It is
// opened from the cue grid for the row SelectedCue, as a plain window beside
// the list, and every read and write goes to the row SelectedCue of the
// moment. The player and chaser buttons and the scrollers write their
// columns at once; the fields are written by OK, which also stores or
// empties the scroller groups by their Active boxes. Cancel undoes nothing.
//
// "Auto Start" is the "Auto Go" mark of the row before: the same cell shows
// as "Auto Go" of one row and "Auto Start" of the next.

#include <array>
#include <vector>

#include "engine/controls/window.h"
#include "engine/core/common_dialog.h"

namespace q {

class Console;

class CueProps : public Window {
 public:
  explicit CueProps(Console& c);

  TextBox& txtNum;
  TextBox& txtName;
  TextBox& txtFunc;
  TextBox& txtWaitUp;
  TextBox& txtTimeUp;
  TextBox& txtWaitDown;
  TextBox& txtTimeDown;
  TextBox& txtVar;
  ListBox& Combo1;
  CheckBox& Check1;  // Auto Go
  CheckBox& Check2;  // Auto Start
  Label& Frame2;     // round txtVar and btn_Busca; its caption names the argument
  Label& btn_Busca;
  Label& btn_Ok;
  Label& btn_Cancel;
  // The captions of the boxes and the frames of the player and chaser groups.
  Label& Label1(int i) { return *labels_.at(size_t(i)); }
  Label& FrameMedia(int k) { return *mediaFrames_.at(size_t(k)); }
  Label& FrameFX(int k) { return *fxFrames_.at(size_t(k)); }

  CheckBox& MpActive(int k) { return *mpActive_.at(size_t(k)); }
  CheckBox& FXActive(int k) { return *fxActive_.at(size_t(k)); }
  Scroller& VolScroller(int k) { return *vol_.at(size_t(k)); }
  Scroller& PanScroller(int k) { return *pan_.at(size_t(k)); }
  Scroller& LevelScroller(int k) { return *level_.at(size_t(k)); }
  Scroller& SpeedScroller(int k) { return *speed_.at(size_t(k)); }
  // Indices 0 and 3 are the players' buttons, 4 and 5 the chasers' (none for
  // ImagePause); 1 and 2 hold the off and on pictures.
  Lamp& ImagePlay(int k) { return *images_[0].at(size_t(k)); }
  Lamp& ImageStop(int k) { return *images_[1].at(size_t(k)); }
  Lamp& ImagePause(int k) { return *images_[2].at(size_t(k)); }
  // What a button asks of its player or chaser: the value it stores.
  enum Action { Play = 1, Stop = 2, Pause = 3 };
  static bool hasButton(Action a, int k) { return k == 0 || k == 3 || (a != Pause && k >= 4); }
  Lamp& image(Action a, int k) { return *images_[size_t(a - 1)].at(size_t(k)); }

  // The function number each row of Combo1 stands for.
  const std::vector<int>& itemData() const { return itemData_; }

  void comboClick();
  void btnBusca();
  void imageClick(Action a, int k);
  void ok();

  static constexpr int kLabels = 7;

 private:
  void build();
  void load();
  void showArgumentFrame(int function);
  void light(Action a, int k, bool on);
  void loadScroller(Scroller& s, int column, CheckBox& active);
  void scrollerMoved(Scroller& s, int column, CheckBox& active);
  void storeGroup(CheckBox& active, Scroller& a, int columnA, Scroller& b, int columnB);
  int row() const;

  Console& c_;
  CommonDialog CDialog1;
  std::vector<int> itemData_;
  std::array<q::Label*, kLabels> labels_{};
  std::array<q::Label*, 2> mediaFrames_{}, fxFrames_{};
  std::array<CheckBox*, 2> mpActive_{}, fxActive_{};
  std::array<Scroller*, 2> vol_{}, pan_{}, level_{}, speed_{};
  std::array<std::array<Lamp*, 6>, 3> images_{};
  std::string badValues_;
};

}  // namespace q
