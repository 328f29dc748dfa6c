// What the cue and chaser tables cost in memory and time. The memory figures
// are the heap the table holds after it was filled (glibc's own count of
// bytes in use, small and mapped blocks alike), reported as counters:
//  - BytesPerLevel for 10,000 cues of 512 levels each (goal: 4 bytes or less);
//  - TableMB for a full-size list of 32,767 cues, each with its record (number,
//    times, name) and none, 24 or all 512 levels; the 24 either side by side
//    or spread over the rig, one channel in 21;
//  - TableMB of a list wiped back to empty, as a reload does before it reads.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <memory>
#include <string>

#include "engine/core/channel_tables.h"
#include "engine/core/sparse_matrix.h"
#include "engine/playback/cue_record.h"

namespace {

constexpr int kFullList = 32767;

size_t heapInUse() {
  const struct mallinfo2 m = mallinfo2();
  return m.uordblks + m.hblkhd;
}

// A cue as the list reader stores it: the record's texts, then the levels of
// `levels` channels, one every `stride` channels from channel 1.
void storeCue(q::CSparseMatrix& m, int row, int levels, int stride = 1) {
  const auto r = int16_t(row);
  m.setCell(r, q::cue::kNumber, std::to_string(row));
  m.setCell(r, q::cue::kFunction, std::string("1"));
  for (int col = q::cue::kWaitUp; col <= q::cue::kDownTime; ++col)
    m.setCell(r, int16_t(col), std::string("25"));
  m.setCell(r, q::cue::kName, "Cue number " + std::to_string(row));
  for (int k = 0; k < levels; ++k) {
    const int ch = 1 + k * stride;
    m.setCell(r, int16_t(ch), uint8_t((row * 7 + ch * 13) % 255 + 1));
  }
}

// Builds a list in a fresh table and reports the heap it holds.
void measureList(benchmark::State& state, int cues, int levels, int stride, bool record) {
  size_t held = 0;
  for (auto _ : state) {
    const size_t before = heapInUse();
    auto m = std::make_unique<q::CSparseMatrix>();
    for (int row = 1; row <= cues; ++row) {
      if (record)
        storeCue(*m, row, levels, stride);
      else
        for (int ch = 1; ch <= levels; ++ch)
          m->setCell(int16_t(row), int16_t(ch), uint8_t((row + ch) % 255 + 1));
    }
    held = heapInUse() - before;
    benchmark::DoNotOptimize(m.get());
  }
  state.counters["TableMB"] = double(held) / (1024.0 * 1024.0);
  state.counters["BytesPerCue"] = double(held) / double(cues);
  if (levels > 0) state.counters["BytesPerLevel"] = double(held) / (double(cues) * levels);
}

void BM_TableMemory_Levels10000x512(benchmark::State& state) {
  measureList(state, 10000, q::kChannels, 1, false);
}
BENCHMARK(BM_TableMemory_Levels10000x512)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_TableMemory_Cues32767x512(benchmark::State& state) {
  measureList(state, kFullList, q::kChannels, 1, true);
}
BENCHMARK(BM_TableMemory_Cues32767x512)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_TableMemory_Cues32767x24SideBySide(benchmark::State& state) {
  measureList(state, kFullList, 24, 1, true);
}
BENCHMARK(BM_TableMemory_Cues32767x24SideBySide)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_TableMemory_Cues32767x24Spread(benchmark::State& state) {
  measureList(state, kFullList, 24, 21, true);
}
BENCHMARK(BM_TableMemory_Cues32767x24Spread)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_TableMemory_Cues32767NoLevels(benchmark::State& state) {
  measureList(state, kFullList, 0, 1, true);
}
BENCHMARK(BM_TableMemory_Cues32767NoLevels)->Iterations(1)->Unit(benchmark::kMillisecond);

// A wiped list: every cell of a full-size list of full cues stored empty
// again, as a reload does.
void BM_TableMemory_Wiped32767(benchmark::State& state) {
  size_t held = 0;
  for (auto _ : state) {
    const size_t before = heapInUse();
    auto m = std::make_unique<q::CSparseMatrix>();
    for (int row = 1; row <= kFullList; ++row) storeCue(*m, row, q::kChannels);
    for (int row = 1; row <= kFullList; ++row)
      for (int col = 1; col <= q::cue::kLastWiped; ++col)
        m->setCell(int16_t(row), int16_t(col), q::Value{});
    held = heapInUse() - before;
    benchmark::DoNotOptimize(m.get());
  }
  state.counters["TableMB"] = double(held) / (1024.0 * 1024.0);
}
BENCHMARK(BM_TableMemory_Wiped32767)->Iterations(1)->Unit(benchmark::kMillisecond);

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
