// The show bundle and the file menu: a show built through the command
// language survives a save, a wipe and a load cell for cell and byte for
// byte; the recent list; drops; and failures that leave the console going.

#include <sstream>

#include "engine/playback/cue_record.h"
#include "files_fixture.h"
#include "headless/interpreter.h"

namespace q::test {

class ShowBundleTest : public FilesFixture {
 protected:
  void script(std::initializer_list<std::string> lines) {
    std::ostringstream out;
    Interpreter in(console(), dialogs, &clock, out);
    int n = 0;
    for (const auto& l : lines) ASSERT_TRUE(in.execute(l, ++n)) << l << "\n" << out.str();
  }
  // Everything a show holds, one labelled line per value.
  std::vector<std::string> snapshot() {
    std::vector<std::string> s;
    Variables& vars = v();
    MainWindow& f = form1();
    s.push_back("name " + vars.ShowName + " / " + vars.ShowDate);
    for (int ch = 1; ch <= 512; ++ch)
      for (int col = 2; col <= 21; ++col)
        if (vars.chan(ch, col))
          s.push_back("chan " + std::to_string(ch) + "," + std::to_string(col) + "=" +
                      std::to_string(vars.chan(ch, col)));
    for (int row = 1; row <= vars.CueCount; ++row)
      for (int col = 1; col <= cue::kLastWiped; ++col)
        if (!vars.Cues.cellIsEmpty(int16_t(row), int16_t(col)))
          s.push_back("cue " + std::to_string(row) + "," + std::to_string(col) + "=" +
                      cell(vars.Cues, row, col));
    for (int k = 0; k < 2; ++k) {
      s.push_back("fx " + std::to_string(vars.FXStepCount[k]) + " " +
                  std::to_string(vars.FXRandom[k]));
      for (int st = 1; st <= vars.FXStepCount[k]; ++st)
        for (int ch = 1; ch <= 512; ++ch)
          if (!vars.fxData(k).cellIsEmpty(int16_t(st), int16_t(ch)))
            s.push_back("step " + std::to_string(st) + "," + std::to_string(ch) + "=" +
                        cell(vars.fxData(k), st, ch));
    }
    for (int n = 3; n <= 22; ++n)
      s.push_back("strip " + f.FaderFunc(n).caption() + "|" + f.Slabel(n).text() + "|" +
                  std::to_string(f.Fader(n).position()) + "|" + f.Fader(n).toolTip + "|" +
                  std::to_string(vars.SubMidi[n - 3]) + "|" + f.Slabel(n).style.fontName);
    for (int ch = 1; ch <= 512; ++ch) s.push_back("patch " + std::to_string(vars.PatchMap[ch - 1]));
    s.push_back("patch on " + std::to_string(vars.PatchOn));
    return s;
  }
  std::vector<std::string> companions(const std::string& base) {
    std::vector<std::string> files;
    for (const char* ext : {".qsh", ".qsm", ".qcl", "1.qfx", "2.qfx", ".qpf"})
      files.push_back(read(base + ext));
    return files;
  }
};

TEST_F(ShowBundleTest, ShowBuiltByCommandsSurvivesSaveWipeAndLoad) {
  v().MaxChans = 512;
  script({"press FaderCFG(3)",      "type Direct 1/10a60",
          "enter Direct",           "set Fader(3) 40",
          "press FaderCFG(7)",      "type Direct 500/512aff",
          "enter Direct",           "type Slabel(7) Blue side",
          "press FaderCFG(2)",      "type Direct 1/5a50",
          "enter Direct",           "answer 1",
          "answer Opening",         "press ProgMemSave",
          "type PROGMem ",          "type PROGName ",
          "type Direct 300/305a99", "enter Direct",
          "type WupTime 5",         "answer 2.5",
          "answer Ruhe, Stille",    "press ProgMemSave"});
  ASSERT_EQ(v().CueCount, 2);
  // The chasers' editor and the patch window aren't commands yet: filled as they would fill them.
  v().FXStepCount[0] = 3;
  v().FX1Data.setCell(2, 17, uint8_t(0));
  v().FX1Data.setCell(3, 512, uint8_t(200));
  v().FXRandom[1] = kTrue;
  v().PatchMap[9] = 3;
  v().PatchOn = kTrue;
  form1().Fader(8).toolTip = "left";
  v().SubMidi[4] = 21;
  v().ShowName = "Faust";
  const auto before = snapshot();
  dialogs.shown.clear();
  script({"save show " + path("faust.qsh")});
  EXPECT_TRUE(dialogs.shown.empty()) << lastBox();
  const auto files = companions(path("faust"));

  script({"answer OK", "click mnuNew"});
  v().FX1Data.clearAll();
  v().FXStepCount[0] = 0;
  v().FXRandom[1] = kFalse;
  for (int ch = 1; ch <= 512; ++ch) v().PatchMap[ch - 1] = int16_t(ch);
  v().PatchOn = kFalse;
  form1().Fader(8).toolTip.clear();
  v().SubMidi[4] = 0;
  v().ShowName = "Unnamed";
  ASSERT_NE(snapshot(), before);

  dialogs.shown.clear();
  script({"load show " + path("faust.qsh")});
  EXPECT_TRUE(dialogs.shown.empty()) << lastBox();
  EXPECT_EQ(snapshot(), before);
  script({"save show " + path("faust.qsh")});
  EXPECT_EQ(companions(path("faust")), files);
  EXPECT_EQ(
      read(path("faust.qsh")),
      crlf({kRule, "NAME:Faust", "DATE:No save date", kRule, "SUBMASTERS:" + path("faust.qsm"),
            "CUELIST:" + path("faust.qcl"), "FX1:" + path("faust1.qfx"),
            "FX2:" + path("faust2.qfx"), "PATCH:" + path("faust.qpf")}));
}

TEST_F(ShowBundleTest, ACompanionThatFailsStopsTheShowThereAndNamesItself) {
  v().CueCount = 0;
  const std::string cues = write("x.qcl", {"MEM:1", "MEM:2"});
  const std::string subs = write("x.qsm", {"SUB:1", "NAME:ok", "CHAN:1a5,2a300,", "NAME:never"});
  const std::string p = write(
      "x.qsh", {"NAME:X", "CUELIST:" + cues, "SUBMASTERS:" + subs, "PATCH:" + path("missing.qpf")});
  console().files.load("show", p);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + subs + ", line 3: level above 255");
  EXPECT_EQ(get("ShowName"), "X");
  EXPECT_EQ(get("CueCount"), "2");
  EXPECT_EQ(form1().Slabel(3).text(), "ok");
  EXPECT_EQ(v().chan(1, 2), 5);  // the pair before the bad one holds
  EXPECT_EQ(get("MixDirty"), "-1");
  // The console goes on: the same file loads again once repaired.
  write("x.qsm", {"SUB:1", "NAME:fixed"});
  write("missing.qpf", {"PATCH: ON"});
  dialogs.shown.clear();
  console().files.load("show", p);
  EXPECT_TRUE(dialogs.shown.empty()) << lastBox();
  EXPECT_EQ(form1().Slabel(3).text(), "fixed");
  // An index line shorter than its keyword is a bad line of the index itself.
  console().files.load("show", write("y.qsh", {"PAT"}));
  EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + path("y.qsh") +
                           ", line 1: line shorter than its keyword");
}

