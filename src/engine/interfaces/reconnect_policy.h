#pragma once
// How an adapter that was lost comes back. An adapter that was set up and
// then fails (a write refused, the link gone) is lost: the operator is told
// once, and the console tries to set it up again by itself, never more
// often than once a second, until it answers. Frames go out again from the
// tick of the try that found it. Only a loss after a frame has gone out
// again is news again: an adapter that opens but still refuses its frames
// does not tell the operator the same thing every second. An adapter that
// never came up at start is not tried again: the start has said what went
// wrong, and choosing it anew in the setup window starts it.
//
// Time is the console's clock (the scheduler's), so the same rule holds on
// the desk, in a script and on a test's virtual clock.

#include <cstdint>
#include <string>

namespace q {

// What the output lamp on the desk shows.
enum class OutputHealth { None, Sending, NotReachable };

class ReconnectPolicy {
 public:
  static constexpr int64_t kRetryMs = 1000;

  // The adapter was set up, at start or again after a loss.
  void up() { state_ = State::Up; }
  // Stopped, or never set up: nothing to come back to.
  void off() {
    state_ = State::Off;
    told_ = false;
  }
  // A frame went out: a later loss is news again.
  void sent() {
    if (state_ == State::Up) told_ = false;
  }

  // The adapter failed at nowMs. True only when the operator is to be told:
  // the first failure since a frame last went out.
  bool lose(int64_t nowMs) {
    if (state_ != State::Up) return false;
    state_ = State::Lost;
    lastTry_ = nowMs;
    if (told_) return false;
    told_ = true;
    return true;
  }
  bool lost() const { return state_ == State::Lost; }
  bool isUp() const { return state_ == State::Up; }

  // While lost: whether a try is due at nowMs. A true answer counts as the try.
  bool tryNow(int64_t nowMs) {
    if (!lost() || nowMs - lastTry_ < kRetryMs) return false;
    lastTry_ = nowMs;
    return true;
  }
  // When the next try falls due; INT64_MAX when none is to come.
  int64_t nextTry() const { return lost() ? lastTry_ + kRetryMs : INT64_MAX; }

  // The lamp: sending while up, not reachable while lost or never set up.
  OutputHealth health() const {
    return isUp() ? OutputHealth::Sending : OutputHealth::NotReachable;
  }

  // What the operator is told when an adapter is lost.
  static std::string lostText(const std::string& adapter) {
    return "The " + adapter +
           " does not answer: no DMX goes out through it until it is back. The console tries "
           "again every second and carries on by itself.";
  }

 private:
  enum class State { Off, Up, Lost };
  State state_ = State::Off;
  bool told_ = false;
  int64_t lastTry_ = 0;
};

}  // namespace q
