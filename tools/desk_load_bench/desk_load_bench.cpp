// desk_load_bench: what the desk costs in a real show, every channel changing
// at every output frame, with its output going through OLA. It listens to
// the universe on olad, starts the desk on the full-change show that run.sh
// writes, and reports:
//   - CPU per minute of the desk, its X server and olad, idle (nothing
//     running) and with the chaser stepping all 512 channels every frame,
//   - the desk's resident memory, now and at its peak,
//   - the frame intervals at full change (median, 99th percentile, largest),
//   - the largest gap between frames while a 1,000- and a 10,000-cue list
//     load with the chaser running,
//   - command to wire: the grand master goes down and up through the remote
//     port, and the frame that shows it is timed.
//
//   desk_load_bench --ola-port P [--universe U] [--listen PORT] [--xserver PID]
//                   [--olad PID] [--idle S] [--full S] [--moves N]
//                   [--cues-dir DIR] -- QUINTARA ARGS...
//
// The desk must send to universe U of that olad every 25 ms (DMXRate=25) and
// listen on PORT; DIR holds cues1000.qcl and cues10000.qcl. Without
// --xserver the X server of DISPLAY is looked up.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "desk_probe.h"

namespace {

using namespace probe;

struct Options : DeskOptions {
  int xserver = 0;
  int olad = 0;
  int idleSeconds = 20;
  int fullSeconds = 60;
  int moves = 100;
  std::vector<std::string> cuesDir;
};

bool parse(int argc, char** argv, Options& o) {
  return parseOptions(argc, argv, o,
                      {{"--xserver", &o.xserver},
                       {"--olad", &o.olad},
                       {"--idle", &o.idleSeconds},
                       {"--full", &o.fullSeconds},
                       {"--moves", &o.moves}},
                      "--cues-dir", &o.cuesDir) &&
         o.cuesDir.size() == 1 && o.fullSeconds > 0 && o.idleSeconds > 0;
}

// The processes whose CPU is counted.
struct Watched {
  const char* name;
  pid_t pid;
};

// CPU seconds per minute of each watched process over a stretch of the run.
std::vector<double> cpuPerMinute(OlaProbe& b, const std::vector<Watched>& who, int seconds) {
  std::vector<ProcStat> before;
  for (const Watched& w : who) before.push_back(readProc(w.pid));
  const auto start = Clock::now();
  b.runFor(unsigned(seconds) * 1000);
  const double minutes = msSince(start, Clock::now()) / 60000.0;
  std::vector<double> out;
  for (size_t i = 0; i < who.size(); ++i)
    out.push_back((readProc(who[i].pid).cpuSeconds - before[i].cpuSeconds) / minutes);
  return out;
}

void printCpu(const char* stretch, const std::vector<Watched>& who,
              const std::vector<double>& perMinute) {
  std::printf("CPU per minute, %s:", stretch);
  for (size_t i = 0; i < who.size(); ++i) std::printf("  %s %.2f s", who[i].name, perMinute[i]);
  std::printf("\n");
}

// Loads a cue list through the remote port and waits for the desk to answer
// the question that follows it: the largest frame gap from the command to
// the answer, or a negative number when the answer never came.
double loadGap(OlaProbe& b, Remote& remote, const std::string& file) {
  remote.drain();
  b.frames.clear();
  const auto sent = Clock::now();
  remote.send("load cuelist " + file);
  remote.send("get CueCount");
  bool done = false;
  const int poll = b.every(2, [&] {
    if (!remote.answered("CueCount =")) return true;
    done = true;
    b.stop();
    return false;
  });
  b.runFor(120000);
  if (!done) b.cancel(poll);
  const auto answered = Clock::now();
  b.runFor(100);  // the frame after the load closes its gap
  std::printf("load %-40s %8.0f ms\n", file.c_str(), msSince(sent, answered));
  return done ? largest(intervalsOf(b.frames)) : -1;
}

void verdict(const char* what, double value, double limit, const char* unit) {
  if (value < 0) {
    std::printf("%-40s  never answered\n", what);
    return;
  }
  std::printf("%-40s %9.2f %-4s (goal <= %.2f)  %s\n", what, value, unit, limit,
              value <= limit ? "ok" : "OVER");
}

void figure(const char* what, double value, const char* unit) {
  std::printf("%-40s %9.2f %s\n", what, value, unit);
}

}  // namespace

