// The memory panels: saving looks as cues, loading cues by number into Stage
// and Prog, and the pass from Prog to Stage.

#include "playback_fixture.h"

namespace q::test {

class MemoriesTest : public PlaybackFixture {
 protected:
  Memories& mem() { return console().memories; }
  std::string cell(int row, int col) {
    return get("Cues(" + std::to_string(row) + "," + std::to_string(col) + ")");
  }
  void answer(std::initializer_list<const char*> as) {
    for (auto a : as) dialogs.queueAnswer(a);
  }
};

TEST_F(MemoriesTest, ProgSavePromptsForEmptyBoxesAndStoresTextsTimesAndNonZeroLevels) {
  v().chan(1, kProgColumn) = 100;
  v().chan(3, kProgColumn) = 255;
  v().chan(129, kProgColumn) = 9;  // above MaxChans
  type("WupTime", "5");
  type("DownTime", "2.5");
  answer({"7", "Intro"});
  press("ProgMemSave");
  EXPECT_EQ(dialogs.shown,
            (std::vector<std::string>{"INPUTBOX Save output to cuelist | Save as Cue Number | 1",
                                      "INPUTBOX Save output to cuelist | Cue Name? | "}));
  EXPECT_EQ(get("CueCount"), "1");
  EXPECT_EQ(cell(1, cue::kNumber), "7");
  EXPECT_EQ(cell(1, cue::kFunction), "1");
  EXPECT_EQ(cell(1, cue::kName), "Intro");
  EXPECT_EQ(cell(1, cue::kWaitUp), "5");
  EXPECT_EQ(cell(1, cue::kDownTime), "2.5");
  EXPECT_EQ(cell(1, 1), "100");
  EXPECT_TRUE(v().Cues.cellIsEmpty(1, 2));  // a zero level is left empty
  EXPECT_EQ(cell(1, 3), "255");
  EXPECT_EQ(cell(1, 129), "");

  // With the boxes filled no prompt comes; the same number asks before overwriting.
  dialogs.shown.clear();
  v().chan(1, kProgColumn) = 0;
  answer({"Yes"});
  press("ProgMemSave");
  EXPECT_EQ(dialogs.shown,
            (std::vector<std::string>{"MSGBOX Caution | This cue already exist. Overwrite ?"}));
  EXPECT_EQ(get("CueCount"), "1");
  EXPECT_TRUE(v().Cues.cellIsEmpty(1, 1));
}

TEST_F(MemoriesTest, DuplicateNumbersAskOncePerRowAndANoAppends) {
  addCue({.number = "5", .levels = {{1, 1}}});
  addCue({.number = "6"});
  addCue({.number = "5", .levels = {{1, 3}}});
  type("PROGMem", "5");
  type("PROGName", "again");
  answer({"No", "No"});
  press("ProgMemSave");
  EXPECT_EQ(dialogs.shown.size(), 2u);
  EXPECT_EQ(get("CueCount"), "4");
  EXPECT_EQ(cell(4, cue::kNumber), "5");

  dialogs.shown.clear();
  v().chan(1, kProgColumn) = 42;
  answer({"No", "Yes"});
  press("ProgMemSave");
  EXPECT_EQ(dialogs.shown.size(), 2u);
  EXPECT_EQ(get("CueCount"), "4");
  EXPECT_EQ(cell(3, 1), "42");
  EXPECT_EQ(cell(1, 1), "1");
}

TEST_F(MemoriesTest, OverwriteKeepsTheRowsOtherFieldsAndChannelsAboveMaxChans) {
  addCue({.number = "2", .levels = {{1, 10}, {200, 50}}});
  setCell(1, cue::kVar, "song.wav");
  setCell(1, cue::kPlayer1Action, "1");
  type("PROGMem", "2");
  type("PROGName", "n");
  answer({"Yes"});
  press("ProgMemSave");
  EXPECT_EQ(cell(1, cue::kVar), "song.wav");
  EXPECT_EQ(cell(1, cue::kPlayer1Action), "1");
  EXPECT_EQ(cell(1, 200), "50");
  EXPECT_EQ(cell(1, 1), "");
}

TEST_F(MemoriesTest, StageSaveRecordsTheMixAsItLeavesTheMixer) {
  v().chan(1, kStageColumn) = 7;
  v().MixBuffer[0] = 123;  // submasters and chasers included
  v().MixBuffer[1] = 0;
  v().chan(2, kStageColumn) = 80;
  answer({"", ""});  // Cancel twice: the save goes on with empty texts
  press("StageMemSave");
  EXPECT_EQ(dialogs.shown.front(), "INPUTBOX Save output to cuelist | Save as Cue Number | 1");
  EXPECT_EQ(get("CueCount"), "1");
  EXPECT_EQ(cell(1, 1), "123");
  EXPECT_EQ(cell(1, 2), "");
  EXPECT_EQ(cell(1, cue::kNumber), "");
}

TEST_F(MemoriesTest, ProgLoadByNumberTakesTheLastMatchAndNeedsNoNewMix) {
  addCue({.number = "5", .levels = {{1, 11}, {2, 22}}});
  addCue({.number = "05",
          .wu = "3",
          .u = "4",
          .wd = "",
          .d = "9",
          .levels = {{1, 33}},
          .name = "second"});
  v().chan(2, kProgColumn) = 99;
  v().MixDirty = kFalse;
  answer({"05"});
  press("ProgMemLoad");
  EXPECT_EQ(dialogs.shown.front(), "INPUTBOX Load cue in Prog | Cue number ?  | 1");
  EXPECT_EQ(get("PROGMem"), "5");  // the number as converted
  EXPECT_EQ(get("PROGName"), "second");
  EXPECT_EQ(get("NextCue"), "2");
  EXPECT_EQ(get("WupTime"), "3");
  EXPECT_EQ(get("WdownTime"), "");
  EXPECT_EQ(prog(1), 33);
  EXPECT_EQ(prog(2), 0);  // empty loads as 0
  EXPECT_EQ(get("MixDirty"), "0");
  EXPECT_EQ(get("picTimes.ScaleWidth"), "9");
}

TEST_F(MemoriesTest, LoadAnswersThatAreNoNumberOrMatchNothingChangeNothing) {
  addCue({.number = "1", .levels = {{1, 50}}});
  for (const char* a : {"", "abc", "70000", "2"}) {
    answer({a});
    press("ProgMemLoad");
    answer({a});
    press("StageMemLoad");
  }
  EXPECT_EQ(get("NextCue"), "0");
  EXPECT_EQ(get("PROGMem"), "");
  EXPECT_EQ(get("STAGEMem"), "");
  EXPECT_EQ(prog(1), 0);
  EXPECT_EQ(stage(1), 0);
  EXPECT_EQ(dialogs.shown.size(), 8u);  // only the prompts, never an error box
}

TEST_F(MemoriesTest, StageLoadByNumberRunsTheCueActionsAtOnce) {
  addCue({.number = "3", .wu = "8", .levels = {{4, 44}}, .name = "Front"});
  setCell(1, cue::kPlayer1Action, "1");
  setCell(1, cue::kChaser2Level, "12");
  v().MixDirty = kFalse;
  answer({"3"});
  press("StageMemLoad");
  EXPECT_EQ(dialogs.shown.front(), "INPUTBOX Load cue in Stage | Cue number ?  | 1");
  EXPECT_EQ(get("STAGEMem"), "3");
  EXPECT_EQ(get("STAGEName"), "Front");
  EXPECT_EQ(stage(4), 44);
  EXPECT_EQ(player1.calls, std::vector<std::string>{"play"});
  EXPECT_EQ(v().FX2Level, 12);
  EXPECT_EQ(get("MixDirty"), "-1");
  EXPECT_EQ(get("NextCue"), "0");
  EXPECT_EQ(get("WupTime"), "0");
}

TEST_F(MemoriesTest, WhatEachFunctionShowsInProg) {
  addCue({.number = "1", .levels = {{1, 10}}});
  const int f4 = addCue({.number = "4", .function = "4", .u = "6", .levels = {{1, 40}}});
  const int f2 = addCue({.number = "2", .function = "02", .u = "7"});
  const int f31 = addCue({.number = "31", .function = "31", .u = "8"});
  const int none = addCue({.number = "9", .function = "", .u = "9"});
  mem().LoadCueinProg(1);
  mem().LoadCueinProg(f4);  // number, name and times; no levels
  EXPECT_EQ(get("PROGMem"), "4");
  EXPECT_EQ(get("UpTime"), "6");
  EXPECT_EQ(prog(1), 10);
  std::vector<std::pair<long, int>> loads;
  mem().loadPlayerCue = [&](long row, int player) { loads.emplace_back(row, player); };
  for (int row : {f2, f31, none}) mem().LoadCueinProg(row);  // nothing to show
  EXPECT_EQ(get("PROGMem"), "4");
  EXPECT_EQ(get("UpTime"), "6");
  // A player load cue is handed to the cue functions.
  EXPECT_EQ(loads, (std::vector<std::pair<long, int>>{{f31, 0}}));
}

TEST_F(MemoriesTest, PassCopiesProgOnlyForCuesWithLevelsAndAlwaysMovesOn) {
  addCue({.number = "1"});
  const int msg = addCue({.number = "2", .function = "07"});
  v().MaxChans = 20;
  v().chan(1, kProgColumn) = 60;
  v().chan(21, kProgColumn) = 61;
  mem().setNextCue(1);
  type("PROGMem", "1");
  type("PROGName", "one");
  v().StageLevel = 3;
  v().ProgLevel = 200;
  mem().PassaPrograma();
  EXPECT_EQ(stage(1), 60);
  EXPECT_EQ(stage(21), 0);  // above MaxChans
  EXPECT_EQ(levels(), std::make_pair(255, 0));
  EXPECT_EQ(get("STAGEMem"), "1");
  EXPECT_EQ(get("STAGEName"), "one");
  EXPECT_EQ(get("NextCue"), "2");
  EXPECT_EQ(get("PROGMem"), "2");  // a message cue shows its number

  std::vector<long> passed;
  mem().passFunction = [&](long row, const Value& f) {
    passed.push_back(row);
    EXPECT_TRUE(cellEquals(f, 7));
  };
  v().chan(1, kProgColumn) = 90;
  mem().PassaPrograma();
  EXPECT_EQ(passed, std::vector<long>{msg});
  EXPECT_EQ(stage(1), 60);  // a function cue leaves Stage alone
  EXPECT_EQ(get("NextCue"), "3");
}

TEST_F(MemoriesTest, GoRunsOnThroughAFunctionCueToTheNextMemoryCue) {
  addCue({.number = "1", .levels = {{1, 10}}});
  addCue({.number = "2", .function = "7", .name = "say"});
  addCue({.number = "3", .u = "2", .d = "2", .levels = {{1, 30}}});
  std::vector<long> passed;
  mem().passFunction = [&](long row, const Value&) { passed.push_back(row); };
  go();
  tick();
  tick();  // cue 1 played; the message cue waits in Prog
  EXPECT_EQ(get("PROGName"), "say");
  EXPECT_FALSE(fading());
  go();
  tick();                                        // the message cue passes on a tick of its own
  EXPECT_EQ(passed, (std::vector<long>{0, 2}));  // the empty row 0 of the first GO too
  EXPECT_EQ(get("NextCue"), "3");
  EXPECT_TRUE(fading());
  tick();
  tick();
  EXPECT_EQ(stage(1), 30);
  EXPECT_FALSE(fading());
}

TEST_F(MemoriesTest, RecallFromTheCueListLeavesNextCueAndTimes) {
  addCue({.number = "8", .u = "5", .levels = {{1, 80}}, .name = "eight"});
  v().MixDirty = kFalse;
  mem().loadStage(1);
  EXPECT_EQ(get("STAGEMem"), "8");
  EXPECT_EQ(stage(1), 80);
  EXPECT_EQ(get("MixDirty"), "0");  // the output follows at the next change
  mem().loadInProg(1);
  EXPECT_EQ(get("PROGName"), "eight");
  EXPECT_EQ(prog(1), 80);
  EXPECT_EQ(get("NextCue"), "0");
  EXPECT_EQ(get("UpTime"), "0");
}

}  // namespace q::test
