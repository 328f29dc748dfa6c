// The cue list window's files: open and save through its file dialog, the
// four recent entries and their settings keys.

#include <gtest/gtest.h>

#include <filesystem>

#include "cue_list_fixture.h"
#include "engine/core/console.h"

namespace q::test {
namespace {

class CueListFiles : public CueListFixture {
 protected:
  std::string list(const std::string& name, const std::string& number) {
    return write(name, {"SHOW:" + name, "DATE:today", "MEM:" + number, "FUNCTION:1",
                        "TIMES:0,1,0,1,", "NAME:cue " + number, "CHAN:1a50,"});
  }
  std::string captions(Cuewin& w) {
    std::string s;
    for (int i = 1; i <= 4; ++i)
      s += (w.mnuRecent(i).visible() ? "+" : "-") + w.mnuRecent(i).caption() + ";";
    return s;
  }
  std::string iniKey(const std::string& key) {
    return console().settings.ini().read("Recent", key, "<none>");
  }
};

TEST_F(CueListFiles, OpenLoadsTheChosenListAndEntersItFirstInTheRecentList) {
  const std::string a = list("a.qcl", "1"), b = list("b.qcl", "2");
  Cuewin& w = open();
  EXPECT_EQ(captions(w), "-;-;-;-;");
  EXPECT_FALSE(w.mnuRecent(0).visible());
  dialogs.queueAnswer(a);
  w.menu("mnuOpen").click();
  EXPECT_EQ(v().CueCount, 1);
  EXPECT_EQ(w.txt_Show.text(), "a.qcl");
  EXPECT_EQ(shown(w.Picture3, 0, 0), "1");
  dialogs.queueAnswer(b);
  w.menu("mnuOpen").click();
  EXPECT_EQ(captions(w), "+" + b + ";+" + a + ";-;-;");
  EXPECT_TRUE(w.mnuRecent(0).visible());
  EXPECT_EQ(iniKey("Cue1"), b);
  EXPECT_EQ(iniKey("Cue2"), a);
  EXPECT_EQ(iniKey("Cue3"), "");
  EXPECT_EQ(console().files.cueListFileName, b);
}

TEST_F(CueListFiles, TheRecentListShiftsWithoutLookingForTheSameNameAndDropsTheOldest) {
  Cuewin& w = open();
  for (const char* n : {"1.qcl", "2.qcl", "3.qcl", "4.qcl", "2.qcl"}) w.addRecent(n);
  EXPECT_EQ(captions(w), "+2.qcl;+4.qcl;+3.qcl;+2.qcl;");
  EXPECT_EQ(iniKey("Cue4"), "2.qcl");
}

TEST_F(CueListFiles, TheRecentEntriesComeBackWhenTheWindowLoadsAndLoadWithoutReordering) {
  const std::string a = list("a.qcl", "7");
  console().settings.ini().write("Recent", "Cue1", "/nowhere/x.qcl");
  console().settings.ini().write("Recent", "Cue2", a);
  Cuewin& w = open();
  EXPECT_EQ(captions(w), "+/nowhere/x.qcl;+" + a + ";-;-;");
  w.mnuRecent(2).click();
  EXPECT_EQ(cue(1, cue::kNumber), "7");
  EXPECT_EQ(captions(w), "+/nowhere/x.qcl;+" + a + ";-;-;");
  // An entry whose file is gone is one message; the list stays as it was.
  w.mnuRecent(1).click();
  EXPECT_EQ(v().CueCount, 1);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0], "MSGBOX ERROR | Error loading file : /nowhere/x.qcl, file not found");
}

TEST_F(CueListFiles, SaveAsWritesTheListAndACancelChangesNothing) {
  addCue("3", "c", {{2, 9}});
  Cuewin& w = open();
  w.menu("mnuSaveAs").click();  // no answer: cancelled
  EXPECT_EQ(captions(w), "-;-;-;-;");
  dialogs.queueAnswer(path("saved.qcl"));
  w.menu("mnuSaveAs").click();
  EXPECT_EQ(read(path("saved.qcl")),
            crlf({kRule, "SHOW:Unnamed", "DATE:No save date", kRule, "MEM:3", "FUNCTION:1",
                  "TIMES:,,,,", "NAME:c", "CHAN:2a9,", kRule}));
  EXPECT_EQ(iniKey("Cue1"), path("saved.qcl"));
}

TEST_F(CueListFiles, AFailedOpenOrSaveIsOneMessageAndStaysOutOfTheRecentList) {
  addCue("3", "c");
  Cuewin& w = open();
  dialogs.queueAnswer(path("missing.qcl"));
  w.menu("mnuOpen").click();
  std::filesystem::create_directory(path("folder.qcl"));
  dialogs.queueAnswer(path("folder.qcl"));
  w.menu("mnuSaveAs").click();
  EXPECT_EQ(captions(w), "-;-;-;-;");
  ASSERT_EQ(dialogs.shown.size(), 2u);
  EXPECT_EQ(dialogs.shown[0].rfind("MSGBOX ERROR | Error loading file : ", 0), 0u);
  EXPECT_EQ(dialogs.shown[1].rfind("MSGBOX ERROR | Error saving file : ", 0), 0u);
  EXPECT_EQ(v().CueCount, 1);
}

}  // namespace
}  // namespace q::test