TEST_F(ShowBundleTest, ASaveThatCannotBeWrittenLeavesTheOldFilesWhole) {
  const std::string p = path("keep.qsh");
  ASSERT_TRUE(console().files.save("show", p));
  const auto files = companions(path("keep"));
  v().ShowName = "changed";
  // A companion's place taken by a folder: that save fails and the index is not rewritten.
  std::filesystem::remove(path("keep.qcl"));
  std::filesystem::create_directory(path("keep.qcl"));
  console().files.save("show", p);
  EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error saving file : " + path("keep.qcl") + ", is a folder");
  EXPECT_EQ(read(p), files[0]);
  for (const auto& e : std::filesystem::directory_iterator(home()))
    EXPECT_EQ(e.path().filename().string().find(".~"), std::string::npos) << e.path();
  console().files.save("show", "abc");
  EXPECT_EQ(lastBox(),
            "MSGBOX ERROR | Error saving file : abc, file name shorter than four characters");
}

TEST_F(ShowBundleTest, RecentListFillsDownwardsThenShiftsBelowItsFirstEntry) {
  auto captions = [&] {
    std::vector<std::string> c;
    for (int i = 0; i < 5; ++i) c.push_back(form1().mnuRecent(i).caption());
    return c;
  };
  ShowFiles& files = console().files;
  for (const char* n : {"a.qsh", "b.qsh", "a.qsh", "c.qsh", "d.qsh", "e.qsh"}) files.AddRecent(n);
  EXPECT_EQ(captions(), (std::vector<std::string>{"a.qsh", "b.qsh", "c.qsh", "d.qsh", "e.qsh"}));
  EXPECT_TRUE(form1().mnuRecent(4).visible());
  // Full: slot 0 stays, the rest shift, and slot 1 takes the chooser's last name.
  console().CDialog1.FileName = "chooser.qsm";
  files.AddRecent("f.qsh");
  EXPECT_EQ(captions(),
            (std::vector<std::string>{"a.qsh", "chooser.qsm", "b.qsh", "c.qsh", "d.qsh"}));
  EXPECT_EQ(console().settings.ini().read("Recent", "Snap1", ""), "chooser.qsm");
  // A cancelled open on a full list blanks slot 1, which isn't written.
  form1().menu("mnuOpen").click();
  EXPECT_EQ(captions()[1], "");
  EXPECT_EQ(console().settings.ini().read("Recent", "Snap1", ""), "chooser.qsm");
}

