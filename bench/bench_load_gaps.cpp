// Frame gaps while a long cue list loads. The console runs on the machine's
// clock with both chasers stepping at every 25 ms output tick; a list of N
// cues x 512 channels is saved, then loaded through the operator's path,
// its parse on a thread of its own while the ticks go on. Reported: the
// largest gap between two mixes around the load, the load's whole time, and
// the time the console thread spent taking the list in after the parse.
// With --in-place the parse runs on the console thread, as it used to.
//
//   bench_load_gaps [CUES] [--in-place]

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <thread>
#include <vector>

#include "engine/core/console.h"
#include "engine/showfiles/show_formats.h"
#include "full_cue_list.h"

namespace {

using Clock = std::chrono::steady_clock;

double msSince(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

// The parse on a thread of its own; the console's due ticks run meanwhile.
class PumpingWork : public q::BackgroundWork {
 public:
  q::Console* console = nullptr;
  Clock::time_point returned;

  void run(const std::function<void()>& job) override {
    std::atomic<bool> done{false};
    std::exception_ptr failure;
    std::thread worker([&] {
      try {
        job();
      } catch (...) {
        failure = std::current_exception();
      }
      done = true;
    });
    while (!done) {
      console->scheduler.runDue();
      std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    worker.join();
    returned = Clock::now();
    if (failure) std::rethrow_exception(failure);
  }
};

void runFor(q::Console& c, int ms) {
  const auto end = Clock::now() + std::chrono::milliseconds(ms);
  while (Clock::now() < end) {
    c.scheduler.runDue();
    std::this_thread::sleep_for(std::chrono::microseconds(500));
  }
}

void stepEveryTick(q::Console& c) {
  q::Variables& v = c.v;
  v.MaxChans = 512;
  v.DMXRate = 25;
  c.form1.DMXTimer.setInterval(25);
  for (int k = 0; k < 2; ++k) {
    q::CSparseMatrix& steps = v.fxData(k);
    for (int step = 1; step <= 4; ++step)
      for (int ch = 1; ch <= q::kChannels; ++ch)
        steps.setCell(int16_t(step), int16_t(ch), uint8_t((ch * (3 + k) + step * 40) % 256));
    v.FXStepCount[k] = 4;
    c.form1.FXTimer[k]->setInterval(25);
    c.form1.FXTimer[k]->setRunning(true);
  }
}

}  // namespace

int main(int argc, char** argv) {
  int cues = 10000;
  bool inPlace = false;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--in-place") == 0)
      inPlace = true;
    else
      cues = std::atoi(argv[i]);
  }
  const auto dir = std::filesystem::temp_directory_path() / "quintara-load-gaps";
  std::filesystem::create_directories(dir);
  const std::string list = (dir / "big.qcl").string();
  {
    q::Console maker{q::ConsoleHost{}};
    fillFullList(maker, cues, false);
    q::SaveCueList(maker, list);
  }

  q::SteadyClock steady;
  PumpingWork work;
  q::ConsoleHost host;
  host.clock = &steady;
  host.homeDir = dir.string();
  host.commandLine = "quintara -nosplash";
  if (!inPlace) host.background = &work;
  q::Console c(host);
  work.console = &c;
  c.start();
  c.dismissSplash();
  stepEveryTick(c);
  std::vector<Clock::time_point> mixes;
  mixes.reserve(4000);
  c.mixer.outputMixed.add([&] { mixes.push_back(Clock::now()); });

  // The second load replaces a list as long as itself.
  runFor(c, 500);
  for (int round = 1; round <= 2; ++round) {
    mixes.erase(mixes.begin(), mixes.end() - 1);  // the gap from the last mix before it counts
    const auto start = Clock::now();
    c.files.load("cuelist", list);
    const auto loaded = Clock::now();
    runFor(c, 300);
    double gap = 0;
    for (size_t i = 1; i < mixes.size(); ++i) gap = std::max(gap, msSince(mixes[i - 1], mixes[i]));
    std::printf("%d cues%s, load %d: CueCount %d, load %.1f ms, largest gap between mixes %.1f ms",
                cues, inPlace ? " (in place)" : "", round, int(c.v.CueCount),
                msSince(start, loaded), gap);
    if (!inPlace)
      std::printf(", taking in after the parse %.2f ms", msSince(work.returned, loaded));
    std::printf("\n");
  }
  std::filesystem::remove_all(dir);
  c.unload();
  return 0;
}
