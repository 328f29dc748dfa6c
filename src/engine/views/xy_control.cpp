#include "engine/views/xy_control.h"

#include <cmath>
#include <cstdio>

#include "engine/core/console.h"
#include "engine/core/value.h"
#include "engine/views/edit_column.h"

namespace q {

namespace {
constexpr int kPadBack = 0x14171B;
constexpr int kGridColour = 0x252A31;
constexpr int kCrossColour = 0x56606E;
constexpr int kMarkerColour = 0xFFB420;

std::string twoDigits(long n) {
  char buf[24];
  std::snprintf(buf, sizeof buf, "%02ld", n);
  return buf;
}

// What a label shows, read back as the value it stands for.
int shownValue(const Label& l) { return int(std::lround(leadingNumber(l.caption()))); }
}  // namespace

Mobile::Mobile(Console& c)
    : Window(c.registry, "Mobile"),
      Picture1(add<Picture>("Picture1")),
      Label1(add<Label>("Label1", "00")),
      Label2(add<Label>("Label2", "00")),
      XChan(add<TextBox>("XChan", "1")),
      YChan(add<TextBox>("YChan", "2")),
      c_(c) {
  setCaption("X-Y Control");
  Picture1.width = Picture1.height = kPadSize;
  Picture1.backColor = kPadBack;
  Picture1.onMouseDown = [this](const MouseEvent&) { padDown(); };
  Picture1.onMouseUp = [this](const MouseEvent&) { padUp(); };
  Picture1.onMouseMove = [this](const MouseEvent& e) { padMove(e.x, e.y); };
  XChan.onKeyPress = [this](int& key) {
    if (key != 13) return;
    key = 0;
    targetEnter(0);
  };
  YChan.onKeyPress = [this](int& key) {
    if (key != 13) return;
    key = 0;
    targetEnter(1);
  };
  drawPad();
  SkinMe();
  onActivate = [this] { followTargets(); };
}

std::string Mobile::axisText(double at) {
  if (!(at >= 0)) return "0";  // also NaN
  if (at >= kPadSize) return "255";
  // Format "00" rounds a half away from zero.
  return twoDigits(std::lround(at));
}

void Mobile::padDown() { PadDrag = kTrue; }

void Mobile::padUp() { PadDrag = kFalse; }

void Mobile::padMove(double x, double y) {
  if (PadDrag == kFalse) return;
  Label1.setCaption(axisText(x));
  Label2.setCaption(axisText(y));
  const int xValue = shownValue(Label1);
  const int yValue = shownValue(Label2);
  placeMarker(0, xValue);
  placeMarker(1, yValue);
  drawPad();
  apply(xValue, XChan);
  apply(yValue, YChan);
  c_.v.MixDirty = kTrue;
}

void Mobile::apply(int value, const TextBox& target) {
  const AxisTarget t = axisTarget(target.text());
  switch (t.kind) {
    case AxisTarget::Kind::Channel:
      storeEditLevel(c_.v, t.number, uint8_t(value));
      break;
    case AxisTarget::Kind::Submaster:
      // The strip's own fader logic sets the submaster's level.
      c_.form1.Fader(t.number + 2).setPosition(255 - value);
      break;
    case AxisTarget::Kind::None:
      break;
  }
}

void Mobile::targetEnter(int axis) {
  const AxisTarget t = axisTarget((axis == 0 ? XChan : YChan).text());
  if (t.kind != AxisTarget::Kind::Channel) return;
  const uint8_t level = editLevel(c_.v, t.number);
  (axis == 0 ? Label1 : Label2).setCaption(twoDigits(level));
  placeMarker(axis, level);
  drawPad();
}

void Mobile::followTargets() {
  for (int axis = 0; axis < 2; ++axis) {
    const AxisTarget t = axisTarget((axis == 0 ? XChan : YChan).text());
    if (t.kind == AxisTarget::Kind::Channel) placeMarker(axis, editLevel(c_.v, t.number));
  }
  drawPad();
}

void Mobile::SkinMe() { backColor = c_.colors.SkinBackColor; }

// The marker is centred on the value.
void Mobile::placeMarker(int axis, double value) {
  (axis == 0 ? markerLeft_ : markerTop_) = value - kMarkerSize / 2.0;
}

void Mobile::drawPad() {
  const double half = kMarkerSize / 2.0;
  const double x = markerLeft_ + half, y = markerTop_ + half;
  Picture1.cls();
  // Quarters of the pad, to aim by.
  for (int q = 1; q < 4; ++q) {
    const double at = q * kPadSize / 4.0;
    Picture1.line(at, 0, at, kPadSize, kGridColour);
    Picture1.line(0, at, kPadSize, at, kGridColour);
  }
  Picture1.line(x, 0, x, kPadSize, kCrossColour);
  Picture1.line(0, y, kPadSize, y, kCrossColour);
  Picture1.box(markerLeft_, markerTop_, kMarkerSize, kMarkerSize, kMarkerColour);
  Picture1.refresh();
}

}  // namespace q
