// The Xfader by hand: direction, arming, the pass at either end, time mode.

#include "playback_fixture.h"

namespace q::test {

class XfaderTest : public PlaybackFixture {
 protected:
  void SetUp() override {
    addCue({.number = "1", .levels = {{1, 10}}});
    addCue({.number = "2", .levels = {{1, 20}}});
    addCue({.number = "3", .levels = {{1, 30}}});
    console().memories.setNextCue(1);
    console().memories.LoadCueinProg(1);
  }
};

TEST_F(XfaderTest, BrushedAtItsRestingEndItFiresNoPass) {
  xfader(240);
  EXPECT_EQ(levels(), std::make_pair(240, 15));
  xfader(255);  // the resting end: nothing, not even the weights
  EXPECT_EQ(levels(), std::make_pair(240, 15));
  xfader(200);
  xfader(0);  // never through the middle: not armed
  EXPECT_EQ(get("XfaderArmed"), "0");
  EXPECT_EQ(get("NextCue"), "1");
  EXPECT_EQ(stage(1), 0);
  EXPECT_EQ(levels(), std::make_pair(200, 55));
}

TEST_F(XfaderTest, AFullPassDownThenUpMovesTwoCues) {
  xfader(128);
  EXPECT_EQ(get("XfaderArmed"), "-1");
  EXPECT_EQ(levels(), std::make_pair(128, 127));
  v().MixDirty = kFalse;
  xfader(0);
  EXPECT_EQ(get("MixDirty"), "-1");
  EXPECT_EQ(stage(1), 10);
  EXPECT_EQ(levels(), std::make_pair(255, 0));
  EXPECT_EQ(get("NextCue"), "2");
  EXPECT_EQ(get("XfaderFromBottom"), "-1");
  EXPECT_EQ(get("XfaderArmed"), "0");
  // Resting at 0 now, the fader runs the other way.
  xfader(60);
  EXPECT_EQ(levels(), std::make_pair(195, 60));
  xfader(255);  // this end needs no arming
  EXPECT_EQ(stage(1), 20);
  EXPECT_EQ(get("NextCue"), "3");
  EXPECT_EQ(get("XfaderFromBottom"), "0");
}

TEST_F(XfaderTest, FromTheBottomOneJumpToTheTopPasses) {
  xfader(120);
  xfader(0);
  ASSERT_EQ(get("NextCue"), "2");
  xfader(255);
  EXPECT_EQ(get("NextCue"), "3");
  xfader(0);  // straight down again: the arming was cleared by the pass
  EXPECT_EQ(get("NextCue"), "3");
}

TEST_F(XfaderTest, TakesOverFromARunningFade) {
  type("UpTime", "10");
  type("DownTime", "10");
  go();
  tick();
  tick();
  xfader(250);
  EXPECT_FALSE(fading());
  EXPECT_EQ(get("Led_GO"), "");
  EXPECT_EQ(get("FadeTick"), "2");
  EXPECT_EQ(levels(), std::make_pair(250, 5));
}

TEST_F(XfaderTest, TimeModeScrubsAlongTheGraphsAxis) {
  type("WupTime", "10");
  type("UpTime", "20");
  console().fadeTimes.enter(console().fadeTimes.WupTime);  // repaint: width 30
  type("DownTime", "5");
  ASSERT_EQ(get("picTimes.ScaleWidth"), "30");
  press("btnXfaderMode");
  EXPECT_EQ(get("XfaderTimeMode"), "-1");
  EXPECT_EQ(get("btnXfaderMode"), "imgXfaderMode");

  xfader(230);  // 30 - floor(27.06) = 3
  EXPECT_EQ(get("FadeTick"), "3");
  EXPECT_EQ(get("PosLine"), "3");
  EXPECT_EQ(levels(), std::make_pair(102, 0));
  xfader(128);  // tick 15: Stage is past its run and stays; Prog 5/20 of the way
  EXPECT_EQ(get("FadeTick"), "15");
  EXPECT_EQ(levels(), std::make_pair(102, 63));
  EXPECT_EQ(get("XfaderArmed"), "-1");
  xfader(0);
  EXPECT_EQ(get("NextCue"), "2");
  // From the bottom the axis runs the other way; a blank wait down reads as 0.
  type("WupTime", "10");
  type("UpTime", "20");
  type("DownTime", "5");
  console().fadeTimes.enter(console().fadeTimes.UpTime);
  type("WdownTime", "");
  xfader(17);  // floor(2.0) = 2
  EXPECT_EQ(get("FadeTick"), "2");
  EXPECT_EQ(levels(), std::make_pair(153, 0));

  press("btnXfaderMode");
  EXPECT_EQ(get("XfaderTimeMode"), "0");
  EXPECT_EQ(get("btnXfaderMode"), "");
}

TEST_F(XfaderTest, AGoAfterScrubbingCountsOnFromTheScrubbedTick) {
  setCell(2, cue::kUpTime, "2");
  setCell(2, cue::kDownTime, "2");
  type("UpTime", "10");
  type("DownTime", "10");
  console().fadeTimes.enter(console().fadeTimes.UpTime);
  press("btnXfaderMode");
  xfader(128);  // 10 - floor(5.02) = 5
  xfader(0);
  ASSERT_EQ(get("FadeTick"), "5");
  ASSERT_EQ(get("UpTime"), "2");
  go();
  tick();
  tick();
  // Both sides are already past their runs: they never move and the fade
  // goes on until it is stopped by hand.
  EXPECT_EQ(get("FadeTick"), "7");
  EXPECT_EQ(levels(), std::make_pair(255, 0));
  EXPECT_TRUE(fading());
  press("CutButton");
  EXPECT_EQ(stage(1), 20);
}

TEST_F(XfaderTest, BlackOutButtonTogglesTheFlagAndItsPicture) {
  v().MixDirty = kFalse;
  press("btnBlackOut");
  EXPECT_EQ(get("BlackOut"), "-1");
  EXPECT_EQ(get("btnBlackOut"), "imgBO");
  EXPECT_EQ(get("MixDirty"), "-1");
  press("btnBlackOut");
  EXPECT_EQ(get("BlackOut"), "0");
  EXPECT_EQ(get("btnBlackOut"), "");
}

}  // namespace q::test
