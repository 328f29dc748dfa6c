#pragma once
// A fader, scroll bar or scroller. Setting the position from code runs the
// change handler at once, inside the caller, and only when the position really
// changes: the console relies on that re-entrancy (a cue that moves a strip
// runs the strip's own fader logic).

#include "engine/controls/control.h"

namespace q {

class Scroller : public Control {
 public:
  Scroller(std::string name, int min, int max, int position)
      : Control(std::move(name)), min_(min), max_(max), position_(position) {}

  int position() const { return position_; }
  int min() const { return min_; }
  int max() const { return max_; }
  bool inRange(int v) const { return v >= min_ && v <= max_; }

  // Returns false (and changes nothing) for a position outside the range.
  bool setPosition(int v);
  void setRange(int min, int max);

  std::function<void()> onChange;
  // Large and small steps of a scroll bar, for views.
  int largeChange = 1;
  int smallChange = 1;
  std::string toolTip;
  // Name of the skin picture drawn as the knob (`Knob(11)`), empty for the view's default.
  std::string knobPicture;

  std::string value() const override { return std::to_string(position_); }
  bool setValue(int v) override { return setPosition(v); }

 private:
  int min_, max_, position_;
};

}  // namespace q
