#include "gui/timer_driver.h"

#include <algorithm>
#include <climits>

#include "engine/core/scheduler.h"

namespace q::gui {

TimerDriver::TimerDriver(Scheduler& scheduler) : scheduler_(scheduler) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &TimerDriver::runDue);
  scheduler_.onChanged = [this] { rearm(); };
  rearm();
}

TimerDriver::~TimerDriver() { scheduler_.onChanged = nullptr; }

void TimerDriver::runDue() {
  armedFor_ = -1;
  // Armed before the ticks run: a handler that opens a modal box runs the
  // event loop inside it, and the other timers (the output above all) must
  // go on ticking there.
  rearm();
  scheduler_.runDue();
  rearm();
}

void TimerDriver::rearm() {
  const int64_t due = scheduler_.nextDue();
  // A start or stop of another timer often leaves the earliest tick where it was.
  if (due == armedFor_ && (due < 0 || timer_.isActive())) return;
  armedFor_ = due;
  if (due < 0) {
    timer_.stop();
    return;
  }
  const int64_t wait = std::clamp<int64_t>(due - scheduler_.now(), 0, INT_MAX);
  timer_.start(int(wait));
}

}  // namespace q::gui
