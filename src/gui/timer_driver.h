#pragma once
// Delivers the console's timer ticks from the Qt event loop: one precise
// single-shot timer is armed for the next tick that may have work, and
// re-armed after each delivery, whenever the console starts, stops or
// re-times a timer, and each time the loop goes round (a handler may have
// given the output tick work). A tick that would change nothing (the output
// tick of a clean mix) does not wake the desk: such ticks are passed over on
// their beat before the next event is handled, so every tick with work
// comes on its beat and between them the desk sleeps.

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

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void loopWentRound();
  void rearm();

  Scheduler& scheduler_;
  QTimer timer_;
  int64_t armedFor_ = -1;  // the wake-up the timer is armed for, -1 when stopped
  bool idleTicksToPass_ = false;
};

}  // namespace q::gui
