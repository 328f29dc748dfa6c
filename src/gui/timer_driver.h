#pragma once
// Delivers the console's timer ticks from the Qt event loop: one precise
// single-shot timer is armed for the earliest tick due, and re-armed after
// each delivery and whenever the console starts, stops or re-times a timer.
// Nothing else moves a tick, so between ticks the desk sleeps: nothing polls.

#include <QObject>
#include <QTimer>

namespace q {
class Scheduler;
}

namespace q::gui {

class TimerDriver : public QObject {
  Q_OBJECT
 public:
  explicit TimerDriver(Scheduler& scheduler);
  ~TimerDriver() override;

  // Runs every tick that is due now and arms the timer for the next one.
  void runDue();

 private:
  void rearm();

  Scheduler& scheduler_;
  QTimer timer_;
  int64_t armedFor_ = -1;  // the due time the timer is armed for, -1 when stopped
};

}  // namespace q::gui
