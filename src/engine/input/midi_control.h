#pragma once
// MIDI messages arriving at the console's input: control changes to strips
// and masters, notes to the MIDI column.

namespace q {

class Console;

class MidiControl {
 public:
  explicit MidiControl(Console& c) : c_(c) {}
  // One message from the open input port.
  void messageIn(int status, int data1, int data2);
  // Closes the ports if one is open (at unload).
  void closePorts();

 private:
  [[maybe_unused]] Console& c_;
};

}  // namespace q
