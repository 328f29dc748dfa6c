#pragma once
// The times graph `picTimes`: the shape of the coming fade as two bars on one
// time axis, the upper one the fall of Stage, the lower one the rise of Prog,
// with `PosLine` running along it as the fade proceeds. The axis is in ticks;
// its width is set by the paint, and the Xfader's time mode scrubs along that
// same width, so the scale is part of the transport's arithmetic, not only
// of the drawing.

#include <cstdint>
#include <string>

#include "engine/controls/control.h"
#include "engine/controls/picture.h"

namespace q {

class Console;

// A vertical line inside a picture, both ends at the same x, in the
// picture's own units.
class LineShape : public Control {
 public:
  explicit LineShape(std::string name) : Control(std::move(name)) {}
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  void moveTo(double x) {
    if (x1 == x && x2 == x) return;
    x1 = x2 = x;
    notifyView();
  }
  std::string value() const override;
};

class TimesGraph {
 public:
  explicit TimesGraph(Console& c);

  Picture& picTimes;
  LineShape& PosLine;

  // Logical height of the graph; y grows downwards.
  static constexpr int kScaleHeight = 15;
  // The axis as the last paint set it, in ticks. The graph keeps it in single
  // precision, as the Xfader's time mode computes with it.
  float scaleWidth() const { return scaleWidth_; }

  // Repaints from the four time boxes as they stand now.
  void paint();
  // The transport puts the line at the fade's tick.
  void movePosLine(int16_t fadeTick) { PosLine.moveTo(fadeTick); }

 private:
  Console& c_;
  float scaleWidth_ = 1;
};

}  // namespace q
