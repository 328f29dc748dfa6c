#pragma once
// What a remote shows of the console: the cues in Stage and Prog, the next
// row, the fade, the lamps and the levels. Read from the controls and
// variables the desk itself shows, so a remote never tells another story
// than the desk. Feedback senders keep the last state they sent and send
// only what changed.

#include <array>
#include <string>

namespace q {

class Console;

struct ShowState {
  static constexpr int kStrips = 20;

  std::string stageCue, stageName;  // STAGEMem, STAGEName
  std::string progCue, progName;    // PROGMem, PROGName
  std::string nextCue;              // the NextCue caption: a row of the cue list
  bool fading = false;              // MemTimer runs
  bool paused = false;
  double fadeProgress = 0;  // 0..1: how far Stage has gone out and Prog come in
  bool goLamp = false;      // Led_GO lit
  bool blackout = false;
  std::array<double, kStrips> strips{};  // 0..1, strip 1 first
  double grandMaster = 1;                // 0..1
  double crossfade = 0;                  // 0..1, as the fader stands

  bool operator==(const ShowState&) const = default;
};

ShowState readShowState(Console& c);

}  // namespace q
