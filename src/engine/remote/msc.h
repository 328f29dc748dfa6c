#pragma once
// MIDI Show Control as the console receives it on its MIDI input: a show
// controller's GO, STOP, RESUME and RESET for lighting, as system-exclusive
// messages
//
//   F0 7F <device> 02 <format> <command> [<cue> [00 <list> [00 <path>]]] F7
//
// <device> is the console's MSC device ID or 127 (all call); <format> is
// 01 (lighting) or 7F (all types). The cue number is ASCII digits with at
// most one '.'. Everything else is no command for this console.

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace q {

class ShowControl;

struct MscCommand {
  enum class Kind { Go, Stop, Resume, Reset };
  Kind kind = Kind::Go;
  std::string cue;  // GO's cue number as sent; empty for none

  bool operator==(const MscCommand&) const = default;
};

inline constexpr int kMscAllCall = 0x7F;
// The highest device ID a console may have (0x70..0x7E are group IDs, which it never has).
inline constexpr int kMscDeviceLast = 0x6F;

// The command in a whole SysEx message (F0 ... F7) for this device ID;
// nothing for a message that is no lighting command to this console.
std::optional<MscCommand> parseMsc(std::span<const uint8_t> sysex, int deviceId);

// Does what the command asks through the console's own keys: GO with a cue
// number loads that cue into Prog first, and does nothing at all when no
// cue has that number (a GO must never play another cue than the one asked
// for); STOP pauses a running fade; RESUME ends the pause; RESET brings the
// first cue into Prog. False when nothing was done.
bool applyMsc(ShowControl& control, const MscCommand& command);

}  // namespace q
