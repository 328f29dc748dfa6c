// desk_bench: measures the desk as an operator's machine runs it, with its
// output going through OLA. It listens to the universe on olad, starts the
// desk, and reports:
//   - the first frame on the wire after launch,
//   - CPU time and resident memory over an idle stretch with chaser 1
//     running, and how many frames went to olad meanwhile,
//   - the interval between frames while a fader moves (median, 99th
//     percentile, largest gap): every output tick then has a new frame,
//   - how long a command on the remote port takes to reach the wire.
// While nothing changes the desk hands olad the same frame only about once a
// second, unless it runs with ContinuousOutput=1; run.sh measures either way.
//
//   desk_bench --ola-port P [--universe U] [--listen PORT] [--idle S]
//              [--move-seconds S] [--moves N] [--before COMMAND]... -- QUINTARA ARGS...
//
// Each --before command goes to the remote port once the desk listens,
// before anything is measured: to open a window (`click mnuMatrix`).
//
// The desk must be set up to send to universe U of that olad every 25 ms
// (Interface=10, DMXRate=25), to listen on PORT, and to have strip 2 (Fader(4))
// holding channel 9 at full, as the demo show does. tools/desk_bench/run.sh
// prepares all of that under Xvfb.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "desk_probe.h"

namespace {

using namespace probe;

struct Options : DeskOptions {
  int idleSeconds = 60;
  int moveSeconds = 10;
  int moves = 200;
  std::vector<std::string> before;
};

bool parse(int argc, char** argv, Options& o) {
  return parseOptions(
      argc, argv, o,
      {{"--idle", &o.idleSeconds}, {"--move-seconds", &o.moveSeconds}, {"--moves", &o.moves}},
      "--before", &o.before);
}

void verdict(const char* what, double value, double limit, const char* unit) {
  std::printf("%-34s %9.2f %-4s (target <= %.2f)  %s\n", what, value, unit, limit,
              value <= limit ? "ok" : "OVER");
}

}  // namespace

int main(int argc, char** argv) {
  Options o;
  if (!parse(argc, argv, o)) {
    std::fprintf(stderr,
                 "usage: desk_bench --ola-port P [--universe U] [--listen PORT] "
                 "[--idle S] [--move-seconds S] [--moves N] [--before COMMAND]... "
                 "-- QUINTARA ARGS...\n");
    return 2;
  }
  OlaProbe b;
  if (!b.connect(o.olaPort, unsigned(o.universe))) {
    std::fprintf(stderr, "desk_bench: no olad on port %d\n", o.olaPort);
    return 1;
  }
  // A level awaited on channel 9, and when it was seen.
  int awaiting = -1;
  Clock::time_point seenAt;
  b.onFrame = [&](const Frame& f) {
    if (awaiting < 0 || f.slot9 != awaiting) return;
    awaiting = -1;
    seenAt = f.at;
    b.stop();
  };
  b.runFor(200);  // the registration goes through before the desk starts
  b.frames.clear();

  const auto launched = Clock::now();
  const pid_t pid = launch(o.desk);
  // First frame.
  b.runFor(5000);
  if (b.frames.empty()) {
    std::fprintf(stderr, "desk_bench: no frame reached olad in 5 s\n");
    terminate(pid);
    return 1;
  }
  const double firstFrame = msSince(launched, b.frames.front().at);

  Remote remote;
  if (!remote.open(o.listen)) {
    std::fprintf(stderr, "desk_bench: the desk does not listen on %d\n", o.listen);
    terminate(pid);
    return 1;
  }
  for (const std::string& line : o.before) remote.send(line);

  // Idle with chaser 1 running: nobody touches the desk.
  remote.send("press FXbutton(0)");
  b.runFor(2000);  // start-up settles
  b.frames.clear();
  const ProcStat before = readProc(pid);
  const auto idleStart = Clock::now();
  b.runFor(unsigned(o.idleSeconds) * 1000);
  const ProcStat after = readProc(pid);
  const double idleMinutes = msSince(idleStart, Clock::now()) / 60000.0;
  const std::vector<double> idleIntervals = intervalsOf(b.frames);
  const size_t idleFrames = b.frames.size();

  // A fader in motion, as a hand or a MIDI fader moves it: a new level every
  // 10 ms, so every output tick has a new frame to send.
  b.frames.clear();
  int faderLevel = 0;
  const int mover = b.every(10, [&] {
    remote.drain();
    faderLevel = (faderLevel + 3) % 256;
    return remote.send("set Fader(4) " + std::to_string(faderLevel));
  });
  b.runFor(unsigned(o.moveSeconds) * 1000);
  b.cancel(mover);
  const std::vector<double> moving = intervalsOf(b.frames);

  // Command to wire: a strip goes up and down through the remote port.
  b.recording = false;
  std::vector<double> latencies;
  for (int i = 0; i < o.moves; ++i) {
    const bool up = i % 2 == 0;
    awaiting = up ? 255 : 0;
    const auto sent = Clock::now();
    remote.drain();
    if (!remote.send(up ? "set Fader(4) 0" : "set Fader(4) 255")) break;
    if (!b.runFor(1500)) {
      std::fprintf(stderr, "desk_bench: move %d never reached the wire\n", i);
      continue;
    }
    latencies.push_back(msSince(sent, seenAt));
    b.runFor(7 + unsigned(i * 13) % 23);  // off the frame clock, so every phase is met
  }
  remote.close();
  terminate(pid);

  const double cpuPerMinute = (after.cpuSeconds - before.cpuSeconds) / idleMinutes;
  std::vector<double> deviation;
  for (double d : moving) deviation.push_back(std::abs(d - 25));
  std::printf("idle %.0f s with chaser 1 running: %zu frames to olad\n", idleMinutes * 60,
              idleFrames);
  verdict("first frame after launch", firstFrame, 150, "ms");
  verdict("CPU per minute, idle", cpuPerMinute, 0.3, "s");
  verdict("resident memory (peak)", double(after.hwmKb) / 1024.0, 60, "MB");
  std::printf("%-34s %9.2f ms\n", "idle: largest gap between frames", largest(idleIntervals));
  std::printf("fader moving %d s: %zu frames to olad\n", o.moveSeconds, moving.size() + 1);
  std::printf("%-34s %9.2f ms\n", "frame interval, median", percentile(moving, 50));
  verdict("frame interval |d-25|, p99", percentile(deviation, 99), 1, "ms");
  verdict("largest frame interval", largest(moving), 30, "ms");
  std::printf("%-34s %9.2f ms\n", "command to wire, median", percentile(latencies, 50));
  verdict("command to wire, p99", percentile(latencies, 99), 30, "ms");
  return 0;
}
