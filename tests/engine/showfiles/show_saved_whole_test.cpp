// A show is saved whole or not at all: every name is checked before a byte
// is written, and a save that dies between its files leaves the old show or
// the new one, never a mix. A file that is no cue list is refused before the
// list is wiped.

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "engine/playback/cue_record.h"
#include "engine/showfiles/file_error.h"
#include "engine/showfiles/file_set.h"
#include "files_fixture.h"

namespace q::test {
namespace {

namespace fs = std::filesystem;

class ShowSavedWhole : public FilesFixture {
 protected:
  void cues(int n, const std::string& name) {
    for (int r = 1; r <= n; ++r) {
      v().Cues.setCell(int16_t(r), cue::kNumber, std::to_string(r));
      v().Cues.setCell(int16_t(r), cue::kFunction, std::string("1"));
      v().Cues.setCell(int16_t(r), cue::kName, name);
    }
    v().CueCount = int16_t(n);
  }
  // Every file of the folder, by name, with its bytes.
  std::map<std::string, std::string> folder(const std::string& dir) {
    std::map<std::string, std::string> files;
    for (const auto& e : fs::directory_iterator(dir))
      files[e.path().filename().string()] = read(e.path().string());
    return files;
  }
  void freshList() {
    wipeCues(v());
    v().CueCount = 0;
  }
};

TEST_F(ShowSavedWhole, ASaveOntoAFolderOrWhereNothingCanBeWrittenWritesNothing) {
  const std::string shows = path("shows");
  fs::create_directories(shows + "/mainshow");
  cues(7, "old");
  ASSERT_TRUE(console().files.save("show", shows + "/main.qsh"));
  const auto before = folder(shows);
  cues(2, "new");
  v().CueCount = 0;  // a show of no cues, saved onto the wrong name
  console().files.save("show", shows + "/mainshow");
  EXPECT_EQ(folder(shows), before) << "the other show is untouched";
  EXPECT_NE(lastBox().find("Error saving file : " + shows + "/mainshow, is a folder"),
            std::string::npos)
      << lastBox();

  // A folder that is not there, or is a file.
  console().files.save("show", shows + "/nowhere/x.qsh");
  console().files.save("show", shows + "/main.qsh/x.qsh");
  EXPECT_EQ(folder(shows), before);
  EXPECT_NE(lastBox().find("its folder does not exist"), std::string::npos) << lastBox();

  if (geteuid() != 0) {  // permissions bind everyone but root
    const std::string locked = path("locked");
    fs::create_directories(locked);
    ::chmod(locked.c_str(), 0555);
    console().files.save("show", locked + "/x.qsh");
    EXPECT_TRUE(fs::is_empty(locked));
    ::chmod(locked.c_str(), 0755);
  }
}

TEST_F(ShowSavedWhole, ASaveThatDiesBetweenItsFilesLeavesTheNewShowOnceRecovered) {
  const std::string show = path("night.qsh");
  cues(5, "old");
  ASSERT_TRUE(console().files.save("show", show));
  cues(3, "new");
  v().CueCount = 3;
  // The console dies after the third of six renames.
  console().files.afterShowRename = [](size_t renamed) {
    if (renamed == 3) throw std::runtime_error("power cut");
  };
  console().files.save("show", show);
  console().files.afterShowRename = nullptr;
  EXPECT_TRUE(fs::exists(show + ".~journal"));

  freshList();
  ASSERT_TRUE(console().files.load("show", show));
  EXPECT_EQ(v().CueCount, 3);
  EXPECT_EQ(cell(v().Cues, 3, cue::kName), "new");
  for (const auto& [name, bytes] : folder(home()))
    EXPECT_EQ(name.find(".~"), std::string::npos) << name << " left behind";
}

TEST_F(ShowSavedWhole, ASaveThatDiesBeforeItsJournalLeavesTheOldShow) {
  const std::string show = path("night.qsh");
  cues(5, "old");
  ASSERT_TRUE(console().files.save("show", show));
  // What a save killed while writing leaves: new companions under their temporary names.
  writeRaw("night.qcl.~new", crlf({kRule, "SHOW:x", "DATE:y", kRule, "MEM:1", "FUNCTION:1"}));
  writeRaw("night1.qfx.~new", "partial");
  freshList();
  ASSERT_TRUE(console().files.load("show", show));
  EXPECT_EQ(v().CueCount, 5);
  EXPECT_EQ(cell(v().Cues, 5, cue::kName), "old");
  EXPECT_FALSE(fs::exists(path("night.qcl.~new")));
  EXPECT_FALSE(fs::exists(path("night1.qfx.~new")));
}

TEST_F(ShowSavedWhole, ASingleFileSaveTakesOverWhatAKilledSaveLeft) {
  writeRaw("list.qcl.~new", std::string(1 << 20, 'x'));
  cues(2, "kept");
  ASSERT_TRUE(console().files.save("cuelist", path("list.qcl")));
  EXPECT_FALSE(fs::exists(path("list.qcl.~new")));
  EXPECT_NE(read(path("list.qcl")).find("NAME:kept"), std::string::npos);
}

TEST_F(ShowSavedWhole, AFileThatIsNoCueListIsRefusedBeforeTheWipe) {
  cues(4, "standing");
  const std::string junk = writeRaw("photo.qcl", "\x89PNG\r\n\x1a\n binary junk \x01\x02\r\n");
  EXPECT_TRUE(console().files.load("cuelist", junk));
  EXPECT_EQ(v().CueCount, 4) << "the list is intact";
  EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + junk +
                           ", not a cue list: none of its lines is a line of a cue list");
  // A header alone is a list of no cues.
  console().files.load("cuelist", write("empty.qcl", {kRule, "SHOW:Nothing", "DATE:today", kRule}));
  EXPECT_EQ(v().CueCount, 0);
}

}  // namespace
}  // namespace q::test
