#include "engine/controls/timer.h"

#include "engine/core/scheduler.h"

namespace q {

Timer::Timer(std::string name, Scheduler& scheduler, int intervalMs, bool enabled)
    : Control(std::move(name)), scheduler_(scheduler), interval_(intervalMs) {
  scheduler_.add(this);
  if (enabled) setRunning(true);
}

Timer::~Timer() { scheduler_.remove(this); }

void Timer::setRunning(bool on) {
  if (on == running_) return;
  running_ = on;
  if (on) scheduler_.start(this);
  scheduler_.changed();
  notifyView();
}

void Timer::setInterval(int ms) {
  if (ms == interval_) return;
  interval_ = ms;
  if (running_) scheduler_.restartPeriod(this);
  scheduler_.changed();
  notifyView();
}

void Timer::tick() { scheduler_.tickNow(*this); }

}  // namespace q
