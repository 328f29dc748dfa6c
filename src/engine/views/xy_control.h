#pragma once
// Mobile, the X/Y control: a square pad that sets two levels at once, for a
// moving light's pan and tilt. While the mouse is held on the pad, its
// horizontal place drives the target typed in XChan and its vertical place
// the one in YChan, each 0 to 255 in the pad's own units; past an edge an
// axis holds at 0 or 255 while the other still follows.

#include "engine/controls/picture.h"
#include "engine/controls/window.h"
#include "engine/core/variables.h"
#include "engine/views/xy_target.h"

namespace q {

class Console;

class Mobile : public Window {
 public:
  static constexpr int kPadSize = 255;    // the pad's own units, on both axes
  static constexpr int kMarkerSize = 14;  // the marker's side, in the pad's units

  explicit Mobile(Console& c);

  Picture& Picture1;  // the pad
  Label& Label1;      // X, 0 to 255
  Label& Label2;      // Y, 0 to 255
  TextBox& XChan;
  TextBox& YChan;

  void padDown();
  void padUp();
  void padMove(double x, double y);
  // Enter in XChan (axis 0) or YChan (axis 1).
  void targetEnter(int axis);
  // The marker comes to the present level of each axis that drives a channel.
  void followTargets();
  void SkinMe();

  VBool PadDrag = kFalse;
  // The marker's top left corner, in the pad's units.
  double markerLeft() const { return markerLeft_; }
  double markerTop() const { return markerTop_; }

  // How a place on an axis shows: held at the edges, "00" inside the pad.
  static std::string axisText(double at);

 private:
  void apply(int value, const TextBox& target);
  void placeMarker(int axis, double value);
  void drawPad();

  Console& c_;
  double markerLeft_ = -kMarkerSize / 2.0;
  double markerTop_ = -kMarkerSize / 2.0;
};

}  // namespace q
