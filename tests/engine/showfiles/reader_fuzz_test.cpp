// Every reader against mutated show files: seeded, bounded in time, so it
// runs in every test pass. A reader may only ever stop with FileError; any
// other exception, a crash, a hang or a sanitizer report fails the run.
// Seeds are in corpus/; QUINTARA_FUZZ_SECONDS lengthens a run.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>

#include "engine/showfiles/file_error.h"
#include "files_fixture.h"

namespace q::test {

namespace {
const std::filesystem::path kCorpus = QUINTARA_SHOWFILE_CORPUS;

// Bytes that make a mutation reach deeper than random noise does.
const char* const kTokens[] = {
    "CHAN:",     "SUB:",  "MEM:", "TIMES:", "FONT:", "KNOB: ", "LEVEL:",      "RANDOM:YES",
    "PATCH: ON", "NAME:", "a",    ",",      ";",     "\r\n",   "\n",          "255",
    "256",       "-1",    "0",    "99999",  "1.5",   "True",   "SUBMASTERS:", "CUELIST:",
    "FX1:",      ":",     "'",    "\xE9",   "\x81"};

class Mutator {
 public:
  explicit Mutator(uint32_t seed) : rng_(seed) {}
  std::string operator()(std::string s) {
    const int rounds = 1 + pick(4);
    for (int r = 0; r < rounds; ++r) mutateOnce(s);
    return s;
  }

 private:
  size_t pick(size_t n) {
    return n == 0 ? 0 : std::uniform_int_distribution<size_t>(0, n - 1)(rng_);
  }
  void mutateOnce(std::string& s) {
    const size_t at = pick(s.size() + 1);
    switch (pick(6)) {
      case 0:
        if (!s.empty()) s[pick(s.size())] = char(pick(256));
        break;
      case 1:
        s.insert(at, kTokens[pick(std::size(kTokens))]);
        break;
      case 2:
        s.erase(at, pick(16));
        break;
      case 3:
        s.insert(at, s.substr(pick(s.size() + 1), pick(64)));
        break;
      case 4:
        s.resize(at);
        break;
      default:
        s.insert(at, 1, char(pick(256)));
        break;
    }
  }
  std::mt19937 rng_;
};

double secondsPerReader() {
  const char* env = std::getenv("QUINTARA_FUZZ_SECONDS");
  return env ? std::atof(env) : 0.4;
}
}  // namespace

class ReaderFuzzTest : public FilesFixture {
 protected:
  void fuzz(const std::string& seedFile, const std::function<void(const std::string&)>& read,
            uint32_t seed) {
    std::string seedText = read_(kCorpus / seedFile);
    size_t at;
    while ((at = seedText.find("@DIR@")) != std::string::npos) seedText.replace(at, 5, home());
    ASSERT_FALSE(seedText.empty()) << seedFile;
    Mutator mutate(seed);
    const std::string target = path("fuzz-" + seedFile);
    const auto end =
        std::chrono::steady_clock::now() + std::chrono::duration<double>(secondsPerReader());
    int runs = 0, stopped = 0;
    for (; std::chrono::steady_clock::now() < end || runs < 50; ++runs) {
      writeRaw("fuzz-" + seedFile, mutate(seedText));
      try {
        read(target);
      } catch (const FileError& e) {
        ++stopped;
        EXPECT_EQ(e.path().empty(), false);
      }
      ASSERT_GE(v().CueCount, 0);
      dialogs.shown.clear();
    }
    // The seed itself is a good file, and mutations must find bad lines too.
    EXPECT_GT(stopped, 0);
    EXPECT_LT(stopped, runs);
  }
  static std::string read_(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }
  void SetUp() override {
    FilesFixture::SetUp();
    // The show index names companions in the program folder: give it the seeds.
    for (const auto& e : std::filesystem::directory_iterator(kCorpus))
      std::filesystem::copy_file(e.path(), home() + "/" + e.path().filename().string(),
                                 std::filesystem::copy_options::overwrite_existing);
    v().MaxChans = 512;
  }
};

TEST_F(ReaderFuzzTest, CueList) {
  fuzz(
      "cuelist.qcl", [&](const std::string& p) { LoadCueList(console(), p); }, 1);
  fuzz(
      "cuelist.qcl", [&](const std::string& p) { PasteCueClipboard(console(), p); }, 2);
}
TEST_F(ReaderFuzzTest, Submasters) {
  fuzz(
      "submasters.qsm", [&](const std::string& p) { LoadSubmasters(console(), p); }, 3);
}
TEST_F(ReaderFuzzTest, Chaser) {
  fuzz(
      "chaser.qfx", [&](const std::string& p) { LoadChaser(console(), p, 1); }, 4);
}
TEST_F(ReaderFuzzTest, Patch) {
  fuzz(
      "patch.qpf", [&](const std::string& p) { LoadPatch(console(), p); }, 5);
}
TEST_F(ReaderFuzzTest, Channels) {
  fuzz(
      "channels.qch", [&](const std::string& p) { LoadChannels(console(), p); }, 6);
}
TEST_F(ReaderFuzzTest, Show) {
  fuzz(
      "show.qsh", [&](const std::string& p) { LoadShow(console(), p); }, 7);
}

}  // namespace q::test
