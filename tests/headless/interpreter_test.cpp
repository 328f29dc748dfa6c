#include <gtest/gtest.h>

#include "headless/interpreter_fixture.h"

namespace q::test {

namespace {

// --- what `get` and `dmx` print --------------------------------------------

TEST_F(InterpreterTest, GetPrintsVariablesControlsAndPropertiesByConsoleName) {
  EXPECT_EQ(run("get GrandMaster"), "GrandMaster = 255\n");
  EXPECT_EQ(run("get ShowName"), "ShowName = Unnamed\n");
  EXPECT_EQ(run("get SMaster"), "SMaster = 0\n");
  EXPECT_EQ(run("get Fader(3)"), "Fader(3) = 255\n");
  EXPECT_EQ(run("get FaderFunc(3)"), "FaderFunc(3) = SUB\n");
  EXPECT_EQ(run("get mnuValue(0)"), "mnuValue(0) = -1\n");
  EXPECT_EQ(run("get mnuValue(1)"), "mnuValue(1) = 0\n");
  EXPECT_EQ(run("get mnuFile.Caption"), "mnuFile.Caption = File\n");
  EXPECT_EQ(run("get mnuRecent(0).Visible"), "mnuRecent(0).Visible = 0\n");
  EXPECT_EQ(run("get mnuNew.Enabled"), "mnuNew.Enabled = -1\n");
  EXPECT_EQ(run("get FXTimer(1)"), "FXTimer(1) = 0\n");
  EXPECT_EQ(run("get FXTimer(1).Interval"), "FXTimer(1).Interval = 1000\n");
}

TEST_F(InterpreterTest, EmptyValuesEndWithTheBlankAfterTheEqualsSign) {
  EXPECT_EQ(run("get Cues(3,521)"), "Cues(3,521) = \n");
  EXPECT_EQ(run("get FX1Data(1,1)"), "FX1Data(1,1) = \n");
  EXPECT_EQ(run("get Slabel(3)"), "Slabel(3) = \n");
}

TEST_F(InterpreterTest, TableCellsAndListsPrintTheirContent) {
  v().ChanTable[4][2] = 77;
  v().Cues.setCell(2, 520, Value(std::string("Act one")));
  auto& list = form1().add<ListBox>("TestList");
  list.addItem("SUBMASTER");
  list.addItem("BYPASS");
  auto& lamp = form1().add<Lamp>("TestLamp");
  lamp.setPicture("Led_On2");
  EXPECT_EQ(run("get ChanTable(5,2)"), "ChanTable(5,2) = 77\n");
  EXPECT_EQ(run("get Cues(2,520)"), "Cues(2,520) = Act one\n");
  EXPECT_EQ(run({"get TestList", "get TestList.Text"}), "TestList = -1\nTestList.Text = \n");
  EXPECT_EQ(run({"set TestList 1", "get TestList", "get TestList.Text"}),
            "TestList = 1\nTestList.Text = BYPASS\n");
  EXPECT_EQ(run("get TestLamp"), "TestLamp = Led_On2\n");
}

TEST_F(InterpreterTest, RealNumbersPrintWithAtMost15SignificantDigits) {
  v().Cues.setCell(3, 1, Value(12.75));
  v().Cues.setCell(3, 2, Value(-1.0 / 3));
  v().Player1Rate = 256.0 / 254;
  EXPECT_EQ(run({"get Cues(3,1)", "get Cues(3,2)", "get Player1Rate"}),
            "Cues(3,1) = 12.75\nCues(3,2) = -0.333333333333333\n"
            "Player1Rate = 1.00787401574803\n");
}

TEST_F(InterpreterTest, DmxPrintsTheOutgoingFrameOverTheAskedSlots) {
  v().DMXData[0] = 255;
  v().DMXData[1] = 7;
  v().DMXData[511] = 9;
  EXPECT_EQ(run("dmx 1 3"), "DMX 1-3: 255 7 0\n");
  EXPECT_EQ(run("dmx 512"), "DMX 512-512: 9\n");
  EXPECT_EQ(run("dmx 2 2"), "DMX 2-2: 7\n");
  const std::string all = run("dmx");
  EXPECT_EQ(all.rfind("DMX 1-512: 255 7 0 ", 0), 0u);
  EXPECT_EQ(std::count(all.begin(), all.end(), ' '), 512 + 1);
  EXPECT_EQ(all.substr(all.size() - 3), " 9\n");
}

// --- lines that are not understood -------------------------------------------

TEST_F(InterpreterTest, EveryBadLineGivesOneErrorLineAndTheRunGoesOn) {
  const std::vector<std::string> bad = {
      "frobnicate",
      "get",
      "get NoSuchName",
      "get ChanTable(513,0)",
      "get ChanTable(1,x)",
      "get SMaster.Interval",
      "press NoSuchControl",
      "set SMaster",
      "set SMaster 256",
      "set SMaster 99999999999999999999999",
      "set SMaster 1x",
      "set mnuFile 1",
      "type SMaster hello",
      "tick SMaster",
      "key SMaster",
      "key SMaster 300",
      "midi 176 7",
      "midi 176 7 256",
      "dmx 0",
      "dmx 5 4",
      "dmx 1 513",
      "dmx 1 2 3",
      "advance -1",
      "advance 1e3",
      "quit now",
      "press SMaster middle",
      "click SMaster left",
      "keydown",
  };
  for (const auto& line : bad) {
    SCOPED_TRACE(line);
    const int before = in().errorCount();
    const std::string out = run(line.c_str());
    EXPECT_EQ(out.rfind("ERROR line " + std::to_string(lineNo_) + ": ", 0), 0u) << out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1);
    EXPECT_EQ(in().errorCount(), before + 1);
  }
  EXPECT_EQ(run("get SMaster"), "SMaster = 0\n");
  EXPECT_FALSE(console().closed());
}

TEST_F(InterpreterTest, BlankLinesCommentsAndCrLfEndingsAreNotErrors) {
  EXPECT_EQ(run({"", "   ", "# a comment", "   # indented comment", "\t", "get MaxChans\r"}),
            "MaxChans = 128\n");
  EXPECT_EQ(in().errorCount(), 0);
}

TEST_F(InterpreterTest, ErrorLinesCarryTheNumberOfTheirLine) {
  EXPECT_EQ(run({"# header", "get GrandMaster", "bogus"}),
            "GrandMaster = 255\nERROR line 3: unknown command 'bogus'\n");
}

TEST_F(InterpreterTest, AHandlerThatThrowsBecomesAnErrorLine) {
  auto& b = form1().add<Lamp>("TestButton");
  b.onClick = [] { throw std::runtime_error("boom"); };
  const std::string out = run({"click TestButton", "get GrandMaster"});
  EXPECT_EQ(out, "ERROR line 1: click failed: boom\nGrandMaster = 255\n");
}

// A timer's handler that throws is a failure of the console, not of the
// script: it shows the failure box and the line stands.
TEST_F(InterpreterTest, ATickThatThrowsShowsTheFailureBox) {
  form1().FXTimer[0]->onTick = [] { throw std::runtime_error("boom"); };
  form1().FXTimer[0]->setInterval(100);
  form1().FXTimer[0]->setRunning(true);
  EXPECT_EQ(run({"tick FXTimer(0)", "advance 100", "get FXTimer(0)"}),
            "MSGBOX Quintara | FXTimer(0) failed: boom\n"
            "MSGBOX Quintara | FXTimer(0) failed: boom\nFXTimer(0) = -1\n");
  EXPECT_EQ(in().errorCount(), 0);
}

// --- acting on controls ------------------------------------------------------

TEST_F(InterpreterTest, PressDeliversDownUpThenClickWithTheButton) {
  auto& b = form1().add<Lamp>("TestButton");
  std::vector<std::string> log;
  b.onMouseDown = [&](MouseButton m) {
    log.push_back(m == MouseButton::Right ? "down-R" : "down-L");
  };
  b.onMouseUp = [&](MouseButton m) { log.push_back(m == MouseButton::Right ? "up-R" : "up-L"); };
  b.onClick = [&] { log.push_back("click"); };
  b.onDblClick = [&](MouseButton) { log.push_back("dbl"); };
  run({"press TestButton", "press TestButton right", "down TestButton", "up TestButton right",
       "click TestButton", "dblclick TestButton"});
  EXPECT_EQ(log, (std::vector<std::string>{"down-L", "up-L", "click", "down-R", "up-R", "click",
                                           "down-L", "up-R", "click", "dbl"}));
}

TEST_F(InterpreterTest, ADisabledControlTakesNoOperatorEvents) {
  auto& b = form1().add<Lamp>("TestButton");
  int events = 0;
  b.onMouseDown = [&](MouseButton) { ++events; };
  b.onClick = [&] { ++events; };
  b.onKeyPress = [&](int&) { ++events; };
  b.setEnabled(false);
  form1().SMaster.setEnabled(false);
  EXPECT_EQ(run({"press TestButton", "click TestButton", "key TestButton 13", "set SMaster 9"}),
            "");
  EXPECT_EQ(events, 0);
  EXPECT_EQ(form1().SMaster.position(), 0);
  // A press whose down handler disables the control ends there.
  b.setEnabled(true);
  b.onMouseDown = [&](MouseButton) { b.setEnabled(false); };
  run("press TestButton");
  EXPECT_EQ(events, 0);
}

TEST_F(InterpreterTest, SetMovesAFaderAndRunsItsChangeOnlyWhenItMoves) {
  int changes = 0;
  form1().SMaster.onChange = [&] { ++changes; };
  run({"set SMaster 0", "set SMaster 128", "set SMaster 128", "set SMaster +12"});
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(form1().SMaster.position(), 12);
  auto& check = form1().add<CheckBox>("TestCheck");
  int clicks = 0;
  check.onClick = [&] { ++clicks; };
  EXPECT_EQ(run({"set TestCheck 1", "get TestCheck"}), "TestCheck = 1\n");
  EXPECT_EQ(clicks, 1);
}

TEST_F(InterpreterTest, TypeTakesTheRestOfTheLineAsItStands) {
  auto& box = form1().add<TextBox>("TestBox", "old");
  std::vector<std::string> seen;
  box.onChange = [&] { seen.push_back(box.text()); };
  run({"type TestBox 1/10aff", "type TestBox  two  blanks ", "type TestBox"});
  EXPECT_EQ(seen, (std::vector<std::string>{"1/10aff", " two  blanks ", ""}));
  run("type TestBox x y");
  EXPECT_EQ(run("get TestBox"), "TestBox = x y\n");
}

TEST_F(InterpreterTest, KeysGoToTheControlOrToAWindowsOwnKeyHandler) {
  auto& box = form1().add<TextBox>("TestBox");
  std::vector<int> boxKeys;
  box.onKeyPress = [&](int& k) { boxKeys.push_back(k); };
  EXPECT_EQ(run({"key TestBox 65", "enter TestBox"}), "");
  EXPECT_EQ(boxKeys, (std::vector<int>{65, 13}));
  // The keypad is loaded by a key typed at it, and types into the command line.
  EXPECT_EQ(run({"key Tecles 49", "key Tecles 50"}), "");
  EXPECT_EQ(run("get Direct"), "Direct = 12\n");
}

TEST_F(InterpreterTest, DropGivesTheWholePathWithTheLeftButton) {
  auto& strip = form1().add<Lamp>("TestStrip");
  std::string got;
  MouseButton button = MouseButton::Right;
  strip.onDrop = [&](const std::string& p, MouseButton b) { got = p, button = b; };
  EXPECT_EQ(run("drop TestStrip /shows/my show.qsm"), "");
  EXPECT_EQ(got, "/shows/my show.qsm");
  EXPECT_EQ(button, MouseButton::Left);
}

// --- dialogs -------------------------------------------------------------------

TEST_F(InterpreterTest, BoxesArePrintedWhenTheyOpenAndAnsweredInOrder) {
  auto& b = form1().add<Lamp>("TestButton");
  std::vector<std::string> results;
  b.onClick = [&] {
    results.push_back(console().dialogs().inputBox("Title", "Prompt?", "12"));
    auto r = console().dialogs().msgBox("Box", "Sure?", MsgButtons::YesNo);
    results.push_back(r == MsgResult::Yes ? "Yes" : "No");
  };
  EXPECT_EQ(run({"answer 42 a", "answer No", "click TestButton", "click TestButton"}),
            "INPUTBOX Title | Prompt? | 12\nMSGBOX Box | Sure?\n"
            "INPUTBOX Title | Prompt? | 12\nMSGBOX Box | Sure?\n");
  // Unanswered: the input box is cancelled, the message box gets its first button.
  EXPECT_EQ(results, (std::vector<std::string>{"42 a", "No", "", "Yes"}));
}

TEST_F(InterpreterTest, QuitAsksAndClosesOnlyOnYes) {
  console().start();
  EXPECT_EQ(run({"answer No", "quit"}),
            "MSGBOX Confirmation | Are you sure you want to exit this program?\n");
  EXPECT_FALSE(console().closed());
  run("quit");
  EXPECT_TRUE(console().closed());
  EXPECT_EQ(in().errorCount(), 0);
}

// --- time ------------------------------------------------------------------------

TEST_F(InterpreterTest, AdvanceFiresDueTicksInTimeOrderAndTickFiresOneNow) {
  std::vector<std::string> log;
  auto stamp = [&](const char* what) {
    return [&, what] { log.push_back(std::string(what) + "@" + std::to_string(clock.nowMs())); };
  };
  Timer& mem = form1().MemTimer;
  Timer& fx = *form1().FXTimer[0];
  mem.onTick = stamp("mem");
  fx.onTick = stamp("fx");
  mem.setRunning(true);
  fx.setInterval(50);
  fx.setRunning(true);
  EXPECT_EQ(run("advance 150"), "");
  EXPECT_EQ(log, (std::vector<std::string>{"fx@50", "mem@100", "fx@100", "fx@150"}));
  log.clear();
  mem.setRunning(false);
  run({"tick MemTimer", "tick FXTimer(0)"});
  EXPECT_EQ(log, (std::vector<std::string>{"mem@150", "fx@150"}));
  EXPECT_EQ(clock.nowMs(), 150);
}

TEST_F(InterpreterTest, OutputFollowsTheOrderOfEvents) {
  // A tick that opens a box prints it between the lines of the commands around it.
  form1().MemTimer.onTick = [&] { console().dialogs().msgBox("Tick", "now"); };
  form1().MemTimer.setRunning(true);
  EXPECT_EQ(run({"get ProgLevel", "advance 100", "get ProgLevel"}),
            "ProgLevel = 0\nMSGBOX Tick | now\nProgLevel = 0\n");
}

}  // namespace
}  // namespace q::test
