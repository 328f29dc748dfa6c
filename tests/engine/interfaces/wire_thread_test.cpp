// The hand-over between the output tick and the wire thread: always the
// latest frame, never a queue; the line keeps its pace without the console;
// a write that keeps failing on the thread is shown once.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

#include "engine/interfaces/ftdi_frame_sender.h"
#include "engine/interfaces/latest_frame.h"
#include "engine/interfaces/ola_output.h"
#include "engine/interfaces/wire_thread.h"
#include "fake_devices.h"

namespace q::test {
namespace {

using namespace std::chrono_literals;

std::array<uint8_t, 512> frameOf(uint8_t level) {
  std::array<uint8_t, 512> f;
  f.fill(level);
  return f;
}

TEST(LatestFrameHandOver, TheReaderGetsTheNewestFrameAndKeepsItUntilANewerOne) {
  LatestFrameSlot slot;
  EXPECT_EQ(slot.take()[0], 0);
  slot.put(frameOf(1).data());
  slot.put(frameOf(2).data());
  slot.put(frameOf(3).data());
  EXPECT_EQ(slot.take()[0], 3) << "frames in between are dropped, not queued";
  EXPECT_EQ(slot.take()[0], 3);
  slot.put(frameOf(4).data());
  EXPECT_EQ(slot.take()[511], 4);
}

TEST(LatestFrameHandOver, AReaderNeverSeesAHalfWrittenFrame) {
  LatestFrameSlot slot;
  std::atomic<bool> stop{false};
  std::thread writer([&] {
    for (int n = 0; !stop; ++n) slot.put(frameOf(uint8_t(n)).data());
  });
  int torn = 0;
  for (int i = 0; i < 200000; ++i) {
    const auto& f = slot.take();
    torn += f[0] != f[511];
  }
  stop = true;
  writer.join();
  EXPECT_EQ(torn, 0);
}

TEST(WireLine, KeepsTheLineGoingWhenNoTickComesAndSendsTheLatestFrame) {
  std::mutex m;
  std::vector<uint8_t> seen;
  WireThread wire(
      [&](const uint8_t* f) {
        std::lock_guard<std::mutex> lock(m);
        seen.push_back(f[0]);
        return 0;
      },
      10);
  wire.handOver(frameOf(5).data(), 10);
  wire.handOver(frameOf(6).data(), 10);
  std::this_thread::sleep_for(300ms);  // no tick at all in this time
  const long frames = wire.framesSent();
  EXPECT_GE(frames, 15) << "about 30 frames at 10 ms, even on a loaded machine";
  EXPECT_LE(frames, 35);
  std::lock_guard<std::mutex> lock(m);
  EXPECT_EQ(seen.back(), 6);
  EXPECT_EQ(std::count(seen.begin(), seen.end(), 5), 0)
      << "a frame overtaken before the wire is never sent";
}

// A resting line (olad holds the universe) sends what the ticks hand over at
// its own pace, nothing while they stop, the last frame again after a quiet
// keep-alive, and a frame that ends a rest at once.
TEST(WireLine, ARestingLineSendsWhatIsHandedOverAndOtherwiseOnlyKeepsAlive) {
  using Clock = std::chrono::steady_clock;
  std::mutex m;
  std::vector<std::pair<uint8_t, Clock::time_point>> sent;
  auto count = [&] {
    std::lock_guard<std::mutex> lock(m);
    return sent.size();
  };
  WireStyle resting = WireStyle::heldFrames(true);
  resting.keepAlive = 400ms;
  WireThread wire(
      [&](const uint8_t* f) {
        std::lock_guard<std::mutex> lock(m);
        sent.emplace_back(f[0], Clock::now());
        return 0;
      },
      10, {}, resting);
  std::this_thread::sleep_for(150ms);
  EXPECT_EQ(count(), 0u) << "nothing handed over, no keep-alive due yet";

  for (int tick = 1; tick <= 20; ++tick) {
    wire.handOver(frameOf(uint8_t(tick)).data(), 10);
    std::this_thread::sleep_for(10ms);
  }
  const size_t whileTicking = count();
  EXPECT_GE(whileTicking, 10u);
  EXPECT_LE(whileTicking, 24u);
  std::this_thread::sleep_for(200ms);
  EXPECT_LE(count(), whileTicking + 2) << "the ticks stopped, so does the line";

  const auto keptAlive = [&] { return count() > whileTicking + 2; };
  for (int i = 0; i < 100 && !keptAlive(); ++i) std::this_thread::sleep_for(10ms);
  ASSERT_TRUE(keptAlive());
  {
    std::lock_guard<std::mutex> lock(m);
    EXPECT_EQ(sent.back().first, 20) << "the keep-alive repeats the last frame";
  }
  const size_t before = count();
  const auto handed = Clock::now();
  wire.handOver(frameOf(99).data(), 10);
  for (int i = 0; i < 100 && count() == before; ++i) std::this_thread::sleep_for(1ms);
  std::lock_guard<std::mutex> lock(m);
  ASSERT_GT(sent.size(), before);
  EXPECT_EQ(sent[before].first, 99);
  EXPECT_LT(sent[before].second - handed, 50ms) << "a frame after a rest goes at once";
}

// A line for a receiver that holds the last frame keeps its own pace, but a
// tick far off that pace is met just after it, not at the line's next slot.
TEST(WireLine, ALineForHeldFramesMeetsAStrayTickJustAfterIt) {
  using Clock = std::chrono::steady_clock;
  std::mutex m;
  std::vector<std::pair<uint8_t, Clock::time_point>> sent;
  const auto start = Clock::now();
  WireThread wire(
      [&](const uint8_t* f) {
        std::lock_guard<std::mutex> lock(m);
        sent.emplace_back(f[0], Clock::now());
        return 0;
      },
      200, {}, WireStyle::heldFrames(false));
  std::this_thread::sleep_for(40ms);  // the line's first slot is 200 ms after its start
  const auto handed = Clock::now();
  wire.handOver(frameOf(7).data(), 200);
  for (int i = 0; i < 150 && wire.framesSent() == 0; ++i) std::this_thread::sleep_for(1ms);
  std::lock_guard<std::mutex> lock(m);
  ASSERT_FALSE(sent.empty());
  EXPECT_EQ(sent[0].first, 7);
  EXPECT_LT(sent[0].second - handed, 60ms) << "met a lead after the tick";
  EXPECT_LT(sent[0].second - start, 150ms) << "not left for the line's own slot";
}

TEST(WireFailures, AWriteFailingOnTheWireThreadStopsTheLineUntilTheChipIsBack) {
  auto chip = std::make_unique<FakeFtdi>();
  FakeFtdi* fake = chip.get();
  std::vector<std::string> notices;
  int64_t nowMs = 0;
  FtdiFrameSender::Options options;
  options.wireThread = true;
  options.intervalMs = 5;
  options.nowMs = [&] { return nowMs; };
  options.notice = [&](const std::string& t) { notices.push_back(t); };
  FtdiFrameSender sender(std::move(chip), OpenDmx::Hooks{}, options);
  fake->failures["write 512"] = FT_IO_ERROR;
  ASSERT_TRUE(sender.startDMX());
  ASSERT_NE(sender.wire(), nullptr);
  for (int tick = 0; tick < 200 && sender.wire(); ++tick) {
    sender.sendFrame(frameOf(1).data(), 5);
    std::this_thread::sleep_for(5ms);
  }
  // The line has stopped, so the chip is the test's alone from here on.
  ASSERT_EQ(sender.wire(), nullptr) << "the line stops at the failed write";
  EXPECT_EQ(sender.health(), OutputHealth::NotReachable);
  ASSERT_EQ(notices.size(), 1u);
  EXPECT_EQ(notices[0].rfind("Write DMX Failed! The Enttec Open DMX USB does not answer", 0), 0u);

  fake->failures.clear();
  nowMs = 999;
  sender.sendFrame(frameOf(2).data(), 5);
  EXPECT_EQ(sender.wire(), nullptr) << "no try before a second on the console's clock";
  nowMs = 1000;
  sender.sendFrame(frameOf(2).data(), 5);
  ASSERT_NE(sender.wire(), nullptr) << "the chip set up again, the line running";
  for (int i = 0; i < 200 && sender.wire()->framesSent() == 0; ++i)
    std::this_thread::sleep_for(1ms);
  sender.sendFrame(frameOf(2).data(), 5);
  EXPECT_EQ(sender.health(), OutputHealth::Sending);
  sender.close();
  EXPECT_EQ(notices.size(), 1u);
}

// olad as the line sees it: it may go away and come back while frames flow.
class LineOla : public OlaSender {
 public:
  std::atomic<bool> up{true};
  std::atomic<int> frames{0};
  bool connect(int) override { return linked_ = up.load(); }
  bool send(unsigned, const uint8_t*, int) override {
    if (!linked_ || !up) return false;
    ++frames;
    return true;
  }
  void disconnect() override { linked_ = false; }

