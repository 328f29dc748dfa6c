#pragma once
// The console's OSC address space, outgoing: what a cue software's or a
// control surface's display shows of the console. Each look at the console
// (a ShowState) queues the addresses whose value changed; each address goes
// out at most 25 times a second, and while it waits only its latest value is
// kept, so a fader swept by hand costs a bounded number of messages and the
// memory of one message per address.
//
//   /quintara/stage/cue s, /stage/name s    the cue in Stage
//   /quintara/prog/cue s, /prog/name s      the cue in Prog
//   /quintara/nextcue s                     the row the next GO plays
//   /quintara/fading i, /paused i           1 while a fade runs, while it is paused
//   /quintara/fade f                        how far the fade has come, 0..1, while it runs
//   /quintara/golamp i, /blackout i         the GO lamp, the blackout, 1 lit
//   /quintara/fader/N f                     strip N 1..20, 0..1
//   /quintara/grandmaster f, /xfade f       the masters, 0..1

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/remote/osc_message.h"
#include "engine/remote/show_state.h"

namespace q {

class OscFeedback {
 public:
  // 25 messages a second on one address.
  static constexpr int64_t kSpacingMs = 40;

  // Queues every address whose value differs from the one last queued.
  void update(const ShowState& s);
  // The messages that may go out at nowMs, oldest address first.
  std::vector<OscMessage> take(int64_t nowMs);
  // A new destination knows nothing yet: the next update queues every address.
  void forget();

  size_t waiting() const { return pending_.size(); }

 private:
  void offer(OscMessage m);

  std::map<std::string, OscMessage> known_;    // the last value queued, per address
  std::map<std::string, OscMessage> pending_;  // waiting for its address's turn
  std::map<std::string, int64_t> sentAt_;
};

// Every feedback message the state gives, in a fixed order; `fade` only
// while a fade runs.
std::vector<OscMessage> feedbackMessages(const ShowState& s);

}  // namespace q
