// The times graph: its scale, its two bars, the line that runs along it,
// and the time boxes that feed it.

#include "playback_fixture.h"

namespace q::test {

class TimesGraphTest : public PlaybackFixture {
 protected:
  const std::vector<DrawItem>& items() { return console().timesGraph.picTimes.items(); }
  void enter(const std::string& box) { control(box).keyPress(13); }
};

TEST_F(TimesGraphTest, AllTimesZeroGiveAScaleOfOneAndBarsWithoutWidth) {
  EXPECT_EQ(get("picTimes.ScaleWidth"), "1");
  ASSERT_EQ(items().size(), 2u);
  EXPECT_EQ(items()[0].w, 0);
  EXPECT_EQ(items()[1].w, 0);
}

TEST_F(TimesGraphTest, UpperBarIsTheFallLowerBarTheRiseOnTheLongerSidesScale) {
  type("WupTime", "10");
  type("UpTime", "20");
  type("DownTime", "5");
  EXPECT_EQ(get("picTimes.ScaleWidth"), "1");  // typing alone doesn't repaint
  enter("DownTime");
  EXPECT_EQ(get("picTimes.ScaleWidth"), "30");
  ASSERT_EQ(items().size(), 2u);
  const DrawItem& fall = items()[0];
  const DrawItem& rise = items()[1];
  EXPECT_EQ(fall.color, console().colors.TimesDownColor);
  EXPECT_EQ(std::vector<double>({fall.x, fall.y, fall.w, fall.h}),
            std::vector<double>({0, 1, 5, 2}));
  EXPECT_EQ(rise.color, console().colors.TimesUpColor);
  EXPECT_EQ(std::vector<double>({rise.x, rise.y, rise.w, rise.h}),
            std::vector<double>({10, 4, 20, 2}));
  type("WdownTime", "40");
  enter("WdownTime");
  EXPECT_EQ(get("picTimes.ScaleWidth"), "45");
}

TEST_F(TimesGraphTest, EnterTurnsWhatIsNoTimeIntoZero) {
  for (auto [typed, kept] : std::vector<std::pair<std::string, std::string>>{
           {"-3", "0"}, {"abc", "0"}, {"", "0"}, {"2.5", "2.5"}, {"12", "12"}}) {
    type("WupTime", typed);
    enter("WupTime");
    EXPECT_EQ(get("WupTime"), kept) << typed;
  }
  type("UpTime", "-4");
  control("UpTime").keyPress('4');  // other keys are left alone
  EXPECT_EQ(get("UpTime"), "-4");
}

TEST_F(TimesGraphTest, PosLineRunsWithTheFadeAndTheGraphFollowsEachLoad) {
  addCue({.number = "1", .wu = "1", .u = "3", .d = "2"});
  go();
  tick();  // row 1 comes into Prog: the graph is repainted
  EXPECT_EQ(get("picTimes.ScaleWidth"), "4");
  tick();
  tick();
  EXPECT_EQ(get("PosLine"), "2");
  EXPECT_EQ(get("PosLine.X2"), "2");
  EXPECT_EQ(console().timesGraph.PosLine.y2, TimesGraph::kScaleHeight);
  tick();
  tick();  // t = 4: both sides home, the pass resets the line
  EXPECT_EQ(get("PosLine"), "0");
  EXPECT_EQ(get("picTimes.ScaleWidth"), "4");  // row 2 is empty: the times stay
}

}  // namespace q::test
