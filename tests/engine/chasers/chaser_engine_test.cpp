// The chasers: the step pointer in order and at random, the run key, the
// speed law and what a running chaser puts in the mix.

#include <set>
#include <vector>

#include "support/console_fixture.h"

namespace q::test {
namespace {

class ChaserTest : public ConsoleFixture {
 protected:
  Label& step(int i) { return *form1().FxStep[i]; }
  Timer& timer(int i) { return *form1().FXTimer[i]; }
  void press(int i) {
    form1().FXbutton[i]->mouseDown(MouseButton::Left);
    form1().FXbutton[i]->mouseUp(MouseButton::Left);
  }
  std::vector<std::string> ticks(int i, int n) {
    std::vector<std::string> seen;
    for (int k = 0; k < n; ++k) {
      timer(i).tick();
      seen.push_back(step(i).caption());
    }
    return seen;
  }
};

TEST_F(ChaserTest, AscendingOrderVisitsEveryStepThenWraps) {
  v().FXStepCount[0] = 3;
  EXPECT_EQ(ticks(0, 4), (std::vector<std::string>{"2", "3", "1", "2"}));
}

TEST_F(ChaserTest, PointerBeyondAShorterChaserWrapsToOne) {
  v().FXStepCount[1] = 4;
  step(1).setCaption("9");
  EXPECT_EQ(ticks(1, 1), std::vector<std::string>{"1"});
  // An empty chaser stays on 1 and reads empty cells.
  v().FXStepCount[1] = 0;
  EXPECT_EQ(ticks(1, 2), (std::vector<std::string>{"1", "1"}));
}

TEST_F(ChaserTest, RandomOrderNeverRepeatsAStepAndCoversThemAll) {
  v().FXStepCount[0] = 4;
  v().FXRandom[0] = kTrue;
  auto seen = ticks(0, 200);
  std::set<std::string> distinct(seen.begin(), seen.end());
  EXPECT_EQ(distinct, (std::set<std::string>{"1", "2", "3", "4"}));
  std::string before = "1";
  for (const auto& s : seen) {
    EXPECT_NE(s, before);
    before = s;
  }
}

TEST_F(ChaserTest, RandomSequenceIsTheSameAtEveryStart) {
  v().FXStepCount[0] = 6;
  v().FXRandom[0] = kTrue;
  auto first = ticks(0, 30);

  VirtualClock otherClock;
  ConsoleHost host;
  host.clock = &otherClock;
  host.homeDir = home();
  Console other(host);
  other.v.FXStepCount[0] = 6;
  other.v.FXRandom[0] = kTrue;
  std::vector<std::string> second;
  for (int k = 0; k < 30; ++k) {
    other.form1.FXTimer[0]->tick();
    second.push_back(other.form1.FxStep[0]->caption());
  }
  EXPECT_EQ(first, second);
}

TEST_F(ChaserTest, RandomWithFewerThanTwoStepsStaysOnStepOne) {
  for (int count : {0, 1}) {
    v().FXStepCount[0] = int16_t(count);
    v().FXRandom[0] = kTrue;
    step(0).setCaption("1");
    EXPECT_EQ(ticks(0, 3), (std::vector<std::string>{"1", "1", "1"}));
  }
}

TEST_F(ChaserTest, RunKeyStartsAndStopsWithoutMovingThePointer) {
  v().FXStepCount[0] = 5;
  step(0).setCaption("3");
  form1().FXbutton[0]->mouseDown(MouseButton::Left);
  EXPECT_EQ(get("FXbutton(0)"), "ImgLedPush");
  v().MixDirty = kFalse;
  form1().FXbutton[0]->mouseUp(MouseButton::Left);
  EXPECT_TRUE(timer(0).isEnabled());
  EXPECT_EQ(get("FXbutton(0)"), "ImgLedOn");
  EXPECT_EQ(v().MixDirty, kTrue);
  // The first move comes one whole interval after the start.
  advance(999);
  EXPECT_EQ(step(0).caption(), "3");
  advance(1);
  EXPECT_EQ(step(0).caption(), "4");
  press(0);
  EXPECT_FALSE(timer(0).isEnabled());
  EXPECT_EQ(get("FXbutton(0)"), "");
  advance(5000);
  EXPECT_EQ(step(0).caption(), "4");
}

TEST_F(ChaserTest, SpeedStripSetsTheIntervalAndItsFlashIsTheRunKey) {
  form1().FaderFunc(4).setCaption("SP2");
  form1().Fader(4).setPosition(0);
  EXPECT_EQ(timer(1).interval(), 1);
  form1().Fader(4).setPosition(255);
  EXPECT_EQ(timer(1).interval(), 1276);
  form1().Flash(4).mouseDown(MouseButton::Left);
  EXPECT_FALSE(timer(1).isEnabled());  // starts at the release
  form1().Flash(4).mouseUp(MouseButton::Left);
  EXPECT_TRUE(timer(1).isEnabled());
  EXPECT_EQ(get("FXbutton(1)"), "ImgLedOn");
  form1().Flash(4).mouseDown(MouseButton::Right);
  form1().Flash(4).mouseUp(MouseButton::Right);
  EXPECT_TRUE(timer(1).isEnabled());  // only the left key toggles
}

TEST_F(ChaserTest, RunningChaserRaisesChannelsByItsLevelUntilStopped) {
  console().start();
  v().FXStepCount[0] = 2;
  v().FX1Data.setCell(1, 5, Value{uint8_t(255)});
  v().FX2Data.setCell(1, 5, Value{uint8_t(200)});
  form1().FaderFunc(3).setCaption("LV1");
  form1().Fader(3).setPosition(127);  // FX1Level 128
  press(0);
  console().outputTick();
  EXPECT_EQ(get("DMXData(5)"), "128");
  press(1);
  console().outputTick();
  EXPECT_EQ(get("DMXData(5)"), "200");
  press(0);
  press(1);
  console().outputTick();
  EXPECT_EQ(get("DMXData(5)"), "0");
}

}  // namespace
}  // namespace q::test
