#pragma once
// Delivers timer ticks on the one console thread. The host loop (Qt event
// loop, headless poll loop) asks when the next tick is due and calls
// runDue(); with a virtual clock, advance() walks time forward tick by tick.
//
// Every timer keeps its own beat from the moment it was enabled: a tick is
// due at start + n x interval, whatever happened meanwhile. A handler that
// fails never stops its timer: the failure is caught at the tick, told once
// the tick has returned, and the timer goes on on its beat.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/core/clock.h"

namespace q {

class Timer;

class Scheduler {
 public:
  explicit Scheduler(Clock& clock) : clock_(clock) {}

  Clock& clock() { return clock_; }
  int64_t now() const { return clock_.nowMs(); }

  // Fires every tick due at or before now, in time order; ticks due at the
  // same instant fire in the order their timers were enabled. A late tick
  // fires once; the ticks it missed are not made up, and the next one falls
  // on the timer's beat again.
  void runDue();
  // Virtual clock only: moves time to now+ms, firing each due tick at its instant.
  void advance(VirtualClock& clock, int64_t ms);
  // Earliest due time of a running timer, or -1 when none runs.
  int64_t nextDue() const;

  // For a host on a real clock, which need not wake for a tick that would
  // change nothing (Timer::idleUntil). When to wake next: the earliest tick
  // due that may have work, on its timer's beat; -1 when none is to come.
  int64_t nextWake() const;
  // The same host, after the loop went round and before the next event is
  // handled: the ticks due by now that would change nothing are passed over
  // as if they had fired, so a change made by that event waits for the next
  // tick of the beat.
  void passIdleTicks();
  // One tick of t now, outside its beat.
  void tickNow(Timer& t);

  // Called by the host to learn that the timer set changed (re-arm a wakeup).
  std::function<void()> onChanged;
  // Told what failed ("FXTimer(0) failed: ..."), after the failing tick has
  // returned, so the timer is no longer inside its tick while the operator reads it.
  std::function<void(const std::string& failure)> onTickFailed;

 private:
  friend class Timer;
  void add(Timer* t) { timers_.push_back(t); }
  void remove(Timer* t);
  void start(Timer* t);
  void restartPeriod(Timer* t);
  void changed() {
    if (onChanged) onChanged();
  }
  Timer* earliestDue(int64_t limit) const;
  // When t next has a tick that may have work; Timer::kIdleForever for none.
  static int64_t wakeFor(const Timer& t);
  void fire(Timer* t);
  // Runs t's handler; what failed, or empty when it went well.
  static std::string runTick(Timer& t);
  void tellFailure(const std::string& failure);

  Clock& clock_;
  std::vector<Timer*> timers_;
  uint64_t enableCounter_ = 0;
};

}  // namespace q
