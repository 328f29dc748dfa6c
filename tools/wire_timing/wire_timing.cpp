// wire_timing: measures how evenly an FTDI frame sender puts frames on the
// wire, and how soon a fader move gets there, while the console thread is
// busy loading a large cue list.
//
// The console runs as on the desk (steady clock, its own timers, the real
// wire thread with its real priority), with interface 1 and an FTDI chip
// that records when each frame's break starts and what the frame holds; a
// write takes as long as it would on a real chip. On the console thread the
// operator moves the grand master at random moments, and every few seconds
// a 4 MB cue list is loaded.
//
//   wire_timing [--seconds N] [--interval MS] [--write-ms MS] [--loads N] [--back-to-back N]
//
// --back-to-back N loads the list N times in a row at each load, to keep the
// console thread busy for longer.

#include <unistd.h>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

#include "engine/core/console.h"
#include "engine/core/scripted_dialogs.h"
#include "platform/dmx_devices.h"

namespace {

using Clock = std::chrono::steady_clock;
using q::FT_OK;

double msBetween(Clock::time_point a, Clock::time_point b) {
  return std::chrono::duration<double, std::milli>(b - a).count();
}

// An FTDI chip that only keeps time: when each break started and what slot 1 held.
class TimingChip : public q::FtdiDevice {
 public:
  explicit TimingChip(double writeMs) : writeMs_(writeMs) {}
  struct Frame {
    Clock::time_point breakAt;
    uint8_t slot1;
  };
  std::vector<Frame> frames() {
    std::lock_guard<std::mutex> lock(m_);
    return frames_;
  }
  int countDevices(int& n) override { return n = 1, FT_OK; }
  int open(int) override { return FT_OK; }
  int close() override { return FT_OK; }
  int resetDevice() override { return FT_OK; }
  int setDivisor(int) override { return FT_OK; }
  int setDataCharacteristics(int, int, int) override { return FT_OK; }
  int setFlowControl(int, uint8_t, uint8_t) override { return FT_OK; }
  int clrRts() override { return FT_OK; }
  int purge(int) override { return FT_OK; }
  int setBreakOn() override {
    breakAt_ = Clock::now();
    return FT_OK;
  }
  int setBreakOff() override { return FT_OK; }
  int setLatencyTimer(int) override { return FT_OK; }
  int setTimeouts(int, int) override { return FT_OK; }
  int getQueueStatus(int& n) override { return n = 0, FT_OK; }
  int read(uint8_t*, int, int& got) override { return got = 0, FT_OK; }
  int write(const uint8_t* buf, int size, int& written) override {
    written = size;
    if (size != 512) return FT_OK;
    {
      std::lock_guard<std::mutex> lock(m_);
      frames_.push_back({breakAt_, buf[0]});
    }
    // The chip takes the frame as fast as its buffer drains onto the line.
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(writeMs_));
    return FT_OK;
  }

 private:
  double writeMs_;
  Clock::time_point breakAt_;
  std::mutex m_;
  std::vector<Frame> frames_;
};

class TimingDevices : public q::RealDevices {
 public:
  explicit TimingDevices(double writeMs) : writeMs_(writeMs) {}
  std::unique_ptr<q::FtdiDevice> ftdi() override {
    auto c = std::make_unique<TimingChip>(writeMs_);
    chip = c.get();
    return c;
  }
  TimingChip* chip = nullptr;

 private:
  double writeMs_;
};

// A cue list of about 4 MB: 1000 cues of 512 channels.
void writeBigCueList(const std::string& path) {
  std::ofstream out(path, std::ios::binary);
  out << "SHOW:Timing\r\nDATE:today\r\n";
  for (int cue = 1; cue <= 1000; ++cue) {
    out << "MEM:" << cue << "\r\nFUNCTION:MEM\r\nTIMES:10,20,10,20,\r\nNAME:cue " << cue
        << "\r\nCHAN:";
    for (int ch = 1; ch <= 512; ++ch) out << ch << "a" << (ch * cue) % 256 << ",";
    out << "\r\n'" << std::string(70, '*') << "\r\n";
  }
}