int main(int argc, char** argv) {
  Options o;
  if (!parse(argc, argv, o)) {
    std::fprintf(stderr,
                 "usage: desk_load_bench --ola-port P [--universe U] [--listen PORT] "
                 "[--xserver PID] [--olad PID] [--idle S] [--full S] [--moves N] "
                 "--cues-dir DIR -- QUINTARA ARGS...\n");
    return 2;
  }
  OlaProbe b;
  if (!b.connect(o.olaPort, unsigned(o.universe))) {
    std::fprintf(stderr, "desk_load_bench: no olad on port %d\n", o.olaPort);
    return 1;
  }
  // A dark or lit frame awaited, and when it was seen.
  int awaitingDark = -1;
  Clock::time_point seenAt;
  b.onFrame = [&](const Frame& f) {
    if (awaitingDark < 0 || (f.peak == 0) != (awaitingDark == 1)) return;
    awaitingDark = -1;
    seenAt = f.at;
    b.stop();
  };
  b.runFor(200);  // the registration goes through before the desk starts

  const pid_t desk = launch(o.desk);
  std::vector<Watched> who{{"desk", desk}};
  const pid_t x = o.xserver ? pid_t(o.xserver) : xServerPid();
  if (x) who.push_back({"X server", x});
  if (o.olad) who.push_back({"olad", pid_t(o.olad)});
  Remote remote;
  if (!remote.open(o.listen)) {
    std::fprintf(stderr, "desk_load_bench: the desk does not listen on %d\n", o.listen);
    terminate(desk);
    return 1;
  }
  b.runFor(3000);  // start-up settles

  // Idle: the show loaded, nothing running, nobody touching the desk.
  const std::vector<double> idle = cpuPerMinute(b, who, o.idleSeconds);

  // Full change: chaser 1 steps all 512 channels faster than the output ticks.
  remote.send("press FXbutton(0)");
  b.runFor(2000);
  b.frames.clear();
  const std::vector<double> full = cpuPerMinute(b, who, o.fullSeconds);
  const std::vector<double> intervals = intervalsOf(b.frames);
  const size_t fullFrames = b.frames.size();

  // Command to wire: the grand master down (a dark frame) and up again.
  b.recording = false;
  std::vector<double> latencies;
  for (int i = 0; i < o.moves; ++i) {
    const bool down = i % 2 == 0;
    awaitingDark = down ? 1 : 0;
    const auto sent = Clock::now();
    remote.drain();
    if (!remote.send(down ? "set SMaster 255" : "set SMaster 0")) break;
    if (b.runFor(1500)) latencies.push_back(msSince(sent, seenAt));
    b.runFor(7 + unsigned(i * 13) % 23);  // off the frame clock, so every phase is met
  }
  awaitingDark = -1;
  b.recording = true;

  const double gap1000 = loadGap(b, remote, o.cuesDir[0] + "/cues1000.qcl");
  const double gap10000 = loadGap(b, remote, o.cuesDir[0] + "/cues10000.qcl");
  b.runFor(1000);
  const ProcStat mem = readProc(desk);
  remote.close();
  terminate(desk);

  printCpu("idle", who, idle);
  printCpu("full change", who, full);
  double deskAndX = full[0] + (who.size() > 1 && who[1].pid == x ? full[1] : 0);
  verdict("full change: desk + X server, CPU/min", deskAndX, 0.6, "s");
  verdict("idle: desk, CPU/min", idle[0], 0.1, "s");
  figure("resident memory now", double(mem.rssKb) / 1024.0, "MB");
  figure("resident memory, peak", double(mem.hwmKb) / 1024.0, "MB");
  std::printf("full change %d s: %zu frames to olad\n", o.fullSeconds, fullFrames);
  figure("frame interval, median", percentile(intervals, 50), "ms");
  figure("frame interval, p99", percentile(intervals, 99), "ms");
  verdict("frame interval, largest", largest(intervals), 30, "ms");
  verdict("largest gap, 1,000-cue load", gap1000, 30, "ms");
  verdict("largest gap, 10,000-cue load", gap10000, 30, "ms");
  figure("command to wire, median", percentile(latencies, 50), "ms");
  verdict("command to wire, p99", percentile(latencies, 99), 30, "ms");
  if (int(latencies.size()) < o.moves)
    std::printf("command to wire: %zu of %d changes reached the wire\n", latencies.size(), o.moves);
  return 0;
}
