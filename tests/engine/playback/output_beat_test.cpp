// The output tick keeps its beat from start-up whatever changes, and it is
// the first timer enabled: a chaser step or a fade tick that falls due at the
// same instant as an output tick is mixed into the following frame, never
// into the frame of its own instant.

#include <fstream>

#include "playback_fixture.h"

namespace q::test {
namespace {

class OutputBeatTest : public PlaybackFixture {
 protected:
  // Output ticks at 100, 200, ... from start-up at 0.
  void start() {
    std::ofstream(path("Quintara.INI")) << "[Setup]\r\nDMXRate=100\r\n";
    console().start();
  }
  int out(int channel) { return v().DMXData[channel - 1]; }
};

TEST_F(OutputBeatTest, AChaserStepOnAnOutputTickShowsInTheNextFrame) {
  start();
  v().FXStepCount[0] = 3;
  for (int step = 1; step <= 3; ++step) v().FX1Data.setCell(int16_t(step), 1, uint8_t(step * 50));
  advance(200);
  form1().FXTimer[0]->setInterval(100);
  press("FXbutton(0)");  // at 200: steps at 300, 400, 500, on the output's beat
  std::vector<std::pair<std::string, int>> seen;
  for (int tick = 0; tick < 4; ++tick) {
    advance(100);
    seen.emplace_back(form1().FxStep[0]->caption(), out(1));
  }
  // Each frame carries the step that was current just before its instant,
  // also while nothing else changes between the steps.
  EXPECT_EQ(seen, (std::vector<std::pair<std::string, int>>{
                      {"2", 50}, {"3", 100}, {"1", 150}, {"2", 50}}));
}

TEST_F(OutputBeatTest, TheFirstGoAfterStartShowsEachFadeLevelOneTickLater) {
  start();
  addCue({.number = "1", .u = "3", .d = "3", .levels = {{1, 255}}});
  advance(200);
  go();  // at 200: fade ticks at 300 (row 0), 400, 500 ...
  advance(100);
  advance(100);
  EXPECT_EQ(v().ProgLevel, 85) << "the first fade tick came at 400";
  EXPECT_EQ(out(1), 0) << "after the frame of 400";
  advance(99);
  EXPECT_EQ(out(1), 0) << "the change waits for the next regular tick";
  advance(1);
  EXPECT_NEAR(out(1), 85, 1) << "the frame of 500 shows the level of 400";
  EXPECT_EQ(v().ProgLevel, 170);
}

// A fader moved between ticks goes out at the next tick of the beat, and the
// beat stays where start-up put it, also after a quiet spell.
TEST_F(OutputBeatTest, AChangeAfterAQuietSpellWaitsForTheBeat) {
  start();
  advance(5030);
  v().chan(7, kStageColumn) = 255;
  v().MixDirty = kTrue;
  advance(69);
  EXPECT_EQ(out(7), 0);
  advance(1);
  EXPECT_EQ(out(7), 255) << "at 5100, on the beat";
  EXPECT_EQ(console().scheduler.nextDue(), 5200);
}

}  // namespace
}  // namespace q::test