double percentile(std::vector<double> v, double p) {
  if (v.empty()) return 0;
  std::sort(v.begin(), v.end());
  const size_t i = size_t(std::clamp(p / 100.0 * double(v.size() - 1), 0.0, double(v.size() - 1)));
  return v[i];
}

void report(const char* what, const std::vector<double>& v, const char* unit) {
  std::printf("%-34s n=%-6zu min=%7.3f p1=%7.3f p50=%7.3f p99=%7.3f max=%7.3f %s\n", what, v.size(),
              v.empty() ? 0 : *std::min_element(v.begin(), v.end()), percentile(v, 1),
              percentile(v, 50), percentile(v, 99),
              v.empty() ? 0 : *std::max_element(v.begin(), v.end()), unit);
}

}  // namespace

int main(int argc, char** argv) {
  int seconds = 20, interval = 25, loads = 4, backToBack = 1;
  double writeMs = 11.3;  // 257 bytes past the chip's 256-byte buffer at 44 us each
  for (int i = 1; i + 1 < argc; i += 2) {
    if (!std::strcmp(argv[i], "--seconds")) seconds = std::atoi(argv[i + 1]);
    if (!std::strcmp(argv[i], "--interval")) interval = std::atoi(argv[i + 1]);
    if (!std::strcmp(argv[i], "--write-ms")) writeMs = std::atof(argv[i + 1]);
    if (!std::strcmp(argv[i], "--loads")) loads = std::atoi(argv[i + 1]);
    if (!std::strcmp(argv[i], "--back-to-back")) backToBack = std::max(1, std::atoi(argv[i + 1]));
  }
  const auto home =
      std::filesystem::temp_directory_path() / ("quintara-timing-" + std::to_string(getpid()));
  std::filesystem::create_directories(home);
  const std::string cueList = (home / "big.qcl").string();
  writeBigCueList(cueList);
  std::ofstream(home / "Quintara.INI")
      << "[Setup]\r\nInterface=1\r\nDMXRate=" << interval << "\r\n";

  q::SteadyClock clock;
  q::ScriptedDialogs dialogs;
  dialogs.onShow = [](const std::string& line) { std::fprintf(stderr, "%s\n", line.c_str()); };
  TimingDevices devices(writeMs);
  q::ConsoleHost host;
  host.clock = &clock;
  host.dialogs = &dialogs;
  host.homeDir = home.string();
  host.commandLine = "quintara -nosplash";
  host.devices = &devices;
  q::Console c(host);
  c.start();
  std::vector<Clock::time_point> ticks;
  auto outputTick = c.form1.DMXTimer.onTick;
  c.form1.DMXTimer.onTick = [&] {
    ticks.push_back(Clock::now());
    outputTick();
  };
  c.v.chan(1, q::kStageColumn) = 255;
  c.v.MixDirty = q::kTrue;

  std::mt19937 rng(7);
  std::uniform_int_distribution<int> gap(150, 450);
  struct Move {
    Clock::time_point at;
    uint8_t expect;
  };
  std::vector<Move> moves;
  std::vector<std::pair<Clock::time_point, Clock::time_point>> loadSpans;
  const Clock::time_point start = Clock::now();
  const Clock::time_point end = start + std::chrono::seconds(seconds);
  Clock::time_point nextMove = start + std::chrono::milliseconds(1000);
  const auto loadEvery = std::chrono::milliseconds(seconds * 1000 / (loads + 1));
  Clock::time_point nextLoad = start + loadEvery;
  int position = 0;

  while (Clock::now() < end) {
    c.scheduler.runDue();
    const Clock::time_point now = Clock::now();
    if (now >= nextLoad && loads > 0) {
      for (int k = 0; k < backToBack; ++k) {
        c.v.CueCount = 0;
        c.files.load("cuelist", cueList);
      }
      loadSpans.emplace_back(now, Clock::now());
      nextLoad += loadEvery;
      nextMove = Clock::now() + std::chrono::milliseconds(gap(rng));
      continue;
    }
    if (now >= nextMove) {
      position = position == 0 ? 100 : 0;
      const Clock::time_point at = Clock::now();
      c.form1.SMaster.setPosition(position);
      if (c.v.MixDirty != q::kTrue) {  // the master's own handler is not there: do its part
        c.v.chan(1, q::kStageColumn) = uint8_t(255 - position);
        c.v.MixDirty = q::kTrue;
      }
      moves.push_back({at, uint8_t(255 - position)});
      nextMove = at + std::chrono::milliseconds(gap(rng));
    }
    const int64_t due = c.scheduler.nextDue();
    int64_t waitMs = due < 0 ? 5 : std::max<int64_t>(0, due - c.scheduler.now());
    const auto wake =
        std::min({Clock::now() + std::chrono::milliseconds(waitMs), nextMove, nextLoad});
    std::this_thread::sleep_until(wake);
  }
  c.unload();

  const auto frames = devices.chip->frames();
  auto inLoad = [&](Clock::time_point t) {
    for (auto& [a, b] : loadSpans)
      if (t >= a && t <= b) return true;
    return false;
  };
  std::vector<double> all, loaded, deviation;
  for (size_t i = 1; i < frames.size(); ++i) {
    const double d = msBetween(frames[i - 1].breakAt, frames[i].breakAt);
    all.push_back(d);
    deviation.push_back(std::fabs(d - interval));
    if (inLoad(frames[i].breakAt)) loaded.push_back(d);
  }
  // A move within a second after a load finds the line still pulling its
  // phase back to the ticks, whose phase the late tick after the load moved.
  // A move just before a load waits for the load, as it must: the level
  // change is the console thread's work.
  auto afterLoad = [&](Clock::time_point t) {
    for (auto& [a, b] : loadSpans)
      if ((t >= b && t < b + std::chrono::seconds(1)) ||
          (t <= a && a < t + std::chrono::milliseconds(interval + 2)))
        return true;
    return false;
  };
  std::vector<double> latency, steadyLatency, relockLatency;
  for (const Move& m : moves)
    for (const auto& f : frames)
      if (f.breakAt >= m.at && f.slot1 == m.expect) {
        const double ms = msBetween(m.at, f.breakAt);
        latency.push_back(ms);
        (afterLoad(m.at) ? relockLatency : steadyLatency).push_back(ms);
        break;
      }
  // How long after the tick before it each frame left: the line's phase.
  std::vector<double> phase;
  size_t t = 0;
  for (const auto& f : frames) {
    while (t + 1 < ticks.size() && ticks[t + 1] <= f.breakAt) ++t;
    if (!ticks.empty() && ticks[t] <= f.breakAt) phase.push_back(msBetween(ticks[t], f.breakAt));
  }
  std::vector<double> loadMs;
  for (auto& [a, b] : loadSpans) loadMs.push_back(msBetween(a, b));

  std::printf("DMXTimer interval %d ms, simulated write %.1f ms, %d s, %zu frames on the wire\n",
              interval, writeMs, seconds, frames.size());
  report("console thread busy loading 4 MB lists", loadMs, "ms");
  report("interval between frames (all)", all, "ms");
  report("interval between frames (in loads)", loaded, "ms");
  report("|interval - DMXTimer| (all)", deviation, "ms");
  report("frame start after the last tick", phase, "ms");
  report("fader move to wire (all)", latency, "ms");
  report("  steady (not within 1 s of a load)", steadyLatency, "ms");
  report("  just before or within 1 s after", relockLatency, "ms");
  std::printf(
      "fader moves later than interval + 2 ms: %ld of %zu (steady: %ld)\n",
      std::count_if(latency.begin(), latency.end(), [&](double x) { return x > interval + 2; }),
      latency.size(), std::count_if(steadyLatency.begin(), steadyLatency.end(), [&](double x) {
        return x > interval + 2;
      }));
  const long outside =
      std::count_if(deviation.begin(), deviation.end(), [](double d) { return d > 1; });
  std::printf("frame intervals outside +-1 ms: %ld of %zu\n", outside, deviation.size());
  std::printf("CueCount after loads: %d\n", c.v.CueCount);
  std::filesystem::remove_all(home);
  return 0;
}
