// What the cue and chaser tables cost in memory and time. The memory figures
// are the heap the table holds after it was filled (glibc's own count of
// bytes in use, small and mapped blocks alike), reported as counters:
//  - BytesPerLevel for 10,000 cues of 512 levels each (goal: 4 bytes or less);
//  - TableMB for a full-size list of 32,767 cues, with and without levels.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <memory>
#include <string>

#include "engine/core/channel_tables.h"
#include "engine/core/sparse_matrix.h"
#include "engine/playback/cue_record.h"

namespace {

size_t heapInUse() {
  const struct mallinfo2 m = mallinfo2();
  return m.uordblks + m.hblkhd;
}

// A cue as the list reader stores it: the record's texts, then the levels.
void storeCue(q::CSparseMatrix& m, int row, int levels) {
  const auto r = int16_t(row);
  m.setCell(r, q::cue::kNumber, std::to_string(row));
  m.setCell(r, q::cue::kFunction, std::string("1"));
  for (int col = q::cue::kWaitUp; col <= q::cue::kDownTime; ++col)
    m.setCell(r, int16_t(col), std::string("25"));
  m.setCell(r, q::cue::kName, "Cue number " + std::to_string(row));
  for (int ch = 1; ch <= levels; ++ch)
    m.setCell(r, int16_t(ch), uint8_t((row * 7 + ch * 13) % 255 + 1));
}

// Builds a list in a fresh table and reports the heap it holds.
void measureList(benchmark::State& state, int cues, int levels, bool record) {
  size_t held = 0;
  for (auto _ : state) {
    const size_t before = heapInUse();
    auto m = std::make_unique<q::CSparseMatrix>();
    for (int row = 1; row <= cues; ++row) {
      if (record)
        storeCue(*m, row, levels);
      else
        for (int ch = 1; ch <= levels; ++ch)
          m->setCell(int16_t(row), int16_t(ch), uint8_t((row + ch) % 255 + 1));
    }
    held = heapInUse() - before;
    benchmark::DoNotOptimize(m.get());
  }
  state.counters["TableMB"] = double(held) / (1024.0 * 1024.0);
  if (levels > 0) state.counters["BytesPerLevel"] = double(held) / (double(cues) * levels);
}

void BM_TableMemory_Levels10000x512(benchmark::State& state) {
  measureList(state, 10000, q::kChannels, false);
}
BENCHMARK(BM_TableMemory_Levels10000x512)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_TableMemory_Cues10000x512(benchmark::State& state) {
  measureList(state, 10000, q::kChannels, true);
}
BENCHMARK(BM_TableMemory_Cues10000x512)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_TableMemory_Cues32767x512(benchmark::State& state) {
  measureList(state, 32767, q::kChannels, true);
}
BENCHMARK(BM_TableMemory_Cues32767x512)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_TableMemory_Cues32767NoLevels(benchmark::State& state) {
  measureList(state, 32767, 0, true);
}
BENCHMARK(BM_TableMemory_Cues32767NoLevels)->Iterations(1)->Unit(benchmark::kMillisecond);

// A wiped list: every cell of 1,000 full cues stored empty again, as a reload does.
void BM_TableMemory_Wiped1000(benchmark::State& state) {
  size_t held = 0;
  for (auto _ : state) {
    const size_t before = heapInUse();
    auto m = std::make_unique<q::CSparseMatrix>();
    for (int row = 1; row <= 1000; ++row) storeCue(*m, row, q::kChannels);
    for (int row = 1; row <= 1000; ++row)
      for (int col = 1; col <= q::cue::kLastWiped; ++col)
        m->setCell(int16_t(row), int16_t(col), q::Value{});
    held = heapInUse() - before;
    benchmark::DoNotOptimize(m.get());
  }
  state.counters["TableMB"] = double(held) / (1024.0 * 1024.0);
}
BENCHMARK(BM_TableMemory_Wiped1000)->Iterations(1)->Unit(benchmark::kMillisecond);

// The reads of the readers and writers: every cell of a full cue, as the
// writer of a list and the grid look at it.
void BM_ReadFullCue(benchmark::State& state) {
  q::CSparseMatrix m;
  for (int row = 1; row <= 100; ++row) storeCue(m, row, q::kChannels);
  int row = 0;
  for (auto _ : state) {
    row = row % 100 + 1;
    size_t filled = 0;
    for (int col = 1; col <= q::cue::kLastWiped; ++col)
      filled += !m.cellIsEmpty(int16_t(row), int16_t(col));
    benchmark::DoNotOptimize(filled);
  }
}
BENCHMARK(BM_ReadFullCue);

}  // namespace

BENCHMARK_MAIN();
