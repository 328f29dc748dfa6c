#pragma once
// MIDI at the console: control changes from a mixing desk move the strips,
// the grand master and the crossfader; notes light the channel with their
// number; strip moves made on the console are echoed back to keep motorised
// faders in step. The ports are chosen in MIDISetupForm.

#include <cstdint>
#include <memory>
#include <string>

#include "engine/core/variables.h"
#include "engine/input/midi_ports.h"

namespace q {

class Console;
class MidiSetupForm;

class MidiControl {
 public:
  explicit MidiControl(Console& c);
  ~MidiControl();
  MidiControl(const MidiControl&) = delete;
  MidiControl& operator=(const MidiControl&) = delete;

  // One message from the open input port.
  void messageIn(int status, int data1, int data2);
  // One system-exclusive message from the open input port, F0 to F7: MIDI Show Control.
  void sysexIn(const std::vector<uint8_t>& bytes);
  // The input port's message-arrived event: handles every waiting message, oldest first.
  void messagesArrived();
  // Closes the ports if one is open (at unload).
  void closePorts();
  // Opens the ports chosen in the setup dialog; 1 on success, 0 when a port failed.
  int ApplyMidiPorts();

  // The echo of a strip's fader move (strip 3..22, position 0..255): a
  // control change on MIDI channel 1 with the strip's controller, sent only
  // when the strip has a controller, echo is enabled and the output is open.
  void echo(int strip, int position);
  // The output port while it is open, else nullptr.
  MidiOut* openOutput();

  // The real or fake ports; without a call the console's host ports are used.
  void setPorts(MidiInPort& in, MidiOutPort& out);
  MidiInPort& input() { return *in_; }
  MidiOutPort& output() { return *out_; }

  // The setup dialog, loaded on first use.
  MidiSetupForm& setupForm();

  // False while incoming messages move faders, so that those moves are not
  // sent back; false too until the first message arrived.
  VBool MidiEchoEnabled = kFalse;
  uint8_t MasterController = 0;
  uint8_t CrossfadeController = 0;
  // The last confirmed choice of ports: names and list positions, 0 = "Not Enabled".
  std::string MidiInName, MidiOutName;
  int16_t MidiInIndex = 0;
  int16_t MidiOutIndex = 0;
  // The MIDI Show Control device ID the console answers to ([MIDI] MSCDeviceID), besides 127.
  int MscDeviceId = 1;
  // System-exclusive messages that did nothing: no show control for this console, or malformed.
  uint64_t MscIgnored = 0;

 private:
  void controlChange(int controller, int value);
  void note(int number, int level);
  void openInput(int listPosition);
  void openOutputPort(int listPosition);
  void attach();

  Console& c_;
  NoMidiIn noIn_;
  NoMidiOut noOut_;
  MidiInPort* in_;
  MidiOutPort* out_;
};

}  // namespace q
