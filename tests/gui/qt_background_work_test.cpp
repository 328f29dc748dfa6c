#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "desk_fixture.h"
#include "engine/controls/timer.h"
#include "engine/core/scheduler.h"
#include "gui/qt_background_work.h"
#include "gui/timer_driver.h"

namespace q {
namespace {

// A job on the desk's background work runs on a thread of its own, the
// timers tick while it runs, and its failure comes back to the caller.
class QtBackgroundWorkTest : public ::testing::Test {
 protected:
  bool app_ = (test::ensureApplication(), true);
  SteadyClock clock;
  Scheduler scheduler{clock};
  gui::TimerDriver driver{scheduler};
  gui::QtBackgroundWork work;
};

TEST_F(QtBackgroundWorkTest, TimersGoOnAndAFailureComesBack) {
  Timer output("DMXTimer", scheduler, 10);
  int ticks = 0;
  output.onTick = [&] { ++ticks; };
  output.setRunning(true);
  std::thread::id ranOn;
  work.run([&] {
    ranOn = std::this_thread::get_id();
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
  });
  EXPECT_NE(ranOn, std::this_thread::get_id());
  EXPECT_GE(ticks, 4) << "a loaded machine delays ticks, it never adds them";

  EXPECT_THROW(work.run([] { throw std::runtime_error("bad line"); }), std::runtime_error);
}

}  // namespace
}  // namespace q
