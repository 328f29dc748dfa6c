#include "gui/timer_driver.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>
#include <algorithm>
#include <climits>

#include "engine/core/scheduler.h"

namespace q::gui {

TimerDriver::TimerDriver(Scheduler& scheduler) : scheduler_(scheduler) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &TimerDriver::runDue);
  scheduler_.onChanged = [this] { rearm(); };
  // Before the loop sleeps, and when a loop that never sleeps (a test's
  // wait) goes round again.
  if (auto* loop = QAbstractEventDispatcher::instance(thread())) {
    connect(loop, &QAbstractEventDispatcher::aboutToBlock, this, &TimerDriver::loopWentRound);
    connect(loop, &QAbstractEventDispatcher::awake, this, &TimerDriver::loopWentRound);
  }
  // Sees every event first, the ticks' own included.
  QCoreApplication::instance()->installEventFilter(this);
  rearm();
}

TimerDriver::~TimerDriver() {
  if (auto* app = QCoreApplication::instance()) app->removeEventFilter(this);
  scheduler_.onChanged = nullptr;
}

void TimerDriver::loopWentRound() {
  idleTicksToPass_ = true;
  rearm();
}

bool TimerDriver::eventFilter(QObject*, QEvent*) {
  // Ticks that fell due while the loop waited and would have changed
  // nothing are over before this event: a change it makes waits for the beat.
  if (idleTicksToPass_) {
    idleTicksToPass_ = false;
    scheduler_.passIdleTicks();
  }
  return false;
}

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
  const int64_t wake = scheduler_.nextWake();
  // Most rounds of the loop leave the next wake-up where it was.
  if (wake == armedFor_ && (wake < 0 || timer_.isActive())) return;
  armedFor_ = wake;
  if (wake < 0) {
    timer_.stop();
    return;
  }
  const int64_t wait = std::clamp<int64_t>(wake - scheduler_.now(), 0, INT_MAX);
  timer_.start(int(wait));
}

}  // namespace q::gui
