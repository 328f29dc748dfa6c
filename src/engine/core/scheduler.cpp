#include "engine/core/scheduler.h"

#include <algorithm>
#include <exception>

#include "engine/controls/handler_scope.h"
#include "engine/controls/timer.h"

namespace q {

namespace {
// The first instant of a timer's beat after now.
int64_t nextOnBeat(int64_t due, int64_t interval, int64_t now) {
  if (due + interval > now) return due + interval;
  return due + ((now - due) / interval + 1) * interval;
}

// The first instant of the beat through due that is not before from.
int64_t beatFrom(int64_t due, int64_t interval, int64_t from) {
  if (due >= from) return due;
  return due + ((from - due + interval - 1) / interval) * interval;
}
}  // namespace

void Scheduler::remove(Timer* t) { std::erase(timers_, t); }

void Scheduler::start(Timer* t) {
  t->enableSeq_ = ++enableCounter_;
  t->due_ = now() + std::max(1, t->interval_);
}

void Scheduler::restartPeriod(Timer* t) { t->due_ = now() + std::max(1, t->interval_); }

Timer* Scheduler::earliestDue(int64_t limit) const {
  Timer* best = nullptr;
  for (Timer* t : timers_) {
    if (!t->running_ || t->firing_ || t->due_ > limit) continue;
    if (!best || t->due_ < best->due_ ||
        (t->due_ == best->due_ && t->enableSeq_ < best->enableSeq_))
      best = t;
  }
  return best;
}

int64_t Scheduler::nextDue() const {
  Timer* t = earliestDue(INT64_MAX);
  return t ? t->due_ : -1;
}

int64_t Scheduler::wakeFor(const Timer& t) {
  if (!t.idleUntil) return t.due_;
  const int64_t until = t.idleUntil();
  if (until == Timer::kIdleForever) return until;
  return beatFrom(t.due_, std::max(1, t.interval_), until);
}

int64_t Scheduler::nextWake() const {
  int64_t best = Timer::kIdleForever;
  for (const Timer* t : timers_)
    if (t->running_ && !t->firing_) best = std::min(best, wakeFor(*t));
  return best == Timer::kIdleForever ? -1 : best;
}

void Scheduler::passIdleTicks() {
  const int64_t t0 = now();
  for (Timer* t : timers_) {
    if (!t->running_ || t->firing_ || !t->idleUntil || t->due_ > t0) continue;
    // Up to the first tick with work, or past now when there is none yet.
    const int64_t until = std::min(t->idleUntil(), t0 + 1);
    t->due_ = beatFrom(t->due_, std::max(1, t->interval_), until);
  }
}

std::string Scheduler::runTick(Timer& t) {
  // Marks the timer as inside its tick for as long as the handler runs,
  // however it ends.
  struct Firing {
    explicit Firing(Timer& timer) : t(timer), was(timer.firing_) { t.firing_ = true; }
    ~Firing() { t.firing_ = was; }
    Timer& t;
    bool was;
  } firing(t);
  try {
    HandlerScope scope;
    if (t.onTick) t.onTick();
    return {};
  } catch (const std::exception& e) {
    return t.name() + " failed: " + e.what();
  } catch (...) {
    return t.name() + " failed";
  }
}

void Scheduler::tellFailure(const std::string& failure) {
  if (failure.empty() || !onTickFailed) return;
  try {
    onTickFailed(failure);
  } catch (...) {
    // Telling the operator failed too; the ticks go on all the same.
  }
}

void Scheduler::fire(Timer* t) {
  const int64_t due = t->due_;
  const uint64_t seq = t->enableSeq_;
  const std::string failure = runTick(*t);
  // The handler may have stopped, restarted or re-timed its own timer; only
  // an untouched timer moves on along its beat.
  if (t->running_ && t->due_ == due && t->enableSeq_ == seq)
    t->due_ = nextOnBeat(due, std::max(1, t->interval_), now());
  tellFailure(failure);
}

void Scheduler::tickNow(Timer& t) { tellFailure(runTick(t)); }

void Scheduler::runDue() {
  const int64_t limit = now();
  // A fired timer falls due next after now, so each fires at most once per
  // call and a handler cannot starve the loop.
  while (Timer* t = earliestDue(limit)) fire(t);
}

void Scheduler::advance(VirtualClock& clock, int64_t ms) {
  const int64_t target = clock.nowMs() + std::max<int64_t>(0, ms);
  while (Timer* t = earliestDue(target)) {
    clock.set(std::max(clock.nowMs(), t->due_));
    fire(t);
  }
  // A handler that moved time itself (a box that advanced it) keeps it there.
  clock.set(std::max(clock.nowMs(), target));
}

}  // namespace q
