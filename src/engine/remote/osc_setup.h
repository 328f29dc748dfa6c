#pragma once
// OscSetup, "OSC and Show Control": the port OSC listens on and the address
// beside it, where feedback goes, and the MIDI Show Control device ID the
// console answers to. Nothing takes effect before OK, which applies the
// choice at once and keeps it in the settings file.

#include "engine/controls/window.h"

namespace q {

class Console;

class OscSetup : public Window {
 public:
  explicit OscSetup(Console& c);

  TextBox& txtPort;
  TextBox& txtAddress;
  TextBox& txtFeedbackHost;
  TextBox& txtFeedbackPort;
  TextBox& txtMscDevice;
  // What the socket does now: listening, sending, or why not.
  Label& lblStatus;
  Label& CmdOk;
  Label& CmdCancel;
  // The captions beside the boxes, in the order above; then the two frames.
  std::vector<Label*> captions;
  Label& FrameOsc;
  Label& FrameMsc;

  // Fills the boxes from the console's present choice (its load sequence).
  void load();
  // Takes the boxes in order; a box that holds no valid value is told and
  // the window stays open with nothing changed.
  void ok();
  void cancel();

 private:
  bool takePort(TextBox& box, const char* what, int& port);
  Console& c_;
};

}  // namespace q
