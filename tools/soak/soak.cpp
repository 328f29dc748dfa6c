// soak: runs a show on the desk for an hour of real time and watches what a
// long night does to it. Both chasers run, GO is pressed every few seconds,
// a MIDI surface floods the input, and a remote client hangs up and comes
// back every minute. Every frame the desk hands olad is timestamped; the
// desk's resident memory is sampled. It reports, minute by minute and in
// the end, the memory and the largest gap between frames.
//
//   soak --ola-port P [--universe U] --listen PORT [--minutes M] [--rate MS]
//        [--go-seconds S] [--midi-per-second N] -- QUINTARA ARGS...
//
// The desk must send every output tick (ContinuousOutput=1) to universe U
// every MS milliseconds (DMXRate) and listen on PORT; tools/soak/run.sh sets
// that up under Xvfb with a private olad. The MIDI messages go in through
// the remote port's `midi` command, which hands them to the same handlers
// as a real port.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "desk_probe.h"

namespace {

using namespace probe;

struct Options : DeskOptions {
  int minutes = 60;
  int rateMs = 25;
  int goSeconds = 4;
  int midiPerSecond = 500;
};

bool parse(int argc, char** argv, Options& o) {
  return parseOptions(argc, argv, o,
                      {{"--minutes", &o.minutes},
                       {"--rate", &o.rateMs},
                       {"--go-seconds", &o.goSeconds},
                       {"--midi-per-second", &o.midiPerSecond}}) &&
         o.minutes > 0 && o.rateMs > 0;
}

// What one minute of the night looked like.
struct Minute {
  long rssKb = 0;
  size_t frames = 0;
  double largestGap = 0;
  size_t longGaps = 0;  // over twice the output period
};

// A MIDI surface with every fader moving: controllers and notes on all
// channels, the values sweeping.
class MidiFlood {
 public:
  explicit MidiFlood(Remote& r) : remote_(r) {}
  void send(int count) {
    remote_.drain();
    for (int i = 0; i < count; ++i, ++n_) {
      const int channel = n_ % 16;
      const int value = int(n_ / 16 % 128);
      const bool note = n_ % 5 == 0;
      remote_.send("midi " + std::to_string((note ? 0x90 : 0xB0) + channel) + " " +
                   std::to_string(note ? 36 + n_ % 24 : 1 + n_ % 24) + " " + std::to_string(value));
    }
  }

 private:
  Remote& remote_;
  long n_ = 0;
};

Minute summarise(const std::vector<Frame>& frames, long rssKb, int rateMs) {
  Minute m;
  m.rssKb = rssKb;
  m.frames = frames.size();
  for (double gap : intervalsOf(frames)) {
    m.largestGap = std::max(m.largestGap, gap);
    if (gap > 2.0 * rateMs) ++m.longGaps;
  }
  return m;
}

void report(const std::vector<Minute>& minutes, const std::vector<double>& intervals, int rateMs) {
  // Memory is judged after the first five minutes: start-up, the first
  // loads and the caches of the first pictures are over by then.
  const size_t settled = std::min<size_t>(5, minutes.size() - 1);
  long peak = 0;
  size_t longGaps = 0;
  for (const Minute& m : minutes) {
    peak = std::max(peak, m.rssKb);
    longGaps += m.longGaps;
  }
  const double from = double(minutes[settled].rssKb) / 1024.0;
  const double to = double(minutes.back().rssKb) / 1024.0;
  std::printf("\n%zu minutes, %zu frames to olad\n", minutes.size(), intervals.size() + 1);
  std::printf("%-40s %9.1f MB\n", "resident memory after minute 5", from);
  std::printf("%-40s %9.1f MB\n", "resident memory at the end", to);
  std::printf("%-40s %9.1f MB\n", "resident memory, largest sample", double(peak) / 1024.0);
  const double growth = to - from;
  std::printf("%-40s %9.1f MB  %s\n", "growth after minute 5", growth,
              growth <= 0.05 * from + 2 ? "flat" : "GROWING");
  std::printf("%-40s %9.2f ms\n", "frame interval, median", percentile(intervals, 50));
  std::printf("%-40s %9.2f ms\n", "frame interval, p99", percentile(intervals, 99));
  std::printf("%-40s %9.2f ms\n", "frame interval, p99.99", percentile(intervals, 99.99));
  std::printf("%-40s %9.2f ms  (target <= %d)  %s\n", "largest gap between frames",
              largest(intervals), 2 * rateMs, largest(intervals) <= 2 * rateMs ? "ok" : "OVER");
  std::printf("%-40s %9zu\n", "gaps over twice the output period", longGaps);
}

}  // namespace

int main(int argc, char** argv) {
  Options o;
  if (!parse(argc, argv, o)) {
    std::fprintf(stderr,
                 "usage: soak --ola-port P [--universe U] --listen PORT [--minutes M] [--rate MS] "
                 "[--go-seconds S] [--midi-per-second N] -- QUINTARA ARGS...\n");
    return 2;
  }
  OlaProbe b;
  if (!b.connect(o.olaPort, unsigned(o.universe))) {
    std::fprintf(stderr, "soak: no olad on port %d\n", o.olaPort);
    return 1;
  }
  b.runFor(200);
  b.frames.clear();
  const pid_t pid = launch(o.desk);
  b.runFor(5000);
  Remote show, surface;
  if (b.frames.empty() || !show.open(o.listen) || !surface.open(o.listen)) {
    std::fprintf(stderr, "soak: the desk sent no frame or does not listen on %d\n", o.listen);
    terminate(pid);
    return 1;
  }
  show.send("press FXbutton(0)");
  show.send("press FXbutton(1)");
  b.runFor(1000);

  MidiFlood flood(surface);
  const int ticksPerSecond = 10;
  b.every(1000 / ticksPerSecond, [&] {
    flood.send(o.midiPerSecond / ticksPerSecond);
    return true;
  });
  b.every(unsigned(o.goSeconds) * 1000, [&] {
    show.drain();
    return show.send("press GOButton") || show.open(o.listen);
  });

  std::vector<Minute> minutes;
  std::vector<double> intervals;
  std::printf("minute  resident MB  frames  largest gap ms  gaps > %d ms\n", 2 * o.rateMs);
  for (int minute = 1; minute <= o.minutes; ++minute) {
    // The minute's frames, with the last frame of the minute before, so the
    // gap across the boundary counts too.
    if (!b.frames.empty()) b.frames.erase(b.frames.begin(), b.frames.end() - 1);
    b.runFor(60000);
    const Minute m = summarise(b.frames, readProc(pid).rssKb, o.rateMs);
    const std::vector<double> gaps = intervalsOf(b.frames);
    intervals.insert(intervals.end(), gaps.begin(), gaps.end());
    minutes.push_back(m);
    std::printf("%6d  %11.1f  %6zu  %14.2f  %11zu\n", minute, double(m.rssKb) / 1024.0, m.frames,
                m.largestGap, m.longGaps);
    std::fflush(stdout);
    // The remote client hangs up and dials in again.
    show.close();
    if (!show.open(o.listen)) std::printf("soak: the desk no longer takes a connection\n");
  }
  terminate(pid);
  report(minutes, intervals, o.rateMs);
  return 0;
}
