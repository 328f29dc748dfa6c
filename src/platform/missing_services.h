#pragma once
// What the machine lacks that the operator would otherwise find out about in
// the middle of a show: no MIDI system, no sound output. Each is said once at
// start-up, in an operator's words (the desk's status line, or standard error
// for the headless console); the console works on without it.

#include <string>
#include <vector>

namespace q {

struct ServicesFound {
  bool midi = true;   // an ALSA sequencer to reach MIDI surfaces through
  bool sound = true;  // a sound server or a sound card for the players
};

// True when a sound server socket (PulseAudio, PipeWire) or a playback
// device of a sound card can be seen.
bool soundOutputPresent();

// One plain sentence per missing service, in a fixed order.
std::vector<std::string> missingServiceNews(const ServicesFound& found);

}  // namespace q
