#pragma once
// A cell of the simple view: a label showing one channel's level, whose back
// colour is also the one store of whether the channel is selected.

#include "engine/controls/label.h"

namespace q {

class ChannelCell : public Label {
 public:
  // Dark cyan marks a selected cell; an unselected one has the window colour.
  static constexpr int kSelected = 0x00C0C0;
  static constexpr int kUnselected = 0xFFFFFF;

  using Label::Label;

  int backColor() const { return backColor_; }
  void setBackColor(int rgb) {
    if (rgb == backColor_) return;
    backColor_ = rgb;
    notifyView();
  }
  bool selected() const { return backColor_ == kSelected; }
  void select(bool on) { setBackColor(on ? kSelected : kUnselected); }

 private:
  int backColor_ = kUnselected;
};

}  // namespace q
