// The cue list window over a big list: 1,000 cues with all 512 channels set.
// The sort has a budget of 100 ms; the cells a full repaint of the level
// pane asks the window for, and a scroll by one page, must cost a small part
// of one output period (25 ms at the fastest rate).

#include <benchmark/benchmark.h>

#include "engine/core/console.h"
#include "engine/cuelist/cue_grid.h"
#include "engine/cuelist/cue_sort.h"
#include "engine/playback/cue_record.h"

#include "full_cue_list.h"

namespace {

constexpr int kCues = 1000;

void BM_SortCues1000x512(benchmark::State& state) {
  q::Console c{q::ConsoleHost{}};
  fillFullList(c, kCues, true);
  // Each sort takes every copy again, so every round does the whole work.
  for (auto _ : state) q::SortCues(c.v);
  if (c.v.Cues.number(1, q::cue::kNumber) != 1) state.SkipWithError("not sorted");
}
BENCHMARK(BM_SortCues1000x512)->Unit(benchmark::kMillisecond);

// A window as large as a full-HD screen at zoom 1: 70 channels by 60 rows of levels.
q::Cuewin& bigWindow(q::Console& c) {
  auto& w = c.windows.load<q::Cuewin>("Cuewin");
  w.resize(33500, 16900);
  return w;
}

void BM_CellsOfAFullLevelPane(benchmark::State& state) {
  q::Console c{q::ConsoleHost{}};
  fillFullList(c, kCues, true);
  q::Cuewin& w = bigWindow(c);
  size_t chars = 0;
  for (auto _ : state)
    for (int r = 0; r < w.Picture1.rows; ++r)
      for (int col = 0; col < w.Picture1.columns; ++col)
        chars += w.Picture1.cell(r, col).text.size();
  benchmark::DoNotOptimize(chars);
  state.counters["Cells"] = double(w.Picture1.rows * w.Picture1.columns);
}
BENCHMARK(BM_CellsOfAFullLevelPane)->Unit(benchmark::kMicrosecond);

void BM_ScrollOnePage(benchmark::State& state) {
  q::Console c{q::ConsoleHost{}};
  fillFullList(c, kCues, true);
  q::Cuewin& w = bigWindow(c);
  int top = 1;
  for (auto _ : state) {
    top = top + w.vscScroll.largeChange > 900 ? 1 : top + w.vscScroll.largeChange;
    w.vscScroll.setPosition(top);
  }
}
BENCHMARK(BM_ScrollOnePage)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
