// libFuzzer target over every show-file reader. The first byte picks the
// reader, the rest is the file. A reader may only stop with FileError.
//
//   cmake -S . -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ \
//         -DQUINTARA_SANITIZE=ON -DQUINTARA_FUZZ=ON -DQUINTARA_GUI=OFF -DQUINTARA_TESTS=OFF
//   ninja -C build-fuzz fuzz_show_readers
//   build-fuzz/tools/fuzz/fuzz_show_readers tests/engine/showfiles/corpus -max_total_time=60

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "engine/core/console.h"
#include "engine/showfiles/file_error.h"
#include "engine/showfiles/show_formats.h"

namespace {

q::Console& console() {
  static q::Console c{q::ConsoleHost{}};
  static bool started = false;
  if (!started) {
    c.v.SubKnob.fill(1);
    c.v.MaxChans = 512;
    started = true;
  }
  return c;
}

const std::string& scratchFile() {
  static const std::string path =
      (std::filesystem::temp_directory_path() / ("quintara-fuzz-" + std::to_string(getpid())))
          .string();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string& file = scratchFile();
  std::ofstream(file, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data + 1), std::streamsize(size - 1));
  q::Console& c = console();
  try {
    switch (data[0] % 8) {
      case 0:
        q::LoadCueList(c, file);
        break;
      case 1:
        q::PasteCueClipboard(c, file);
        break;
      case 2:
        q::LoadSubmasters(c, file);
        break;
      case 3:
        q::LoadChaser(c, file, data[0] & 8 ? 1 : 0);
        break;
      case 4:
        q::LoadPatch(c, file);
        break;
      case 5:
        q::LoadChannels(c, file);
        break;
      default:
        q::LoadShow(c, file);
        break;
    }
  } catch (const q::FileError&) {
    // The one way a reader is allowed to stop.
  }
  return 0;
}
