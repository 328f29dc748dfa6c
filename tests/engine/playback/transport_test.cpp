// Timed fades through the cue list: GO, the ticks, PAUSE, BACK, CUT.

#include <vector>

#include "playback_fixture.h"

namespace q::test {

class TransportTest : public PlaybackFixture {
 protected:
  std::vector<std::pair<int, int>> ticks(int n) {
    std::vector<std::pair<int, int>> out;
    for (int i = 0; i < n; ++i) {
      tick();
      out.push_back(levels());
    }
    return out;
  }
  using Levels = std::vector<std::pair<int, int>>;
};

TEST_F(TransportTest, FirstGoPassesTheEmptyRowZeroThenFadesEachSideInItsOwnTimes) {
  addCue({.number = "1", .u = "3", .d = "3", .levels = {{1, 255}}});
  addCue({.number = "2", .wu = "2", .u = "2", .wd = "1", .d = "4", .levels = {{2, 100}}});
  go();
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  EXPECT_EQ(get("GOButton"), "");
  tick();  // row 0 is no memory cue: passed on a tick of its own
  EXPECT_EQ(get("NextCue"), "1");
  EXPECT_EQ(get("PROGMem"), "1");
  EXPECT_EQ(prog(1), 255);
  EXPECT_TRUE(fading());
  EXPECT_EQ(ticks(2), (Levels{{170, 85}, {85, 170}}));
  tick();  // both sides home: the same tick ends the fade and passes Prog to Stage
  EXPECT_EQ(levels(), std::make_pair(255, 0));
  EXPECT_EQ(stage(1), 255);
  EXPECT_EQ(get("STAGEMem"), "1");
  EXPECT_EQ(get("NextCue"), "2");
  EXPECT_EQ(get("PROGMem"), "2");
  EXPECT_EQ(get("WdownTime"), "1");
  EXPECT_EQ(get("FadeTick"), "0");
  EXPECT_EQ(get("Led_GO"), "");
  EXPECT_FALSE(fading());

  // Waits hold a side at rest; the fade ends only when both have arrived.
  go();
  EXPECT_EQ(ticks(4), (Levels{{255, 0}, {191, 0}, {127, 127}, {63, 255}}));
  tick();
  EXPECT_EQ(stage(2), 100);
  EXPECT_EQ(get("NextCue"), "3");
  // Row 3 is empty: the Prog panel keeps cue 2.
  EXPECT_EQ(get("PROGMem"), "2");
  EXPECT_EQ(get("PosLine"), "0");
}

TEST_F(TransportTest, CueWithAllTimesZeroTakesOneTick) {
  addCue({.number = "1", .levels = {{5, 77}}});
  go();
  tick();
  tick();
  EXPECT_EQ(stage(5), 77);
  EXPECT_EQ(levels(), std::make_pair(255, 0));
  EXPECT_FALSE(fading());
  EXPECT_EQ(get("NextCue"), "2");
}

TEST_F(TransportTest, TimesAreReadAfreshOnEveryTick) {
  addCue({.number = "1", .u = "10", .d = "10"});
  go();
  ticks(3);  // pass row 0, then t = 1, 2
  EXPECT_EQ(levels(), std::make_pair(204, 51));
  type("UpTime", "abc");  // no number: counts as 0, Prog arrives at once
  type("DownTime", "");
  tick();
  EXPECT_EQ(levels(), std::make_pair(255, 0));
  EXPECT_EQ(get("NextCue"), "2");
}

TEST_F(TransportTest, FractionalTimesHoldTheLevelsWithinRange) {
  addCue({.number = "1", .u = "0.5", .d = "0.4", .levels = {{1, 9}}});
  go();
  tick();
  tick();  // both formulas overshoot at t = 1: held at 255 and 0, so the fade ends
  EXPECT_EQ(stage(1), 9);
  EXPECT_FALSE(fading());
}

TEST_F(TransportTest, RowsPastTheEndKeepTheClockRunningUntilStopped) {
  addCue({.number = "1", .levels = {{1, 50}}});
  go();
  ticks(2);
  ASSERT_FALSE(fading());
  go();
  ticks(5);
  EXPECT_EQ(get("NextCue"), "7");
  EXPECT_EQ(get("PROGMem"), "1");  // Prog stays as it was
  EXPECT_EQ(stage(1), 50);
  EXPECT_TRUE(fading());
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  press("PauseButton");
  ticks(3);
  EXPECT_EQ(get("NextCue"), "7");
}

TEST_F(TransportTest, PauseFreezesTheFadeAndASecondPauseAfterGoKeepsItRunning) {
  addCue({.number = "1", .u = "10", .d = "10"});
  press("PauseButton");  // nothing running: nothing changes
  EXPECT_EQ(get("Paused"), "0");
  go();
  ticks(4);  // t = 3
  EXPECT_EQ(levels(), std::make_pair(178, 76));
  press("PauseButton");
  EXPECT_EQ(get("Paused"), "-1");
  EXPECT_EQ(get("Led_PAUSE"), "Led_On2");
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  EXPECT_EQ(get("PauseButton"), "");
  ticks(5);
  EXPECT_EQ(get("FadeTick"), "3");
  go();  // restarts the clock but leaves the pause flagged
  tick();
  EXPECT_EQ(get("FadeTick"), "4");
  EXPECT_EQ(get("Paused"), "-1");
  EXPECT_EQ(get("Led_PAUSE"), "Led_On2");
  press("PauseButton");  // clears the flag and the fade goes on
  EXPECT_EQ(get("Paused"), "0");
  EXPECT_EQ(get("Led_PAUSE"), "");
  tick();
  EXPECT_EQ(get("FadeTick"), "5");
}

TEST_F(TransportTest, PauseLabelHandsItsMouseToTheButton) {
  addCue({.number = "1", .u = "10", .d = "10"});
  go();
  tick();
  control("lblPAUSE").mouseDown();
  EXPECT_EQ(get("PauseButton"), "Llarg2");
  control("lblPAUSE").mouseUp();
  EXPECT_EQ(get("PauseButton"), "");
  EXPECT_EQ(get("Paused"), "-1");
}

TEST_F(TransportTest, BackFadesToTheCueBeforeTheOneOnStage) {
  addCue({.number = "1", .levels = {{1, 10}}});
  addCue({.number = "2", .levels = {{1, 20}}});
  addCue({.number = "3", .u = "2", .d = "2", .levels = {{1, 30}}});
  go();
  ticks(2);
  ASSERT_EQ(get("NextCue"), "2");
  press("BackButton");  // the first cue is on Stage: nothing to go back to
  EXPECT_FALSE(fading());
  EXPECT_EQ(get("NextCue"), "2");
  EXPECT_EQ(get("BackButton"), "");

  go();
  tick();
  ASSERT_EQ(get("NextCue"), "3");
  ASSERT_EQ(stage(1), 20);
  press("BackButton");
  EXPECT_EQ(get("NextCue"), "1");
  EXPECT_EQ(get("PROGMem"), "1");
  EXPECT_EQ(prog(1), 10);
  EXPECT_TRUE(fading());
  EXPECT_EQ(get("Led_GO"), "");  // a fade, but GO's lamp stays dark
  tick();                        // cue 1's own times: all zero
  EXPECT_EQ(stage(1), 10);
  EXPECT_EQ(get("NextCue"), "2");
  EXPECT_FALSE(fading());
}

TEST_F(TransportTest, CutJumpsToTheEndOfARunningFadeOnly) {
  addCue({.number = "1", .u = "20", .d = "20", .levels = {{1, 99}}});
  addCue({.number = "2", .levels = {{1, 1}}});
  press("CutButton");  // no fade: nothing happens
  EXPECT_EQ(get("NextCue"), "0");
  EXPECT_EQ(get("CutButton"), "");

  go();
  ticks(3);
  press("PauseButton");
  press("PauseButton");  // running again
  v().MixDirty = kFalse;
  press("CutButton");
  EXPECT_EQ(stage(1), 99);
  EXPECT_EQ(levels(), std::make_pair(255, 0));
  EXPECT_EQ(get("NextCue"), "2");
  EXPECT_EQ(get("PROGMem"), "2");
  EXPECT_EQ(get("FadeTick"), "0");
  EXPECT_EQ(get("Led_GO"), "");
  EXPECT_EQ(get("MixDirty"), "-1");
  EXPECT_FALSE(fading());
}

TEST_F(TransportTest, CueActionsFireAtTheWaitUpTickInOrder) {
  addCue({.number = "1", .wu = "2", .u = "1"});
  setCell(1, cue::kPlayer1Action, "1");
  setCell(1, cue::kPlayer2Action, "2");
  setCell(1, cue::kChaser1Action, "1");
  setCell(1, cue::kPlayer1Volume, "0");
  setCell(1, cue::kPlayer1Balance, "127");
  setCell(1, cue::kPlayer2Balance, "0");
  setCell(1, cue::kChaser1Level, "100");
  setCell(1, cue::kChaser1Speed, "55");
  setCell(1, cue::kChaser2Action, "2");
  form1().FXTimer[1]->setRunning(true);
  player2.isReady = false;
  go();
  ticks(2);  // row 0, then t = 1
  EXPECT_TRUE(player1.calls.empty());
  tick();  // t = 2 = wait up
  EXPECT_EQ(player1.calls, (std::vector<std::string>{"play", "volume -3060", "balance 0"}));
  EXPECT_EQ(player2.calls, (std::vector<std::string>{"stop", "balance -2000"}));
  EXPECT_TRUE(form1().FXTimer[0]->isEnabled());
  EXPECT_EQ(get("FXbutton(0)"), "ImgLedOn");
  EXPECT_EQ(form1().FXTimer[0]->interval(), 1001);
  EXPECT_EQ(v().FX1Level, 100);
  EXPECT_FALSE(form1().FXTimer[1]->isEnabled());
  tick();
  EXPECT_EQ(player1.calls.size(), 3u);  // once only
}

TEST_F(TransportTest, ActionsOfACueWithoutWaitUpNeverRunInAFade) {
  addCue({.number = "1"});
  setCell(1, cue::kPlayer1Action, "1");
  go();
  ticks(3);
  EXPECT_TRUE(player1.calls.empty());
}

TEST_F(TransportTest, TheFrameFollowsTheFade) {
  console().start();
  addCue({.number = "1", .u = "2", .d = "2", .levels = {{1, 200}}});
  v().chan(1, kStageColumn) = 100;
  go();
  ticks(2);  // pass row 0, t = 1: (127, 127)
  tick();    // the output tick comes first at an instant: it mixes the levels of t = 1
  EXPECT_EQ(v().DMXData[0], 49 + 99);
  tick();
  EXPECT_EQ(v().DMXData[0], 200);
}

}  // namespace q::test
