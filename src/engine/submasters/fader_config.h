#pragma once
// Config ("SliderConfig"): the dialog that sets one strip's function, MIDI
// controller, tooltip and knob. It keeps nothing of its own: it reads the
// strip when it loads, writes it back on APPLY and unloads. It works on the
// strip EditColumn, read afresh at load and at APPLY, like the rest of the
// desk; the console runs on behind it. Closing it any other way changes nothing.

#include <array>

#include "engine/controls/window.h"
#include "engine/submasters/function_words.h"

namespace q {

class Console;

class FaderConfig : public Window {
 public:
  explicit FaderConfig(Console& c);

  // Reads the strip EditColumn into the dialog (its load sequence).
  void load();
  // Commits the dialog to the strip EditColumn and unloads it. A controller
  // that is no number from 0 to 255 stops it after the function, the fader
  // and the tooltip have been written; the dialog then stays.
  void apply();

  void knobClick(int index);   // 1..4
  void colorClick(int index);  // 0..4

  ListBox& Tipus;
  TextBox& txtMidiChannel;
  TextBox& Tooltip;
  Label& APPLY;
  Lamp& PicColor(int i) { return *colors_.at(i); }
  Lamp& Knob(int i) { return *knobs_.at(i - 1); }

  int SelectedColor = 0;
  int SelectedKnob = 0;

 private:
  bool applyController(int n);
  void placeFader(int n, StripWord word);

  Console& c_;
  std::array<Lamp*, 5> colors_{};
  std::array<Lamp*, 4> knobs_{};
};

}  // namespace q
