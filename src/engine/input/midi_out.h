#pragma once
// Where the console sends MIDI back out: echoing fader moves to a motorised
// surface or a second desk. Implemented by the open output port; nullptr
// (or a port that does nothing) when none is open.

namespace q {

class MidiOut {
 public:
  virtual ~MidiOut() = default;
  // One short message: status byte (type | channel) and two data bytes.
  virtual void send(int status, int d1, int d2) = 0;
};

}  // namespace q
