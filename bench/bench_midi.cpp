// MIDI at the console's input: one control change that moves a strip (the
// strip's fader event, its mix input, the echo check), a strip moved on the
// desk that echoes out, and a burst of 10,000 messages queued at the input
// port at once, every one of which must be handled.

#include <benchmark/benchmark.h>

#include <deque>

#include "engine/core/console.h"

namespace {

class QueueIn : public q::NoMidiIn {
 public:
  std::deque<q::MidiMessage> queue;
  bool isOpen() const override { return true; }
  int waiting() override { return int(queue.size()); }
  q::MidiMessage oldest() override { return queue.front(); }
  void removeOldest() override { queue.pop_front(); }
};

class CountingOut : public q::NoMidiOut {
 public:
  long sent = 0;
  int last = 0;
  bool isOpen() const override { return true; }
  void send(int, int, int d2) override {
    ++sent;
    last = d2;
  }
};

struct Desk {
  QueueIn in;
  CountingOut out;
  q::Console c{q::ConsoleHost{}};
  Desk() {
    c.midi.setPorts(in, out);
    // Every strip on its own controller, as a 20-fader surface maps them.
    for (int k = 0; k < q::kSubmasters; ++k) c.v.SubMidi[k] = uint8_t(k + 1);
  }
};

// Controller 1 moves strip 1 between two positions, so every message is a real move.
void BM_ControlChangeMovesAStrip(benchmark::State& state) {
  Desk d;
  int value = 0;
  for (auto _ : state) {
    value ^= 100;
    d.c.midi.messageIn(176, 1, value);
    benchmark::DoNotOptimize(d.c.v.SubLevel[0]);
  }
  if (d.c.form1.Fader(3).position() != 255 - value * 2) state.SkipWithError("strip did not follow");
}
BENCHMARK(BM_ControlChangeMovesAStrip);

// The same strip moved on the desk after MIDI was heard: this one is echoed.
void BM_DeskMoveEchoes(benchmark::State& state) {
  Desk d;
  d.c.midi.messageIn(254, 0, 0);  // echo starts with the first message heard
  int position = 0;
  for (auto _ : state) {
    position ^= 200;
    d.c.form1.Fader(3).setPosition(position);
  }
  state.counters["echoes"] = double(d.out.sent);
}
BENCHMARK(BM_DeskMoveEchoes);

void BM_BurstOf10000(benchmark::State& state) {
  Desk d;
  constexpr int kBurst = 10000;
  long moves = 0;
  d.c.form1.Fader(3).addViewListener([&] { ++moves; });
  for (auto _ : state) {
    state.PauseTiming();
    moves = 0;
    for (int i = 0; i < kBurst; ++i) d.in.queue.push_back({176, 1, i % 2 ? 0 : 127});
    state.ResumeTiming();
    d.in.onArrived();
    if (moves != kBurst || !d.in.queue.empty()) state.SkipWithError("a message was lost");
  }
  state.SetItemsProcessed(state.iterations() * kBurst);
}
BENCHMARK(BM_BurstOf10000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
