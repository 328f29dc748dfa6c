#include <gtest/gtest.h>

#include <stdexcept>

#include "engine/controls/registry.h"
#include "engine/controls/scroller.h"
#include "engine/controls/timer.h"
#include "engine/core/scheduler.h"

namespace q {

TEST(Scroller, CodeMoveRunsHandlerInsideCallerOnlyOnChange) {
  Scroller s("Fader(3)", 0, 255, 255);
  int changes = 0, views = 0;
  s.onChange = [&] { ++changes; };
  s.addViewListener([&] { ++views; });
  EXPECT_TRUE(s.setPosition(255));
  EXPECT_EQ(changes, 0);
  EXPECT_TRUE(s.setPosition(10));
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(views, 1);
  EXPECT_FALSE(s.setPosition(256));
  EXPECT_FALSE(s.setPosition(-1));
  EXPECT_EQ(s.position(), 10);
}

TEST(Scroller, HandlerMayMoveAnotherFaderReentrantly) {
  Scroller a("A", 0, 255, 0), b("B", 0, 255, 0);
  std::vector<std::string> order;
  a.onChange = [&] {
    order.push_back("a-in");
    b.setPosition(a.position());
    order.push_back("a-out");
  };
  b.onChange = [&] { order.push_back("b"); };
  a.setPosition(7);
  EXPECT_EQ(order, (std::vector<std::string>{"a-in", "b", "a-out"}));
}

TEST(Scheduler, TicksFireInTimeOrderThenEnableOrder) {
  VirtualClock clock;
  Scheduler sched(clock);
  Timer dmx("DMXTimer", sched, 25), mem("MemTimer", sched, 100);
  std::vector<std::string> log;
  dmx.onTick = [&] { log.push_back("dmx@" + std::to_string(clock.nowMs())); };
  mem.onTick = [&] { log.push_back("mem@" + std::to_string(clock.nowMs())); };
  dmx.setRunning(true);
  mem.setRunning(true);
  sched.advance(clock, 100);
  EXPECT_EQ(log, (std::vector<std::string>{"dmx@25", "dmx@50", "dmx@75", "dmx@100", "mem@100"}));
}

TEST(Scheduler, EnableKeepsPhaseRestartAndIntervalChangeStartNewPeriod) {
  VirtualClock clock;
  Scheduler sched(clock);
  Timer t("FXTimer(0)", sched, 100);
  std::vector<int64_t> at;
  t.onTick = [&] { at.push_back(clock.nowMs()); };
  t.setRunning(true);
  sched.advance(clock, 50);
  t.setRunning(true);  // already running: phase kept
  sched.advance(clock, 60);
  EXPECT_EQ(at, (std::vector<int64_t>{100}));
  t.setRunning(false);
  t.setRunning(true);  // restarted at 110
  sched.advance(clock, 100);
  EXPECT_EQ(at.back(), 210);
  t.setInterval(30);  // new period from 210
  sched.advance(clock, 30);
  EXPECT_EQ(at.back(), 240);
}

// A late tick is simply late: it fires once, the ticks it missed are not
// made up, and the next one falls on the timer's beat again.
TEST(Scheduler, ALateTickKeepsTheBeat) {
  VirtualClock clock;
  Scheduler sched(clock);
  Timer t("DMXTimer", sched, 100);
  std::vector<int64_t> at;
  t.onTick = [&] { at.push_back(clock.nowMs()); };
  t.setRunning(true);
  clock.set(130);  // a busy console: the tick due at 100 comes at 130
  sched.runDue();
  EXPECT_EQ(sched.nextDue(), 200);
  clock.set(480);  // missed 200, 300 and 400
  sched.runDue();
  EXPECT_EQ(at, (std::vector<int64_t>{130, 480}));
  EXPECT_EQ(sched.nextDue(), 500);
  clock.set(500);
  sched.runDue();
  EXPECT_EQ(sched.nextDue(), 600);
}

// A host on a real clock need not wake for ticks that would change nothing.
// Passed over, they keep their beat: work that comes meanwhile waits for
// the next tick of the beat, and every tick still falls due for the
// virtual clock.
TEST(Scheduler, IdleTicksArePassedOverOnTheirBeat) {
  VirtualClock clock;
  Scheduler sched(clock);
  Timer dmx("DMXTimer", sched, 25), fx("FXTimer(0)", sched, 100);
  bool dirty = false;
  int64_t keepAlive = 1000;
  std::vector<int64_t> at;
  dmx.idleUntil = [&] { return dirty ? INT64_MIN : keepAlive; };
  dmx.onTick = [&] {
    at.push_back(clock.nowMs());
    dirty = false;
    keepAlive = clock.nowMs() + 1000;
  };
  dmx.setRunning(true);
  EXPECT_EQ(sched.nextDue(), 25);
  EXPECT_EQ(sched.nextWake(), 1000) << "the first tick with work: the keep-alive";

  clock.set(510);  // the desk slept; an event comes
  sched.passIdleTicks();
  EXPECT_EQ(sched.nextDue(), 525) << "the ticks of 25 to 500 are over";
  dirty = true;  // the event moved a fader
  EXPECT_EQ(sched.nextWake(), 525) << "on the beat, not at once";
  clock.set(525);
  sched.passIdleTicks();
  sched.runDue();
  EXPECT_EQ(at, std::vector<int64_t>{525});
  EXPECT_EQ(sched.nextWake(), 1525);

  fx.setRunning(true);  // steps at 625, 725 ...
  EXPECT_EQ(sched.nextWake(), 625);
  clock.set(625);
  sched.passIdleTicks();
  sched.runDue();
  EXPECT_EQ(at.size(), 1u) << "the output tick of 625 had nothing to do";
  keepAlive = Timer::kIdleForever;
  fx.setRunning(false);
  EXPECT_EQ(sched.nextWake(), -1) << "nothing to wake for";
  EXPECT_EQ(sched.nextDue(), 650);
}

// A handler that throws never silences its timer: the timer keeps its beat,
// and the failure is told once the tick has returned. On the desk the box
// runs the event loop while the operator reads it; the ticks go on there,
// the failed timer's among them.
TEST(Scheduler, AFailingTickIsToldAfterItReturnsAndTheTimerGoesOn) {
  VirtualClock clock;
  Scheduler sched(clock);
  Timer fx("FXTimer(0)", sched, 100), dmx("DMXTimer", sched, 100);
  int dmxTicks = 0;
  dmx.onTick = [&] { ++dmxTicks; };
  fx.onTick = [&] { throw std::runtime_error("step lost"); };
  std::vector<std::string> told;
  sched.onTickFailed = [&](const std::string& failure) {
    told.push_back(failure);
    if (told.size() > 1) return;
    clock.set(250);  // the operator reads the first box for 150 ms
    sched.runDue();
  };
  dmx.setRunning(true);
  fx.setRunning(true);
  clock.set(100);
  sched.runDue();
  EXPECT_EQ(told, std::vector<std::string>(2, "FXTimer(0) failed: step lost"));
  EXPECT_EQ(dmxTicks, 2) << "the output tick of 200 came under the box";
  EXPECT_TRUE(fx.isEnabled());
  EXPECT_EQ(sched.nextDue(), 300) << "both on their beat again";

  sched.advance(clock, 200);
  EXPECT_EQ(told.size(), 4u);
  EXPECT_EQ(dmxTicks, 4);
  fx.onTick = [] { throw 42; };
  fx.tick();  // one tick outside the beat, as the command language gives it
  EXPECT_EQ(told.back(), "FXTimer(0) failed");
  sched.onTickFailed = [](const std::string&) { throw std::runtime_error("no box"); };
  sched.advance(clock, 100);
  EXPECT_EQ(dmxTicks, 5) << "a failure that cannot even be told stops nothing";
  EXPECT_EQ(sched.nextDue(), 600);
}

TEST(Scheduler, HandlerStoppingItsOwnTimerStopsIt) {
  VirtualClock clock;
  Scheduler sched(clock);
  Timer t("MemTimer", sched, 100);
  int ticks = 0;
  t.onTick = [&] {
    if (++ticks == 2) t.setRunning(false);
  };
  t.setRunning(true);
  sched.advance(clock, 1000);
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(sched.nextDue(), -1);
}

TEST(Registry, FindsByConsoleNameAndRefusesASecondControlOfOneName) {
  Registry reg;
  Scroller f("Fader(3)", 0, 255, 255);
  reg.add(f);
  EXPECT_EQ(reg.find<Scroller>("Fader(3)"), &f);
  EXPECT_EQ(reg.find("Fader(4)"), nullptr);
  Scroller twin("Fader(3)", 0, 255, 0);
  EXPECT_THROW(reg.add(twin), std::logic_error);
  EXPECT_EQ(reg.find<Scroller>("Fader(3)"), &f);
  reg.remove(twin);  // not the registered one: nothing happens
  EXPECT_EQ(reg.find<Scroller>("Fader(3)"), &f);
}

}  // namespace q
