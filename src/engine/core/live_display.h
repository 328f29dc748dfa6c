#pragma once
// The live display: the strip Picture1 under the masters, redrawn from
// nothing by every mix. It shows the lit channels packed one after the other
// (or a bar per channel), scrolled by HScroll1. The mixer calls beginMix,
// ShowChannel once per channel in its order, then endMix.

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "engine/core/variables.h"

namespace q {

class Console;
class MenuItem;

class LiveDisplay {
 public:
  static constexpr int kSlots = 30;  // text slots across the strip

  explicit LiveDisplay(Console& c);

  // Clears the strip and starts the slots at minus the scroll value.
  void beginMix();
  void ShowChannel(int channel) {
    if (!full()) draw(channel);
  }
  // Once the text slots are full nothing more is drawn or counted.
  bool full() const { return v_.ValuesMode != 2 && v_.DisplaySlot >= kSlots; }
  // Tells the desk the strip is drawn.
  void endMix();

  // The label test of the "Output" view with the patch on. Its clearing loop
  // runs on the shared counter I, which the mixer's patch pass also uses.
  std::array<int16_t, kSlots> ShownPatch{};

  // The scroll value as the HScroll1 handler stored it.
  int scrollValue() const { return scroll_; }

  // A right click on the strip asks the desk to pop up this menu ("mnuScreen").
  std::function<void(const std::string& menu)> onPopupMenu;

 private:
  void draw(int channel);
  void showText(int channel);
  void showBars(int channel);
  void printLevel(double x, int level);
  void checkScreen(MenuItem* chosen);
  void chooseValues(int index);

  Console& c_;
  Variables& v_;
  MenuItem* output_;
  MenuItem* live_;
  MenuItem* selected_;
  int scroll_ = 0;
  // The drawing position, as a picture keeps it between drawing calls.
  double curX_ = 0, curY_ = 0;
};

}  // namespace q
