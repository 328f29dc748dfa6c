// A handler that fails inside a timer tick never stops the light: the frame
// goes out at every output tick, the failed timer keeps its beat, and the
// operator sees one box however often the handler fails while it is open.

#include <fstream>
#include <stdexcept>

#include "engine/playback/cue_record.h"
#include "fake_devices.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

constexpr const char* kWhy = "lamp check";

class TickFailureTest : public ConsoleFixture, public ::testing::WithParamInterface<const char*> {
 protected:
  TickFailureTest() {
    devices = &factory;
    factory.provideSunlite = true;  // handed every frame, so each tick shows
  }

  // Output ticks at 100, 200 ...; the console clock starts at 0.
  void start() {
    std::ofstream(path("Quintara.INI")) << "[Setup]\r\nInterface=5\r\nDMXRate=100\r\n";
    console().start();
    v().chan(1, kMidiColumn) = 200;
    v().MixDirty = kTrue;
  }

  int framesSent() const {
    int n = 0;
    for (auto [command, param] : factory.sunliteLib->commands) n += command == 4;
    return n;
  }

  // Makes the named timer fail at every tick from now on, and starts it.
  void failEveryTick(const std::string& name) {
    if (name == "DMXTimer") {
      // Inside the mix, after the frame is made and before the mix is clean:
      // the mix runs, and fails, at every tick.
      console().mixer.outputMixed.add([this] {
        failedAt.push_back(clock.nowMs());
        throw std::runtime_error(kWhy);
      });
      return;
    }
    Timer& t = *console().registry.find<Timer>(name);
    t.onTick = [this, handler = t.onTick] {
      failedAt.push_back(clock.nowMs());
      handler();
      throw std::runtime_error(kWhy);
    };
    if (name == "MemTimer") {
      v().CueCount = 1;
      v().Cues.setCell(1, cue::kNumber, std::string("1"));
      v().Cues.setCell(1, cue::kFunction, std::string("1"));
      v().Cues.setCell(1, cue::kUpTime, std::string("300"));
      v().Cues.setCell(1, cue::kDownTime, std::string("300"));
      Control& go = control("GOButton");
      go.mouseDown();
      go.mouseUp();
      go.click();
    } else {
      const int k = name == "FXTimer(0)" ? 0 : 1;
      v().FXStepCount[k] = 2;
      t.setInterval(100);
      Control& run = control(k == 0 ? "FXbutton(0)" : "FXbutton(1)");
      run.mouseDown();
      run.mouseUp();
    }
    EXPECT_TRUE(t.isEnabled());
  }

  FakeFactory factory;
  std::vector<int64_t> failedAt;
};

TEST_P(TickFailureTest, TheFrameGoesOnTheTimerKeepsItsBeatAndOneBoxIsShown) {
  const std::string name = GetParam();
  start();
  advance(50);
  failEveryTick(name);
  // The operator reads the first box for a second; the ticks go on meanwhile.
  int boxes = 0;
  dialogs.onShow = [&](const std::string&) {
    if (++boxes == 1) advance(1000);
  };
  advance(100);

  const std::string failure = "MSGBOX Quintara | " + name + " failed: " + kWhy;
  EXPECT_EQ(dialogs.shown, std::vector<std::string>{failure});
  ASSERT_FALSE(failedAt.empty());
  const int64_t first = failedAt.front();
  for (size_t k = 0; k < failedAt.size(); ++k)
    EXPECT_EQ(failedAt[k], first + 100 * int64_t(k)) << "tick " << k << " off its beat";
  EXPECT_EQ(failedAt.size(), 11u) << "it failed at every tick while the box was open";
  EXPECT_EQ(console().failures.untold(), 10);
  EXPECT_EQ(framesSent(), int(clock.nowMs() / 100)) << "a frame at every output tick";
  EXPECT_EQ(v().DMXData[0], 200);

  v().chan(1, kMidiColumn) = 50;
  v().MixDirty = kTrue;
  advance(100);
  ASSERT_EQ(dialogs.shown.size(), 2u);
  EXPECT_EQ(dialogs.shown.back(),
            failure + " (10 more failures came while the last message was open)");
  EXPECT_EQ(v().DMXData[0], 50) << "changes still reach the frame";
  EXPECT_TRUE(console().registry.find<Timer>(name)->isEnabled());
  dialogs.onShow = nullptr;
}

INSTANTIATE_TEST_SUITE_P(EachTimer, TickFailureTest,
                         ::testing::Values("DMXTimer", "MemTimer", "FXTimer(0)", "FXTimer(1)"),
                         [](const ::testing::TestParamInfo<const char*>& timer) {
                           std::string n = timer.param;
                           std::erase_if(n, [](char ch) { return ch == '(' || ch == ')'; });
                           return n;
                         });

}  // namespace
}  // namespace q::test
