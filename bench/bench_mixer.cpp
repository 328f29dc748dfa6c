// The mix at full load: 512 channels, twenty SUB strips with every column
// filled and their faders up, both chasers running on full steps, the MIDI
// column lit and the patch on. The output tick runs this up to every 25 ms.

#include <benchmark/benchmark.h>

#include <string>

#include "engine/core/console.h"

namespace {

struct FullLoad {
  q::Console c{q::ConsoleHost{}};

  explicit FullLoad(bool distinctLevels) {
    q::Variables& v = c.v;
    v.MaxChans = 512;
    v.StageLevel = 180;
    v.ProgLevel = 75;
    for (int ch = 1; ch <= q::kChannels; ++ch) {
      for (int col = 0; col < q::kColumns; ++col)
        v.chan(ch, col) = uint8_t((ch * 7 + col * 13) % 256);
      v.PatchMap[ch - 1] = int16_t(q::kChannels + 1 - ch);
      for (int step = 1; step <= 4; ++step) {
        v.FX1Data.setCell(int16_t(step), int16_t(ch), uint8_t((ch * 3 + step) % 256));
        v.FX2Data.setCell(int16_t(step), int16_t(ch), uint8_t((ch * 5 + step) % 256));
      }
    }
    for (int j = 0; j < q::kSubmasters; ++j)
      v.SubLevel[j] = uint8_t(distinctLevels ? 255 - j * 9 : 255);
    v.PatchOn = q::kTrue;
    c.form1.FxStep[0]->setCaption("2");
    c.form1.FxStep[1]->setCaption("3");
    c.form1.FXTimer[0]->setRunning(true);
    c.form1.FXTimer[1]->setRunning(true);
  }
};

void BM_MixFullLoad(benchmark::State& state) {
  FullLoad load(false);
  for (auto _ : state) {
    load.c.mixer.MixOutput();
    benchmark::DoNotOptimize(load.c.v.DMXData.data());
  }
}
BENCHMARK(BM_MixFullLoad);

// Every strip at its own level: no two strips share a product table.
void BM_MixDistinctStripLevels(benchmark::State& state) {
  FullLoad load(true);
  for (auto _ : state) {
    load.c.mixer.MixOutput();
    benchmark::DoNotOptimize(load.c.v.DMXData.data());
  }
}
BENCHMARK(BM_MixDistinctStripLevels);

// A timed fade in progress: both scene weights change at every mix.
void BM_MixDuringFade(benchmark::State& state) {
  FullLoad load(false);
  int tick = 0;
  for (auto _ : state) {
    tick = (tick + 1) % 256;
    load.c.v.ProgLevel = uint8_t(tick);
    load.c.v.StageLevel = uint8_t(255 - tick);
    load.c.mixer.MixOutput();
    benchmark::DoNotOptimize(load.c.v.DMXData.data());
  }
}
BENCHMARK(BM_MixDuringFade);

// Both chasers step on every mix, with every strip at its own level: each
// mix lifts a new step of each chaser out of its table.
void BM_MixChasersStepping(benchmark::State& state) {
  FullLoad load(true);
  const std::string steps[] = {"1", "2", "3", "4"};
  int n = 0;
  for (auto _ : state) {
    n = (n + 1) % 4;
    load.c.form1.FxStep[0]->setCaption(steps[n]);
    load.c.form1.FxStep[1]->setCaption(steps[(n + 2) % 4]);
    load.c.mixer.MixOutput();
    benchmark::DoNotOptimize(load.c.v.DMXData.data());
  }
}
BENCHMARK(BM_MixChasersStepping);

}  // namespace
