#pragma once
// MIDISetupForm, "MIDI Devices": the choice of the two ports, the listened
// channel and the table of controllers, with quick presets for common desks.
// Nothing takes effect before OK.

#include <array>

#include "engine/controls/window.h"

namespace q {

class Console;

// Entries of Combo1, in list order.
enum class MidiPreset { None = 0, AllZero, Yamaha01v1, Yamaha01v2, OneToOne };

class MidiSetupForm : public Window {
 public:
  explicit MidiSetupForm(Console& c);

  ListBox& ComboMidiOut;
  ListBox& ComboMidiIn;
  ListBox& ComboChannel;
  ListBox& Combo1;
  // 1: SMaster, 2: Xfader, 3..22: strips 1 to 20.
  TextBox& txtMIDI(int i) { return *txt_.at(i - 1); }
  // The caption beside each box: "Master:", "Crossfade:", "SubMaster 1:" ...
  Label& lblMIDI(int i) { return *labels_.at(i - 1); }
  Label& CmdOk;
  Label& CmdCancel;

  // Fills the lists and boxes from the console's present choice (its load sequence).
  void load();
  void applyPreset(int position);
  void ok();
  void cancel();

 private:
  Console& c_;
  std::array<TextBox*, 22> txt_{};
  std::array<Label*, 22> labels_{};
};

}  // namespace q
