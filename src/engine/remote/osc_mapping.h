#pragma once
// The console's OSC address space, incoming: each address presses, moves or
// types into the console's own control through ShowControl, so an OSC
// controller can do what the desk can and nothing more.
//
//   /quintara/go, /back, /pause, /cut        a press (no argument, or a number
//                                           not 0; a 0 is the button let go)
//   /quintara/fader/N f                     strip N 1..20 to a level 0..1
//   /quintara/grandmaster f, /xfade f       the masters, 0..1
//   /quintara/chan/N f                      channel N 1..512 in the column under edit
//   /quintara/direct s                      a direct command, as typed
//   /quintara/cue/N/load                    cue N into Prog
//   /quintara/blackout i                    1 on, 0 off
//
// Levels take an int, a float or a double. Anything else, a wrong type, a
// value out of range, an unknown address, is ignored and counted.

#include <cstdint>
#include <string_view>

#include "engine/remote/osc_message.h"

namespace q {

class ShowControl;

class OscMapping {
 public:
  // What a message came to.
  enum class Result { Done, Released, Ignored };

  explicit OscMapping(ShowControl& control) : control_(control) {}

  Result handle(const OscMessage& m);

  // Messages taken and ignored since start.
  uint64_t received() const { return received_; }
  uint64_t ignored() const { return ignored_; }
  // A packet that held no message at all (counted with the ignored).
  void malformed() { ++ignored_; }

  static constexpr std::string_view kPrefix = "/quintara/";
  // A direct command longer than this is no command the operator typed.
  static constexpr size_t kMaxDirectText = 255;

 private:
  Result dispatch(std::string_view path, const OscMessage& m);
  Result press(const OscMessage& m, void (ShowControl::*key)());
  Result level(const OscMessage& m, auto&& apply);

  ShowControl& control_;
  uint64_t received_ = 0;
  uint64_t ignored_ = 0;
};

}  // namespace q
