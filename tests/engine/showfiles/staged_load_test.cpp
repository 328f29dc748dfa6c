// A cue list is read away from the console thread and taken in at once: the
// list, the show's name and the boxes must be those of a read in place, also
// when the read stops at a bad line, when the file is refused, and when the
// old list holds cells that no wipe reaches.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <thread>

#include "engine/core/console.h"
#include "engine/core/scripted_dialogs.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/show_formats.h"

namespace q::test {

namespace {

// Runs each job on a thread of its own, as the desk and the real clock do.
class ThreadWork : public BackgroundWork {
 public:
  void run(const std::function<void()>& job) override {
    std::exception_ptr failure;
    std::thread worker([&] {
      workerId = std::this_thread::get_id();
      try {
        job();
      } catch (...) {
        failure = std::current_exception();
      }
    });
    worker.join();
    ++runs;
    if (failure) std::rethrow_exception(failure);
  }
  std::thread::id workerId;
  int runs = 0;
};

struct Desk {
  VirtualClock clock;
  ScriptedDialogs dialogs;
  std::unique_ptr<Console> c;
  Desk(const std::string& home, BackgroundWork* work) {
    ConsoleHost host;
    host.clock = &clock;
    host.dialogs = &dialogs;
    host.homeDir = home;
    host.background = work;
    c = std::make_unique<Console>(host);
  }
  // An old list with cells the wipe passes over: row 0, a column past the
  // cue record, a negative column, a row past the count.
  void oldList() {
    Variables& v = c->v;
    v.CueCount = 4;
    for (int16_t row = 1; row <= 4; ++row) {
      v.Cues.setCell(row, cue::kNumber, std::to_string(row));
      v.Cues.setCell(row, int16_t(row * 3), uint8_t(row * 10));
    }
    v.Cues.setCell(0, cue::kName, std::string("row nought"));
    v.Cues.setCell(2, 600, uint8_t(6));
    v.Cues.setCell(3, -5, std::string("left"));
    v.Cues.setCell(7, 12, uint8_t(70));
  }
};

class StagedLoadTest : public ::testing::Test {
 protected:
  StagedLoadTest() : home_(std::filesystem::temp_directory_path() / "quintara-staged-load") {
    std::filesystem::create_directories(home_);
  }
  ~StagedLoadTest() override { std::filesystem::remove_all(home_); }

  std::string write(const std::string& name, const std::string& text) {
    const std::string p = (home_ / name).string();
    std::ofstream(p, std::ios::binary) << text;
    return p;
  }

  // Loads path into a console that reads in place and one that reads on a
  // thread, both over the same old list, and compares all they show.
  void expectSameAsInPlace(const std::string& path) {
    ThreadWork work;
    Desk inPlace(home_.string(), nullptr), aside(home_.string(), &work);
    for (Desk* d : {&inPlace, &aside}) {
      d->oldList();
      d->c->files.load("cuelist", path);
    }
    EXPECT_EQ(work.runs, 1);
    EXPECT_NE(work.workerId, std::this_thread::get_id());
    const Variables &a = inPlace.c->v, &b = aside.c->v;
    EXPECT_EQ(a.CueCount, b.CueCount);
    EXPECT_EQ(a.ShowName, b.ShowName);
    EXPECT_EQ(a.ShowDate, b.ShowDate);
    EXPECT_EQ(inPlace.dialogs.shown, aside.dialogs.shown);
    for (int row = -2; row <= 12; ++row)
      for (int col = -8; col <= 640; ++col)
        ASSERT_EQ(a.Cues.Cell(int16_t(row), int16_t(col)), b.Cues.Cell(int16_t(row), int16_t(col)))
            << path << " row " << row << " column " << col;
    lastBoxes = aside.dialogs.shown;
    lastCount = b.CueCount;
  }

  std::filesystem::path home_;
  std::vector<std::string> lastBoxes;
  int lastCount = -1;
};

}  // namespace

TEST_F(StagedLoadTest, AWholeListAndOneThatStopsAtABadLineLeaveWhatAReadInPlaceLeaves) {
  const std::string head = "SHOW:Tempest\r\nNAME:before any cue\r\nCHAN:700a1,\r\n";
  const std::string cues =
      "MEM:1\r\nFUNCTION:1\r\nTIMES:1,2,3,4,\r\nCHAN:1a255,3a7,-4a9,\r\n"
      "MEM:2\r\nNAME:two\r\nCHAN:600a5,\r\n";
  expectSameAsInPlace(write("whole.qcl", head + cues + "DATE:today\r\n"));
  EXPECT_TRUE(lastBoxes.empty());
  EXPECT_EQ(lastCount, 2);

  // Line 11 is bad: the two cues before it stay, the third and the date after it never come.
  const std::string bad = write("bad.qcl", head + cues + "CHAN:4a999,\r\nMEM:3\r\nDATE:late\r\n");
  expectSameAsInPlace(bad);
  ASSERT_EQ(lastBoxes.size(), 1u);
  EXPECT_NE(lastBoxes[0].find("Error loading file : " + bad + ", line 11: "), std::string::npos)
      << lastBoxes[0];
  EXPECT_EQ(lastCount, 2);
}

TEST_F(StagedLoadTest, ARefusedOrMissingFileLeavesTheOldListAsARead) {
  expectSameAsInPlace(write("picture.qcl", "not a cue list\r\nat all\r\n"));
  EXPECT_EQ(lastCount, 4);
  expectSameAsInPlace((home_ / "none.qcl").string());
  EXPECT_EQ(lastCount, 4);
  EXPECT_EQ(lastBoxes.size(), 1u);
}

TEST_F(StagedLoadTest, AShowReadsItsCueListAsideAndAPasteStaysInPlace) {
  ThreadWork work;
  Desk d(home_.string(), &work);
  d.oldList();
  const std::string list = write("s.qcl", "MEM:5\r\nCHAN:2a50,\r\n");
  d.c->files.load("show", write("s.qsh", "NAME:Show\r\nCUELIST:" + list + "\r\n"));
  EXPECT_EQ(work.runs, 1);
  EXPECT_EQ(d.c->v.CueCount, 1);
  EXPECT_EQ(d.c->v.Cues.Cell(1, 2), Value(uint8_t(50)));
  EXPECT_EQ(d.c->v.Cues.Cell(2, 600), Value(uint8_t(6)));  // past the wiped columns
  PasteCueClipboard(*d.c, list);
  EXPECT_EQ(work.runs, 1);
  EXPECT_EQ(d.c->v.CueCount, 2);
}

}  // namespace q::test
