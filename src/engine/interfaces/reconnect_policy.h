#pragma once
// How an adapter that was lost comes back. An adapter that was set up and
// then fails (a write refused, the link gone) is lost: the operator is told
// once, and the console tries to set it up again by itself, never more
// often than once a second, until it answers. Frames go out again from the
// tick of the try that found it. Only a loss after it came back is news
// again. An adapter that never came up at start is not tried again: the
// start has said what went wrong, and choosing it anew starts it.
//
// Time is the console's clock (the scheduler's), so the same rule holds on
// the desk, in a script and on a test's virtual clock.

#include <cstdint>
#include <string>

namespace q {

class ReconnectPolicy {
 public:
  static constexpr int64_t kRetryMs = 1000;

  // The adapter was set up, at start or again after a loss.
  void up() { state_ = State::Up; }
  // Stopped, or never set up: nothing to come back to.
  void off() { state_ = State::Off; }

  // The adapter failed at nowMs. True only for the first failure since it
  // was up: that is the moment to tell the operator.
  bool lose(int64_t nowMs) {
    if (state_ != State::Up) return false;
    state_ = State::Lost;
    lastTry_ = nowMs;
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

  // What the operator is told when an adapter is lost.
  static std::string lostText(const std::string& adapter) {
    return "The " + adapter +
           " does not answer: no DMX goes out through it until it is back. The console tries "
           "again every second and carries on by itself.";
  }

 private:
  enum class State { Off, Up, Lost };
  State state_ = State::Off;
  int64_t lastTry_ = 0;
};

}  // namespace q
