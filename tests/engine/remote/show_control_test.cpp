// The actions a remote may ask for: each does what the console's own control
// does, and a level, strip, channel or cue that is no such thing moves nothing.

#include <cmath>
#include <limits>

#include "../playback/playback_fixture.h"
#include "engine/remote/show_control.h"
#include "engine/remote/show_state.h"

namespace q::test {
namespace {

class ShowControlTest : public PlaybackFixture {
 protected:
  ShowControl& remote() {
    if (!remote_) remote_ = std::make_unique<ShowControl>(console());
    return *remote_;
  }
  ShowState state() { return readShowState(console()); }

 private:
  std::unique_ptr<ShowControl> remote_;
};

TEST_F(ShowControlTest, TransportActionsRunTheDesksOwnKeys) {
  addCue({.number = "1", .u = "1", .d = "1", .levels = {{1, 255}}});
  addCue({.number = "2", .u = "5", .d = "5", .levels = {{2, 255}}});
  remote().go();
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  EXPECT_TRUE(state().goLamp);
  tick();
  EXPECT_EQ(state().progCue, "1");
  advance(1000);
  EXPECT_EQ(state().stageCue, "1");
  EXPECT_EQ(state().progCue, "2");
  EXPECT_EQ(state().nextCue, "2");

  remote().go();
  tick();
  tick();
  EXPECT_GT(state().fadeProgress, 0.0);
  remote().resume();  // nothing paused: no key pressed
  EXPECT_FALSE(state().paused);
  remote().stop();
  EXPECT_TRUE(state().paused);
  remote().stop();  // already paused: a second STOP must not end the pause
  EXPECT_TRUE(state().paused);
  remote().resume();
  EXPECT_FALSE(state().paused);
  remote().cut();
  advance(200);
  EXPECT_EQ(state().stageCue, "2");
}

TEST_F(ShowControlTest, LevelsMoveTheFadersAsADragWould) {
  console();
  EXPECT_TRUE(remote().fader(1, 1.0));
  EXPECT_EQ(form1().Fader(3).position(), 0);
  EXPECT_TRUE(remote().fader(20, 0.5));
  EXPECT_EQ(form1().Fader(22).position(), 127);
  EXPECT_DOUBLE_EQ(state().strips[19], 128 / 255.0);
  EXPECT_TRUE(remote().grandMaster(0.0));
  EXPECT_EQ(form1().SMaster.position(), 255);
  EXPECT_EQ(v().GrandMaster, 255);  // the handler ran: the mixer turns it round
  EXPECT_TRUE(remote().crossfade(0.25));
  EXPECT_EQ(form1().Xfader.position(), 191);

  v().EditColumn = 1;
  EXPECT_TRUE(remote().channel(512, 1.0));
  EXPECT_EQ(stage(512), 255);  // EditColumn 1 is Stage
  EXPECT_EQ(v().MixDirty, kTrue);
}

TEST_F(ShowControlTest, WhatIsNoLevelStripChannelOrCueMovesNothing) {
  addCue({.number = "7", .levels = {{3, 99}}});
  console();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (double bad : {-0.01, 1.01, nan, inf, -inf}) {
    EXPECT_FALSE(remote().fader(1, bad));
    EXPECT_FALSE(remote().grandMaster(bad));
    EXPECT_FALSE(remote().crossfade(bad));
    EXPECT_FALSE(remote().channel(1, bad));
    EXPECT_FALSE(remote().loadCue(bad));
  }
  EXPECT_FALSE(remote().fader(0, 1));
  EXPECT_FALSE(remote().fader(21, 1));
  EXPECT_FALSE(remote().channel(0, 1));
  EXPECT_FALSE(remote().channel(513, 1));
  EXPECT_FALSE(remote().loadCue(7.5));
  EXPECT_FALSE(remote().loadCue(8));
  EXPECT_FALSE(remote().loadCue(1e9));
  EXPECT_EQ(form1().Fader(3).position(), 255);
  EXPECT_EQ(state().progCue, "");

  EXPECT_TRUE(remote().loadCue(7));
  EXPECT_EQ(state().progCue, "7");
  EXPECT_EQ(prog(3), 99);
}

TEST_F(ShowControlTest, DirectBlackoutAndResetAsOnTheDesk) {
  addCue({.number = "10", .levels = {{4, 200}}});
  addCue({.number = "20"});
  console();
  remote().direct("1/3aff");
  EXPECT_EQ(stage(2), 255);
  remote().blackout(true);
  EXPECT_TRUE(state().blackout);
  remote().blackout(true);  // asked twice, still on: the key is no toggle from outside
  EXPECT_TRUE(state().blackout);
  remote().blackout(false);
  EXPECT_FALSE(state().blackout);
  ASSERT_TRUE(remote().reset());
  EXPECT_EQ(state().nextCue, "1");
  EXPECT_EQ(state().progCue, "10");
  EXPECT_EQ(prog(4), 200);
}

}  // namespace
}  // namespace q::test
