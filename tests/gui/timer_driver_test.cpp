#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "desk_fixture.h"
#include "engine/controls/timer.h"
#include "engine/core/scheduler.h"
#include "gui/timer_driver.h"

namespace q {
namespace {

// The desk's clock, scheduler and timer driver, on the test's event loop.
class TimerDriverTest : public ::testing::Test {
 protected:
  // The driver listens to the application's event loop, so that comes first.
  bool app_ = (test::ensureApplication(), true);
  SteadyClock clock;
  Scheduler scheduler{clock};
  gui::TimerDriver driver{scheduler};
};

TEST_F(TimerDriverTest, TicksArriveOnTimeFromTheEventLoop) {
  Timer output("DMXTimer", scheduler, 20);
  int ticks = 0;
  output.onTick = [&] { ++ticks; };
  output.setRunning(true);
  QTest::qWait(210);
  EXPECT_GE(ticks, 4) << "a loaded machine delays ticks, it never adds them";
  EXPECT_LE(ticks, 11);
  output.setRunning(false);
  const int stopped = ticks;
  QTest::qWait(100);
  EXPECT_EQ(ticks, stopped);
}

// A tick that would change nothing does not wake the desk; once an event
// gives it work, the next tick of the beat comes, and then it is idle again.
TEST_F(TimerDriverTest, IdleTicksLeaveTheDeskAsleepUntilAnEventGivesThemWork) {
  Timer output("DMXTimer", scheduler, 20);
  bool dirty = false;
  std::vector<int64_t> at;
  output.idleUntil = [&] { return dirty ? INT64_MIN : Timer::kIdleForever; };
  output.onTick = [&] {
    at.push_back(clock.nowMs());
    dirty = false;
  };
  const int64_t start = scheduler.now();
  output.setRunning(true);
  QTest::qWait(200);
  EXPECT_TRUE(at.empty());
  int64_t changed = 0;
  QObject scope;  // the change never outlives the test
  QTimer::singleShot(50, &scope, [&] {
    changed = scheduler.now();
    dirty = true;
  });
  ASSERT_TRUE(QTest::qWaitFor([&] { return !at.empty(); }, 300));
  const int64_t beat = start + ((changed - start) / 20 + 1) * 20;
  EXPECT_GE(at[0], beat) << "the change waited for the next tick of the beat";
  QTest::qWait(100);
  EXPECT_EQ(at.size(), 1u);
}

// A handler that opens a modal box runs the event loop inside its tick: the
// output goes on meanwhile, and the waiting timer is not entered a second time.
TEST_F(TimerDriverTest, OtherTimersTickWhileAHandlerWaitsInTheEventLoop) {
  Timer output("DMXTimer", scheduler, 10);
  Timer fade("MemTimer", scheduler, 30);
  int outputTicks = 0, fadeTicks = 0, depth = 0, deepest = 0, outputWhileWaiting = 0;
  output.onTick = [&] { ++outputTicks; };
  fade.onTick = [&] {
    ++fadeTicks;
    deepest = std::max(deepest, ++depth);
    if (fadeTicks == 1) {
      const int before = outputTicks;
      QTest::qWait(200);
      outputWhileWaiting = outputTicks - before;
    }
    --depth;
  };
  output.setRunning(true);
  fade.setRunning(true);
  QTest::qWait(400);
  EXPECT_GE(outputWhileWaiting, 3);
  EXPECT_EQ(deepest, 1);
  EXPECT_GE(fadeTicks, 2) << "the waiting timer goes on once its handler returned";
}

}  // namespace
}  // namespace q
