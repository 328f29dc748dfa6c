// The cue properties: what the dialog shows of a row, when it writes what
// (buttons and scrollers at once, the fields on OK, Cancel undoing nothing),
// and the frame that follows the chosen function.

#include <gtest/gtest.h>

#include "cue_list_fixture.h"
#include "engine/core/console.h"
#include "engine/cuelist/cue_properties.h"

namespace q::test {
namespace {

class CueProperties : public CueListFixture {
 protected:
  // A double click on the CUE pane's row, as the operator opens it.
  CueProps& props(int row) {
    Cuewin& w = open();
    w.Picture3.mouseDown({MouseButton::Left, 0, (row - 1) * 255.0 + 10});
    w.Picture3.dblClick();
    return *console().windows.find<CueProps>("CueProps");
  }
  bool loaded() { return console().windows.find("CueProps") != nullptr; }
};

TEST_F(CueProperties, ShowsTheRowItWasOpenedOn) {
  addCue("1", "first");
  addCue("5", "Blue");
  setCue(2, cue::kFunction, std::string("7"));
  setCue(2, cue::kWaitUp, std::string("1"));
  setCue(2, cue::kUpTime, std::string("2"));
  setCue(2, cue::kWaitDown, std::string("3"));
  setCue(2, cue::kDownTime, std::string("4"));
  setCue(2, cue::kVar, std::string("Places please"));
  setCue(2, cue::kAutoGo, std::string("1"));
  setCue(2, cue::kPlayer1Action, std::string("3"));
  setCue(2, cue::kPlayer1Volume, std::string("200"));
  setCue(2, cue::kChaser1Action, std::string("2"));
  setCue(2, cue::kChaser2Level, std::string("40"));
  CueProps& p = props(2);
  EXPECT_EQ(p.caption(), "Cue Properties");
  EXPECT_EQ(p.txtNum.text(), "5");
  EXPECT_EQ(p.txtName.text(), "Blue");
  EXPECT_EQ(p.txtWaitDown.text(), "3");
  EXPECT_EQ(p.txtVar.text(), "Places please");
  EXPECT_EQ(p.Combo1.text(), "Show message");
  EXPECT_EQ(p.txtFunc.text(), "7");
  EXPECT_TRUE(p.Frame2.visible());
  EXPECT_EQ(p.Frame2.caption(), "Message");
  EXPECT_FALSE(p.btn_Busca.visible());
  EXPECT_EQ(p.Check1.checked(), 1);
  EXPECT_EQ(p.Check2.checked(), 0);
  EXPECT_EQ(get("CueProps.ImagePause(0)"), "PauseOn");
  EXPECT_EQ(get("CueProps.ImagePlay(0)"), "PlayOff");
  EXPECT_EQ(get("CueProps.ImageStop(4)"), "StopOn");
  EXPECT_EQ(p.MpActive(0).checked(), 1);
  EXPECT_EQ(p.MpActive(1).checked(), 0);
  EXPECT_EQ(p.VolScroller(0).position(), 200);
  EXPECT_EQ(p.FXActive(0).checked(), 1);
  EXPECT_EQ(p.FXActive(1).checked(), 1);
  EXPECT_EQ(p.LevelScroller(1).position(), 40);
  EXPECT_EQ(p.Combo1.count(), 37);
  EXPECT_EQ(p.itemData().back(), 45);
}

TEST_F(CueProperties, EmptyTimesTakeTheCueInProgsAndARowPastTheListLengthensIt) {
  addCue("1", "a");
  console().fadeTimes.UpTime.setText("30");
  v().SelectedCue = 4;
  console().windows.load("CueProps").show();
  auto& p = *console().windows.find<CueProps>("CueProps");
  EXPECT_EQ(v().CueCount, 4);
  EXPECT_EQ(p.txtTimeUp.text(), "30");
  EXPECT_EQ(p.txtWaitUp.text(), "0");
  p.btn_Cancel.click();
  EXPECT_FALSE(loaded());
  EXPECT_EQ(v().CueCount, 4) << "Cancel doesn't undo it";
}

TEST_F(CueProperties, AFunctionNoRowCarriesKeepsItsNumberAndTheFrameAsItStood) {
  addCue("1", "a");
  setCue(1, cue::kFunction, std::string("5"));
  CueProps& p = props(1);
  EXPECT_EQ(p.Combo1.listIndex(), -1);
  EXPECT_EQ(p.txtFunc.text(), "5");
  EXPECT_TRUE(p.Frame2.visible());
  EXPECT_EQ(p.Frame2.caption(), "Variable");
}

TEST_F(CueProperties, TheFrameFollowsTheChosenFunctionAndOkKeepsAnArgumentItHides) {
  addCue("1", "a");
  setCue(1, cue::kFunction, std::string("6"));
  setCue(1, cue::kVar, std::string("run.sh"));
  CueProps& p = props(1);
  EXPECT_EQ(p.Frame2.caption(), "Filename");
  EXPECT_TRUE(p.btn_Busca.visible());
  p.Combo1.setListIndex(1);  // Jump
  EXPECT_EQ(p.Frame2.caption(), "Jump to cue number");
  EXPECT_FALSE(p.btn_Busca.visible());
  p.Combo1.setListIndex(0);  // Dimmers
  EXPECT_EQ(p.txtFunc.text(), "1");
  EXPECT_FALSE(p.Frame2.visible());
  p.btn_Ok.click();
  EXPECT_EQ(cue(1, cue::kFunction), "1");
  EXPECT_EQ(cue(1, cue::kVar), "run.sh");
}

TEST_F(CueProperties, OkWritesTheFieldsAsTextAndBothAutoMarks) {
  addCue("1", "a");
  addCue("2", "b");
  setCue(2, cue::kVar, std::string("old"));
  CueProps& p = props(2);
  p.txtNum.setText("2.5");
  p.txtName.setText("Moon, low");
  p.txtWaitUp.setText("abc");
  p.txtVar.setText("");
  p.Check1.setChecked(1);
  p.Check2.setChecked(1);
  p.btn_Ok.click();
  EXPECT_FALSE(loaded());
  EXPECT_EQ(cue(2, cue::kNumber), "2.5");
  EXPECT_EQ(cue(2, cue::kName), "Moon, low");
  EXPECT_EQ(cue(2, cue::kWaitUp), "abc");
  EXPECT_EQ(cue(2, cue::kVar), "old") << "an emptied box keeps the old argument";
  EXPECT_EQ(cue(2, cue::kAutoGo), "1");
  EXPECT_EQ(cue(1, cue::kAutoGo), "1") << "Auto Start is the Auto Go of the row before";
  // The first cue's Auto Start is row 0, outside every list.
  CueProps& first = props(1);
  EXPECT_EQ(first.Check1.checked(), 1);
  first.Check1.setChecked(0);
  first.Check2.setChecked(1);
  first.btn_Ok.click();
  EXPECT_EQ(cue(1, cue::kAutoGo), "");
  EXPECT_EQ(cue(0, cue::kAutoGo), "1");
}

TEST_F(CueProperties, AnEmptyNumberIsRefusedAndTheDialogStays) {
  addCue("1", "a");
  CueProps& p = props(1);
  p.txtNum.setText("");
  p.txtName.setText("changed");
  p.btn_Ok.click();
  EXPECT_EQ(dialogs.shown, (std::vector<std::string>{"MSGBOX Error | Invalid Cue Number"}));
  EXPECT_TRUE(loaded());
  EXPECT_EQ(cue(1, cue::kName), "a");
  EXPECT_EQ(cue(1, cue::kNumber), "1");
}

TEST_F(CueProperties, TheButtonsWriteTheirActionAtOnceAndASecondClickClearsIt) {
  addCue("1", "a");
  CueProps& p = props(1);
  p.ImagePlay(0).click();
  EXPECT_EQ(cue(1, cue::kPlayer1Action), "1");
  EXPECT_EQ(p.ImagePlay(0).picture(), "PlayOn");
  p.ImagePause(0).click();
  EXPECT_EQ(cue(1, cue::kPlayer1Action), "3");
  EXPECT_EQ(p.ImagePlay(0).picture(), "PlayOff");
  EXPECT_EQ(p.ImagePause(0).picture(), "PauseOn");
  p.ImagePause(0).click();
  EXPECT_EQ(cue(1, cue::kPlayer1Action), "");
  EXPECT_EQ(p.ImagePause(0).picture(), "PauseOff");
  EXPECT_EQ(p.MpActive(0).checked(), 0) << "a click doesn't tick the box";
  p.ImageStop(5).click();
  EXPECT_EQ(cue(1, cue::kChaser2Action), "2");
  p.ImagePlay(3).click();
  EXPECT_EQ(cue(1, cue::kPlayer2Action), "1");
  // A value the buttons don't know leaves everything as it is.
  setCue(1, cue::kPlayer1Action, std::string("7"));
  p.ImagePlay(0).click();
  EXPECT_EQ(cue(1, cue::kPlayer1Action), "7");
  // Cancel undoes nothing.
  p.btn_Cancel.click();
  EXPECT_EQ(cue(1, cue::kChaser2Action), "2");
}

TEST_F(CueProperties, ScrollersWriteAtOnceAndOkKeepsOrEmptiesEachGroupByItsBox) {
  addCue("1", "a");
  CueProps& p = props(1);
  p.VolScroller(0).setPosition(100);
  EXPECT_EQ(cue(1, cue::kPlayer1Volume), "100");
  EXPECT_EQ(p.MpActive(0).checked(), 1);
  // Player 2's volume ticks player 1's box; alone it is emptied again by OK.
  p.VolScroller(1).setPosition(50);
  EXPECT_EQ(cue(1, cue::kPlayer2Volume), "50");
  EXPECT_EQ(p.MpActive(1).checked(), 0);
  p.SpeedScroller(1).setPosition(9);
  EXPECT_EQ(p.FXActive(1).checked(), 1);
  p.LevelScroller(0).setPosition(30);
  p.FXActive(0).setChecked(0);  // unticked after a move
  p.btn_Ok.click();
  EXPECT_EQ(cue(1, cue::kPlayer1Volume), "100");
  EXPECT_EQ(cue(1, cue::kPlayer1Balance), "0");
  EXPECT_EQ(cue(1, cue::kPlayer2Volume), "");
  EXPECT_EQ(cue(1, cue::kChaser2Level), "0");
  EXPECT_EQ(cue(1, cue::kChaser2Speed), "9");
  EXPECT_EQ(cue(1, cue::kChaser1Level), "");
  EXPECT_EQ(cue(1, cue::kChaser1Speed), "");
}

TEST_F(CueProperties, CancelAfterAMoveLeavesTheNewValue) {
  addCue("1", "a");
  CueProps& p = props(1);
  p.PanScroller(1).setPosition(127);
  p.btn_Cancel.click();
  EXPECT_EQ(cue(1, cue::kPlayer2Balance), "127");
}

TEST_F(CueProperties, BrowsingPutsTheChosenFileInTheArgument) {
  addCue("1", "a");
  setCue(1, cue::kFunction, std::string("31"));
  CueProps& p = props(1);
  dialogs.queueAnswer("/shows/intro.mp3");
  p.btn_Busca.click();
  EXPECT_EQ(p.txtVar.text(), "/shows/intro.mp3");
}

TEST_F(CueProperties, WritesGoToTheRowSelectedAtTheMoment) {
  addCue("1", "a");
  addCue("2", "b");
  CueProps& p = props(1);
  open().Picture3.mouseDown({MouseButton::Left, 0, 300});
  p.txtName.setText("renamed");
  p.btn_Ok.click();
  EXPECT_EQ(cue(2, cue::kName), "renamed");
  EXPECT_EQ(cue(2, cue::kNumber), "1");
  EXPECT_EQ(cue(1, cue::kName), "a");
}

TEST_F(CueProperties, ValuesAScrollerCannotShowAreToldOnceAndLeftOut) {
  addCue("1", "a");
  setCue(1, cue::kPlayer1Volume, std::string("300"));
  setCue(1, cue::kChaser1Speed, std::string("fast"));
  CueProps& p = props(1);
  EXPECT_EQ(p.VolScroller(0).position(), 0);
  EXPECT_EQ(p.MpActive(0).checked(), 1);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX Cue Properties | Values a scroller cannot show were left out:\n"
            "CueProps.VolScroller(0): 300\nCueProps.SpeedScroller(0): fast");
}

}  // namespace
}  // namespace q::test