 private:
  std::atomic<bool> linked_{false};
};

TEST(WireFailures, OlaOnItsLineSaysOnceWhenOladGoesAndCarriesOnWhenItIsBack) {
  auto link = std::make_unique<LineOla>();
  LineOla& olad = *link;
  std::vector<std::string> messages;
  OlaOutput ola({[] { return int64_t(0); },
                 [&](const std::string& text) { messages.push_back(text); },
                 [] { return true; },
                 {}});
  ola.start(std::move(link), 1, 9010, 5);
  ASSERT_NE(ola.wire(), nullptr);
  uint8_t level = 0;
  auto tickFor = [&](std::chrono::milliseconds span) {
    for (auto end = std::chrono::steady_clock::now() + span;
         std::chrono::steady_clock::now() < end;) {
      ola.sendFrame(frameOf(++level).data(), 5);
      std::this_thread::sleep_for(5ms);
    }
  };
  tickFor(100ms);
  EXPECT_GT(olad.frames.load(), 5);
  EXPECT_TRUE(messages.empty());

  olad.up = false;
  tickFor(300ms);
  EXPECT_EQ(messages, std::vector<std::string>{OlaOutput::kNotRunning}) << "said once";
  olad.up = true;
  const int before = olad.frames.load();
  tickFor(1300ms);  // the line tries again a second after it lost olad
  EXPECT_GT(olad.frames.load(), before);
  olad.up = false;
  tickFor(100ms);
  EXPECT_EQ(messages.size(), 2u) << "lost again after being back: said again";
  ola.stop();
  EXPECT_EQ(ola.wire(), nullptr);
}

}  // namespace
}  // namespace q::test
