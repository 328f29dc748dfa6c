// What one operator move costs in the level windows, from the event to the
// table, MixDirty set, ready for the next output tick: a fader of the
// channels panel, a step of the simple view's wheel with every one of the
// 512 channels selected, and a step of the X/Y pad.

#include <benchmark/benchmark.h>

#include "engine/core/console.h"
#include "engine/views/channels_panel.h"
#include "engine/views/simple_view.h"
#include "engine/views/xy_control.h"

namespace {

struct Desk {
  q::Console c{q::ConsoleHost{}};
  Desk() { c.v.MaxChans = 512; }
  template <class W>
  W& open(const char* menu, const char* name) {
    c.form1.menu(menu).click();
    return *c.windows.find<W>(name);
  }
};

void BM_ChannelsPanelFaderMove(benchmark::State& state) {
  Desk d;
  auto& panel = d.open<q::Canals>("mnuChanWin", "Canals");
  int position = 0;
  for (auto _ : state) {
    position = (position + 37) % 256;
    panel.Fader(7).setPosition(position);
    benchmark::DoNotOptimize(d.c.v.MixDirty);
  }
}
BENCHMARK(BM_ChannelsPanelFaderMove);

void BM_SimpleWheelStepAllSelected(benchmark::State& state) {
  Desk d;
  auto& simple = d.open<q::Simple>("mnuSimple", "Simple");
  simple.cmdAll.click();
  simple.wheelDown(0);
  double y = 0;
  int direction = -1;
  for (auto _ : state) {
    y += direction;
    if (y < -300 || y > 300) direction = -direction;
    simple.wheelMove(y);
    benchmark::DoNotOptimize(d.c.v.MixDirty);
  }
}
BENCHMARK(BM_SimpleWheelStepAllSelected);

void BM_XYPadStep(benchmark::State& state) {
  Desk d;
  auto& pad = d.open<q::Mobile>("mnuMobile", "Mobile");
  pad.padDown();
  int step = 0;
  for (auto _ : state) {
    ++step;
    pad.padMove(step % 256, (step * 3) % 256);
    benchmark::DoNotOptimize(d.c.v.MixDirty);
  }
}
BENCHMARK(BM_XYPadStep);

}  // namespace

BENCHMARK_MAIN();