TEST_F(ShowBundleTest, OpenLoadsByLowerCaseExtensionAndRecentKeepsItsOwnBox) {
  const std::string good = write("g.qsm", {"SHOW:Good"});
  dialogs.queueAnswer(good);
  form1().menu("mnuOpen").click();
  EXPECT_EQ(get("ShowName"), "Good");
  EXPECT_EQ(form1().mnuRecent(0).caption(), good);
  const std::string upper = write("U.QSM", {"SHOW:Upper"});
  dialogs.queueAnswer(upper);
  form1().menu("mnuOpen").click();
  EXPECT_EQ(get("ShowName"), "Good");  // not loaded, but listed
  EXPECT_EQ(form1().mnuRecent(1).caption(), upper);
  // The recent entry folds case, and its box shows the caption alone.
  form1().mnuRecent(1).click();
  EXPECT_EQ(get("ShowName"), "Upper");
  write("U.QSM", {"SUB:99", "NAME:x"});
  form1().mnuRecent(1).click();
  EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + upper);
  // A failed open shows the detailed box and leaves the list alone.
  dialogs.queueAnswer(path("gone.qsh"));
  form1().menu("mnuOpen").click();
  EXPECT_EQ(lastBox(),
            "MSGBOX ERROR | Error loading file : " + path("gone.qsh") + ", file not found");
  EXPECT_EQ(form1().mnuRecent(2).caption(), "");
}

TEST_F(ShowBundleTest, DropsOnTheMainWindowGoByTheLastThreeLetters) {
  ShowFiles& files = console().files;
  v().EditColumn = 6;
  files.dropOnForm1(write("a.qch", {"CHAN:4a40,"}));
  EXPECT_EQ(v().chan(4, 5), 40);
  files.dropOnForm1(write("b.qcl", {"MEM:1"}));
  EXPECT_EQ(get("CueCount"), "1");
  files.dropOnForm1(write("c.QSM", {"SHOW:no"}));
  files.dropOnForm1(write("d.txt", {"SHOW:no"}));
  EXPECT_EQ(get("ShowName"), "Unnamed");
  EXPECT_EQ(form1().mnuRecent(0).caption(), "");
  files.dropOnForm1(write("e.qsm", {"SHOW:yes"}));
  EXPECT_EQ(get("ShowName"), "yes");
  EXPECT_EQ(form1().mnuRecent(0).caption(), path("e.qsm"));
  EXPECT_TRUE(dialogs.shown.empty()) << lastBox();
}

}  // namespace q::test

namespace q::test {

TEST_F(ShowBundleTest, SaveAsCutsFourCharactersWhateverTheyAreAndEntersTheRecentList) {
  dialogs.queueAnswer(path("abcdef"));
  form1().menu("mnuSaveAs").click();
  EXPECT_TRUE(std::filesystem::exists(path("abcdef")));  // the index under the full name
  EXPECT_TRUE(std::filesystem::exists(path("ab.qsm")));
  EXPECT_TRUE(std::filesystem::exists(path("ab1.qfx")));
  EXPECT_EQ(form1().mnuRecent(0).caption(), path("abcdef"));
  EXPECT_EQ(console().CDialog1.Filter, "Quintara Save File (*.Qsh)|*.qsh");
  // A cancelled chooser saves nothing.
  form1().menu("mnuSaveSubmastersAs").click();
  EXPECT_EQ(form1().mnuRecent(1).caption(), "");
  dialogs.queueAnswer(path("subs.qsm"));
  form1().menu("mnuSaveSubmastersAs").click();
  EXPECT_TRUE(std::filesystem::exists(path("subs.qsm")));
  EXPECT_EQ(form1().mnuRecent(1).caption(), path("subs.qsm"));
}

}  // namespace q::test
