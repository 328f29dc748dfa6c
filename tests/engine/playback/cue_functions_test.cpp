// Function cues met by playback: what each does as it leaves Prog, and the
// player load cues that pass through Prog as they come up.

#include <fstream>

#include "playback_fixture.h"

namespace q::test {

class RecordingLauncher : public ProcessLauncher {
 public:
  bool start(const std::string& commandLine, std::string& why) override {
    started.push_back(commandLine);
    why = "no such program";
    return !commandLine.empty();
  }
  std::vector<std::string> started;
};

class CueFunctionsTest : public PlaybackFixture {
 protected:
  CueFunctionsTest() { processes = &launcher; }
  // A function row between memory cues 1 and 3; GO runs cue 1's fade and
  // stops with the function row in Prog, the next GO passes it.
  int functionRow(const std::string& function, const std::string& var = "") {
    addCue({.number = "1", .levels = {{1, 255}}});
    const int row = addCue({.number = "2", .function = function});
    if (!var.empty()) setCell(row, cue::kVar, var);
    addCue({.number = "3", .levels = {{2, 200}}});
    go();
    tick();  // row 0 passes, cue 1 comes into Prog
    tick();  // cue 1's fade, all times 0: the row comes into Prog and the clock stops
    return row;
  }
  // Back to an empty list with nothing in Prog, for the next case of a loop.
  void restart() {
    wipeCues(v());
    form1().MemTimer.setRunning(false);
    console().memories.setNextCue(0);
  }
  void passIt() {
    go();
    tick();
  }
  RecordingLauncher launcher;
};

TEST_F(CueFunctionsTest, JumpAndSubLevelChangeOnlyPassTheRow) {
  for (const char* f : {"02", "8", "35", "45", "99", "abc"}) {
    SCOPED_TRACE(f);
    restart();
    form1().Fader(3).setPosition(255);
    functionRow(f, "5");
    passIt();
    EXPECT_EQ(get("NextCue"), "3");  // row + 1 follows, no jump to 5
    EXPECT_EQ(form1().Fader(3).position(), 255);
    EXPECT_EQ(stage(1), 255);  // the Stage column is left alone
  }
}

TEST_F(CueFunctionsTest, FunctionRowRunsOnItsOwnTickAndTheNextMemoryCueFadesWithoutGo) {
  functionRow("7", "Curtain!");
  EXPECT_FALSE(fading());
  passIt();
  EXPECT_EQ(dialogs.shown, std::vector<std::string>{"MSGBOX  | Curtain!"});
  EXPECT_TRUE(fading());  // the box doesn't stop the clock
  tick();
  EXPECT_EQ(stage(2), 200);
  EXPECT_EQ(get("NextCue"), "4");
}

TEST_F(CueFunctionsTest, LevelChangeSetsTheStripsFromTheFirstTwentyColumns) {
  const int row = functionRow("4");
  v().Cues.setCell(int16_t(row), 1, uint8_t(10));
  v().Cues.setCell(int16_t(row), 2, uint8_t(20));
  setCell(row, 3, "30");
  setCell(row, 4, "300");  // no fader position shows it: that strip stays
  form1().Fader(6).setPosition(100);
  form1().Fader(7).setPosition(100);
  passIt();
  EXPECT_EQ(get("SubLevel(1)"), "10");
  EXPECT_EQ(get("SubLevel(3)"), "30");
  EXPECT_EQ(form1().Fader(6).position(), 100);
  EXPECT_EQ(form1().Fader(7).position(), 255);  // an empty column is level 0
  EXPECT_EQ(get("SLevel(4)"), "08");            // the strip's own handling ran
}

TEST_F(CueFunctionsTest, ProgramSubRecordsTheRowIntoItsSubmasterColumn) {
  const int row = functionRow("25");
  v().Cues.setCell(int16_t(row), 7, uint8_t(200));
  v().chan(8, 16) = 99;   // submaster 15 is column 16: cleared, the row has no level there
  v().chan(129, 16) = 5;  // above MaxChans: kept
  v().MixDirty = kFalse;
  passIt();
  EXPECT_EQ(v().chan(7, 16), 200);
  EXPECT_EQ(v().chan(8, 16), 0);
  EXPECT_EQ(v().chan(129, 16), 5);
  EXPECT_EQ(get("MixDirty"), "-1");
}

// Only a hand-edited file holds a function between two whole numbers: inside
// the program-sub run it programs a submaster, elsewhere it does nothing.
TEST_F(CueFunctionsTest, AFunctionBetweenWholeNumbersActsOnlyInsideTheProgramSubRun) {
  const int row = functionRow("12.5");
  v().Cues.setCell(int16_t(row), 1, uint8_t(77));
  EXPECT_EQ(get("PROGMem"), "2");
  passIt();
  EXPECT_EQ(v().chan(1, 4), 77) << "12.5 - 9 rounds half to even: submaster 3";
  restart();
  functionRow("32.5");
  EXPECT_EQ(get("PROGMem"), "2") << "shown in Prog like the players' 32 to 35";
  passIt();
  EXPECT_TRUE(player1.calls.empty());
}

TEST_F(CueFunctionsTest, FileFunctionsLoadAndAFailureIsShownWhilePlaybackGoesOn) {
  const std::string subs = path("look.qsm");
  std::ofstream(subs) << "SUB:2\r\nNAME:from cue\r\n";
  functionRow("03", subs);
  passIt();
  EXPECT_EQ(form1().Slabel(4).text(), "from cue");

  restart();
  v().EditColumn = 2;
  functionRow("9", path("missing.qch"));
  passIt();
  EXPECT_EQ(dialogs.shown.back(),
            "MSGBOX ERROR | Error loading file : " + path("missing.qch") + ", file not found");
  EXPECT_TRUE(fading());
  tick();
  EXPECT_EQ(stage(2), 200);
}

TEST_F(CueFunctionsTest, RunProgramStartsWithoutWaitingAndAFailedStartIsShown) {
  functionRow("6", "xdg-open \"my file.pdf\"");
  passIt();
  EXPECT_EQ(launcher.started, std::vector<std::string>{"xdg-open \"my file.pdf\""});
  EXPECT_TRUE(fading());
  restart();
  functionRow("06");
  passIt();
  ASSERT_EQ(launcher.started.size(), 2u);
  EXPECT_EQ(dialogs.shown.back(), "MSGBOX ERROR | Error starting program : , no such program");
}

TEST_F(CueFunctionsTest, PlayerFunctionsDriveThePlayersUnconditionally) {
  player1.isReady = false;
  for (const char* f : {"32", "33", "34", "42", "43", "44"}) {
    restart();
    functionRow(f);
    passIt();
  }
  EXPECT_EQ(player1.calls, (std::vector<std::string>{"play", "pause", "stop"}));
  EXPECT_EQ(player2.calls, (std::vector<std::string>{"play", "pause", "stop"}));
}

TEST_F(CueFunctionsTest, LoadCuesLoadThePlayersAsTheyComeUpAndPassOnToTheMemoryCue) {
  addCue({.number = "1", .levels = {{1, 255}}});
  const int a = addCue({.number = "2", .function = "31"});
  const int b = addCue({.number = "3", .function = "41"});
  addCue({.number = "4", .levels = {{3, 50}}});
  setCell(a, cue::kVar, "one.wav");
  setCell(b, cue::kVar, "two.wav");
  go();
  tick();
  tick();  // cue 1 on Stage; the two load cues are walked through at once
  EXPECT_EQ(player1.calls, std::vector<std::string>{"file one.wav"});
  EXPECT_EQ(player2.calls, std::vector<std::string>{"file two.wav"});
  EXPECT_TRUE(player1.visible() && player2.visible());
  EXPECT_EQ(get("NextCue"), "4");
  EXPECT_EQ(get("PROGMem"), "4");
  EXPECT_EQ(prog(3), 50);
}

TEST_F(CueFunctionsTest, ALongRunOfLoadCuesDoesNotRecurse) {
  addCue({.number = "1"});
  for (int i = 0; i < 20000; ++i) addCue({.number = "x", .function = i % 2 ? "41" : "31"});
  addCue({.number = "end", .levels = {{1, 9}}});
  go();
  tick();
  EXPECT_EQ(get("NextCue"), "1");
  tick();
  EXPECT_EQ(get("NextCue"), "20002");
  EXPECT_EQ(prog(1), 9);
}

}  // namespace q::test
