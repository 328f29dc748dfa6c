#include "engine/core/scheduler.h"

#include <algorithm>

#include "engine/controls/timer.h"

namespace q {

void Scheduler::remove(Timer* t) { std::erase(timers_, t); }

void Scheduler::start(Timer* t) {
  t->enableSeq_ = ++enableCounter_;
  t->due_ = now() + std::max(1, t->interval_);
  t->lastTick_ = now();
}

void Scheduler::restartPeriod(Timer* t) { t->due_ = now() + std::max(1, t->interval_); }

int64_t Scheduler::dueOf(const Timer* t) {
  return t->resting() ? std::max(t->due_, t->lastTick_ + std::max(1, t->restMs)) : t->due_;
}

Timer* Scheduler::earliestDue(int64_t limit) const {
  Timer* best = nullptr;
  int64_t bestDue = 0;
  for (Timer* t : timers_) {
    if (!t->running_ || t->firing_) continue;
    const int64_t due = dueOf(t);
    if (due > limit) continue;
    if (!best || due < bestDue || (due == bestDue && t->enableSeq_ < best->enableSeq_)) {
      best = t;
      bestDue = due;
    }
  }
  return best;
}

int64_t Scheduler::nextDue() const {
  Timer* t = earliestDue(INT64_MAX);
  return t ? dueOf(t) : -1;
}

void Scheduler::fire(Timer* t) {
  const int64_t due = t->due_;
  const uint64_t seq = t->enableSeq_;
  t->firing_ = true;
  t->lastTick_ = now();
  t->tick();
  t->firing_ = false;
  // The handler may have stopped, restarted or re-timed its own timer; only
  // an untouched timer moves on by one period.
  // A late tick (a busy console, or one woken from a rest) counts its next
  // period from now rather than catching up.
  if (t->running_ && t->due_ == due && t->enableSeq_ == seq) {
    const int64_t interval = std::max(1, t->interval_);
    t->due_ = due + interval > now() ? due + interval : now() + interval;
  }
}

void Scheduler::runDue() {
  const int64_t limit = now();
  // Each timer fires at most once per call, so a handler cannot starve the loop.
  std::vector<Timer*> fired;
  while (Timer* t = earliestDue(limit)) {
    if (std::find(fired.begin(), fired.end(), t) != fired.end()) break;
    fired.push_back(t);
    fire(t);
    if (t->running_ && t->due_ <= limit) t->due_ = limit + std::max(1, t->interval_);
  }
}

void Scheduler::advance(VirtualClock& clock, int64_t ms) {
  const int64_t target = clock.nowMs() + std::max<int64_t>(0, ms);
  while (Timer* t = earliestDue(target)) {
    clock.set(std::max(clock.nowMs(), dueOf(t)));
    fire(t);
  }
  clock.set(target);
}

}  // namespace q
