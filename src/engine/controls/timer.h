#pragma once
// A timer control: its enabled flag is the run state of whatever it drives
// (a chaser runs while its timer is enabled). Ticks are delivered by the
// Scheduler on the one console thread.

#include <cstdint>

#include "engine/controls/control.h"

namespace q {

class Scheduler;

class Timer : public Control {
 public:
  Timer(std::string name, Scheduler& scheduler, int intervalMs, bool enabled = false);
  ~Timer() override;

  bool isEnabled() const { return running_; }
  // Enabling a running timer keeps its phase; disabling and enabling again
  // starts a new period from that moment.
  void setRunning(bool on);
  int interval() const { return interval_; }
  // A changed interval of a running timer starts a new period from the change.
  void setInterval(int ms);

  std::function<void()> onTick;
  // One tick now, outside the timer's period (the command language's `tick`).
  // A handler that fails is reported as a failure of this timer, never thrown.
  void tick();

  // Until when a tick of this timer would change nothing, as far as the
  // console can tell now: the output tick while the mix is clean and the
  // receiver holds the frame. kIdleForever while nothing changes; a time
  // not after the tick's own when it has work. The ticks fall due all the
  // same; a host on a real clock only need not wake for them
  // (Scheduler::nextWake, Scheduler::passIdleTicks).
  std::function<int64_t()> idleUntil;
  static constexpr int64_t kIdleForever = INT64_MAX;

  std::string value() const override { return running_ ? "-1" : "0"; }

 private:
  friend class Scheduler;
  Scheduler& scheduler_;
  int interval_;
  bool running_ = false;
  int64_t due_ = 0;         // when the next tick falls due, in clock ms
  uint64_t enableSeq_ = 0;  // order of enabling, for ticks due at the same instant
  // Inside its own tick: a tick delivered from a loop that the handler runs
  // (a modal box on the desk) skips this timer rather than enter it twice.
  bool firing_ = false;
};

}  // namespace q
