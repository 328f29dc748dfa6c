// Recovery copies of the show: taken before what would replace it, every
// few minutes while it changes, twenty kept, and offered back once after a
// run that did not end through the close sequence.

#include <filesystem>

#include "engine/playback/cue_record.h"
#include "files_fixture.h"

namespace q::test {
namespace {

namespace fs = std::filesystem;

class Snapshots : public FilesFixture {
 protected:
  void nameCue(int row, const std::string& name) {
    v().Cues.setCell(int16_t(row), cue::kNumber, std::to_string(row));
    v().Cues.setCell(int16_t(row), cue::kName, name);
    if (v().CueCount < row) v().CueCount = int16_t(row);
  }
  std::vector<std::string> taken() {
    console().snapshots.waitForWrites();
    return console().snapshots.snapshots();
  }
  std::string aList() {
    return write("other.qcl", {kRule, "SHOW:Other", "DATE:d", kRule, "MEM:9", "FUNCTION:1"});
  }
};

TEST_F(Snapshots, AChangedShowIsKeptBeforeALoadReplacesIt) {
  console().start();
  console().snapshots.waitForWrites();
  for (const std::string& s : taken()) fs::remove_all(fs::path(s).parent_path());
  console().files.load("cuelist", aList());
  EXPECT_TRUE(taken().empty()) << "nothing had changed";

  nameCue(1, "Opening");
  console().files.load("cuelist", aList());
  ASSERT_EQ(taken().size(), 1u);
  EXPECT_NE(read(fs::path(taken()[0]).replace_extension(".qcl").string()).find("NAME:Opening"),
            std::string::npos);

  // A show's load reads a cue list and submasters within it: one snapshot for it all.
  nameCue(1, "Changed");
  const std::string show = path("s.qsh");
  ASSERT_TRUE(console().files.save("show", show));
  nameCue(1, "Changed again");
  console().files.load("show", show);
  EXPECT_EQ(taken().size(), 2u);
}

TEST_F(Snapshots, ResetAndTheClockTakeThemTooAndTwentyAreKept) {
  console().start();
  for (const std::string& s : taken()) fs::remove_all(fs::path(s).parent_path());
  nameCue(1, "Before reset");
  dialogs.queueAnswer("OK");
  form1().menu("mnuNew").click();
  EXPECT_EQ(taken().size(), 1u);

  advance(ShowSnapshots::kEveryMs);
  EXPECT_EQ(taken().size(), 1u) << "the reset's own wipe is no change to keep";
  for (int i = 0; i < 25; ++i) {
    nameCue(1, "edit " + std::to_string(i));
    advance(ShowSnapshots::kEveryMs);
  }
  const auto all = taken();
  ASSERT_EQ(all.size(), size_t(ShowSnapshots::kKept));
  EXPECT_NE(read(fs::path(all.back()).replace_extension(".qcl").string()).find("NAME:edit 24"),
            std::string::npos);
}

TEST_F(Snapshots, AfterAnUncleanEndTheLastSnapshotIsOfferedOnce) {
  console().start();
  nameCue(1, "Lost in the crash");
  console().files.load("cuelist", aList());  // kept first
  console().snapshots.waitForWrites();
  // The process dies here: no close sequence, the marker stays.

  auto restart = [this] {
    ConsoleHost host;
    host.clock = &clock;
    host.dialogs = &dialogs;
    host.homeDir = home();
    auto c = std::make_unique<Console>(host);
    c->start();
    return c;
  };
  dialogs.shown.clear();
  dialogs.queueAnswer("Yes");
  auto second = restart();
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0].rfind("MSGBOX Recovery | Quintara did not close properly", 0), 0u);
  EXPECT_EQ(toText(second->v.Cues.Cell(1, cue::kName)), "Lost in the crash");
  second->unload();  // a clean end
  second.reset();

  dialogs.shown.clear();
  auto third = restart();
  EXPECT_TRUE(dialogs.shown.empty()) << "a clean end asks nothing";
  third->unload();
}

}  // namespace
}  // namespace q::test
