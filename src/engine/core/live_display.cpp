#include "engine/core/live_display.h"

#include <algorithm>
#include <cstdio>

#include "engine/core/console.h"

namespace q {

namespace {
constexpr double kSlotWidth = 25;      // text slot, in the strip's units
constexpr double kBarSlotWidth = 2.5;  // bar slot
constexpr double kLeft = 2;
constexpr double kLabelY = 2;
constexpr double kValueY = 18;
constexpr double kBarBaseY = 14;
constexpr double kBarWidth = 3;

// A channel number as the strip prints it: at least three digits.
std::string threeDigits(int n) {
  if (n < 0 || n > 999) {
    char buf[16];
    std::snprintf(buf, sizeof buf, n < 0 ? "-%03d" : "%d", n < 0 ? -n : n);
    return buf;
  }
  const char digits[3] = {char('0' + n / 100), char('0' + n / 10 % 10), char('0' + n % 10)};
  return std::string(digits, 3);
}
}  // namespace

LiveDisplay::LiveDisplay(Console& c)
    : c_(c),
      v_(c.v),
      output_(&c.form1.menu("mnuScreenOutput")),
      live_(&c.form1.menu("mnuScreenLive")),
      selected_(&c.form1.menu("mnuScreenSelected")) {
  MainWindow& f = c.form1;
  for (MenuItem* m : {output_, live_, selected_}) m->onClick = [this, m] { checkScreen(m); };
  for (int i = 0; i < 3; ++i) f.mnuValue(i).onClick = [this, i] { chooseValues(i); };
  // Scrolling redraws at once: the operator is looking for a channel now.
  f.HScroll1.onChange = [this] {
    scroll_ = c_.form1.HScroll1.position();
    c_.mixer.MixOutput();
  };
  f.Picture1.onMouseDown = [this](MouseButton b) {
    if (b == MouseButton::Right && onPopupMenu) onPopupMenu("mnuScreen");
  };
}

void LiveDisplay::checkScreen(MenuItem* chosen) {
  for (MenuItem* m : {output_, live_, selected_}) m->setChecked(m == chosen);
  c_.v.MixDirty = kTrue;
}

void LiveDisplay::chooseValues(int index) {
  for (int i = 0; i < 3; ++i) c_.form1.mnuValue(i).setChecked(i == index);
  c_.v.ValuesMode = uint8_t(index);
  c_.v.MixDirty = kTrue;
}

void LiveDisplay::beginMix() {
  c_.form1.Picture1.cls();
  curX_ = curY_ = 0;
  c_.v.DisplaySlot = int16_t(-scroll_);
}

void LiveDisplay::endMix() { c_.form1.Picture1.refresh(); }

void LiveDisplay::draw(int channel) {
  if (c_.v.ValuesMode == 2)
    showBars(channel);
  else
    showText(channel);
}

void LiveDisplay::printLevel(double x, int level) {
  const int shown = c_.v.ValuesMode == 1 ? level * 100 / 255 : level;
  c_.form1.Picture1.print(x, kValueY, std::to_string(shown), c_.colors.ValueColor);
}

void LiveDisplay::showText(int channel) {
  Variables& v = c_.v;
  Picture& pic = c_.form1.Picture1;
  if (selected_->checked()) {
    const int col = v.EditColumn;
    const int level = col >= 1 && col <= kColumns ? v.chan(channel, col - 1) : 0;
    if (level > 0 && v.DisplaySlot < kSlots) {
      if (v.DisplaySlot >= 0) {
        const double x = v.DisplaySlot * kSlotWidth + kLeft;
        pic.print(x, kLabelY, threeDigits(channel), c_.colors.LabelColor);
        printLevel(x, level);
      }
      ++v.DisplaySlot;
    }
  }
  if (!output_->checked() && !live_->checked()) return;
  const int level = v.DMXData[channel - 1];
  if (level == 0 || v.DisplaySlot >= kSlots) return;
  if (v.DisplaySlot >= 0) {
    const double x = v.DisplaySlot * kSlotWidth + kLeft;
    if (output_->checked() && v.PatchOn == kTrue) {
      const int16_t logical = v.PatchMap[channel - 1];
      int shown = 0;
      for (int16_t e : ShownPatch) shown += e == logical;
      if (shown == 0) {
        pic.print(x, kLabelY, threeDigits(logical), c_.colors.LabelColor);
        ShownPatch[v.DisplaySlot] = logical;
        // The table is cleared on the shared counter, which leaves it at 30:
        // the patch pass of the mix runs on the same I and goes on from there.
        std::fill(ShownPatch.begin() + v.DisplaySlot, ShownPatch.end(), int16_t{0});
        v.I = kSlots;
      }
    } else {
      pic.print(x, kLabelY, threeDigits(channel), c_.colors.LabelColor);
    }
    printLevel(x, level);
  }
  ++v.DisplaySlot;
}

void LiveDisplay::showBars(int channel) {
  Variables& v = c_.v;
  Picture& pic = c_.form1.Picture1;
  curX_ = v.DisplaySlot * kBarSlotWidth + kLeft;
  curY_ = kBarBaseY;
  // Each bar grows upward from the current position and leaves it at its far corner.
  auto bar = [&](double height) {
    pic.box(curX_, curY_, kBarWidth, -height, c_.colors.BarColor);
    curX_ += kBarWidth;
    curY_ -= height;
  };
  if (selected_->checked()) {
    const int col = v.EditColumn;
    const int level = col >= 1 && col <= kColumns ? v.chan(channel, col - 1) : 0;
    bar(level / 10.0);
  }
  if (output_->checked()) bar((v.GrandMaster / 255.0) * v.MixBuffer[channel - 1] / 10.0);
  if (live_->checked()) bar(v.DMXData[channel - 1] / 10.0);
  ++v.DisplaySlot;
}

}  // namespace q
