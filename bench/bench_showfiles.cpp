// A big cue list on disk: 1,000 or 10,000 cues with all 512 channels set
// (about 4 MB a thousand cues), read and written through the real reader and
// writer. A list of 1,000 cues has a budget of 20 ms each way. The table's
// growth on the first load of the process is reported as TableMB.

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/show_formats.h"

#include "full_cue_list.h"

namespace {

std::string benchFile() {
  return (std::filesystem::temp_directory_path() /
          ("quintara-bench-" + std::to_string(getpid()) + ".qcl"))
      .string();
}

double residentMB() {
  long pages = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return double(resident) * double(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// Written by hand, so that no table was ever built in this process.
void writeList(const std::string& file, int cues) {
  std::ofstream out(file, std::ios::binary);
  const std::string rule = "'" + std::string(70, '*') + "\r\n";
  out << rule << "SHOW:Bench\r\nDATE:\r\n" << rule;
  for (int row = 1; row <= cues; ++row) {
    out << "MEM:" << row << "\r\nFUNCTION:1\r\nTIMES:25,25,25,25,\r\nNAME:Cue number " << row
        << "\r\nCHAN:";
    for (int ch = 1; ch <= q::kChannels; ++ch)
      out << ch << 'a' << (row * 7 + ch * 13) % 255 + 1 << ',';
    out << "\r\n" << rule;
  }
}

void BM_LoadCueList(benchmark::State& state) {
  const int cues = int(state.range(0));
  const std::string file = benchFile();
  writeList(file, cues);
  q::Console c{q::ConsoleHost{}};
  c.v.MaxChans = 512;
  const double before = residentMB();
  q::LoadCueList(c, file);
  state.counters["TableMB"] = residentMB() - before;
  state.counters["FileMB"] = double(std::filesystem::file_size(file)) / (1024.0 * 1024.0);
  // Every run after the first wipes the list it loaded before, as a reload does.
  for (auto _ : state) q::LoadCueList(c, file);
  state.counters["ResidentMB"] = residentMB();
  if (c.v.CueCount != cues) state.SkipWithError("cue list did not load whole");
  std::filesystem::remove(file);
}
BENCHMARK(BM_LoadCueList)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_SaveCueList(benchmark::State& state) {
  const int cues = int(state.range(0));
  q::Console c{q::ConsoleHost{}};
  fillFullList(c, cues, false);
  const std::string file = benchFile();
  for (auto _ : state) q::SaveCueList(c, file);
  state.counters["FileMB"] = double(std::filesystem::file_size(file)) / (1024.0 * 1024.0);
  std::filesystem::remove(file);
}
BENCHMARK(BM_SaveCueList)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
