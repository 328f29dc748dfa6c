// The chaser editors: what a press in the grid and in the step column does,
// the fader and flash on the selected cell, the Edit and File menus, the
// fence that keeps the load from writing back, the twin, and the mark of
// the step that plays.

#include <fstream>

#include "engine/chasers/chaser_editor.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class EditorTest : public ConsoleFixture {
 protected:
  // EDIT of the chaser, as the operator opens the editor.
  ChaserEditor& open(int chaser = 0) {
    control(indexed("btnFXConfig", chaser)).click();
    return *console().windows.find<ChaserEditor>(ChaserEditor::windowName(chaser));
  }
  // A left press in the middle of the cell of grid row r, column c.
  static void pressCell(ChaserEditor& e, int r, int c, MouseButton b = MouseButton::Left) {
    e.Picture1.mouseDown(MouseEvent(b, c * 400 + 200, r * 255 + 100));
  }
  std::string cell(int chaser, int step, int channel) {
    return toText(v().fxData(chaser).Cell(int16_t(step), int16_t(channel)));
  }
  void fill(int chaser, int step, int channel, int level) {
    v().fxData(chaser).setCell(int16_t(step), int16_t(channel), Value(uint8_t(level)));
  }
};

TEST_F(EditorTest, OpensFromEditBesideARunningChaser) {
  console().start();
  control("FXbutton(0)").mouseUp(MouseButton::Left);
  ChaserEditor& e = open(0);
  EXPECT_TRUE(e.isVisible());
  EXPECT_FALSE(e.isModal());
  EXPECT_EQ(e.caption(), "Chaser 1 Config");
  EXPECT_TRUE(form1().FXTimer[0]->isEnabled());
  EXPECT_EQ(get("FX1Config.lblTopLeft"), "Top: 1, Left: 1");
  EXPECT_EQ(e.ChkRandom.caption, "RANDOM MODE");
}

TEST_F(EditorTest, PressSelectsTheCellAndALeftPressBelowTheEndExtendsTheChaser) {
  v().FXStepCount[0] = 5;
  fill(0, 3, 4, 204);
  ChaserEditor& e = open();
  pressCell(e, 2, 3);
  EXPECT_EQ(e.txtStep.text(), "3");
  EXPECT_EQ(e.txtChannel.text(), "4");
  EXPECT_EQ(e.Fader.position(), 51);
  EXPECT_EQ(e.SLevel.caption(), "80");
  EXPECT_EQ(v().FXStepCount[0], 5);

  pressCell(e, 11, 0);  // row 12 of a five-step chaser
  EXPECT_EQ(v().FXStepCount[0], 12);
  pressCell(e, 15, 0, MouseButton::Right);  // the right button only selects
  EXPECT_EQ(v().FXStepCount[0], 12);
  EXPECT_EQ(e.txtStep.text(), "16");

  // Scrolled, the grid counts from its top row and left column.
  e.vscScroll.setPosition(10);
  e.hscScroll.setPosition(20);
  EXPECT_EQ(e.lblTopLeft.caption(), "Top: 10, Left: 20");
  pressCell(e, 0, 0);
  EXPECT_EQ(e.txtStep.text(), "10");
  EXPECT_EQ(e.txtChannel.text(), "20");
}

TEST_F(EditorTest, TheStepColumnShortensAndKeepsTheCellsBelow) {
  v().FXStepCount[0] = 6;
  fill(0, 5, 1, 100);
  ChaserEditor& e = open();
  e.Picture3.mouseDown(MouseEvent(MouseButton::Left, 100, 2 * 255 + 10));
  EXPECT_EQ(v().FXStepCount[0], 3);
  EXPECT_EQ(cell(0, 5, 1), "100");
  EXPECT_EQ(e.Picture3.cell(2, 0).backColor != e.Picture3.cell(3, 0).backColor, true);
}

TEST_F(EditorTest, RightPressOpensTheEditMenu) {
  ChaserEditor& e = open();
  std::string popped;
  e.onPopupMenu = [&](const std::string& m) { popped = m; };
  pressCell(e, 0, 0, MouseButton::Right);
  EXPECT_EQ(popped, "mnuEdit");
}

TEST_F(EditorTest, FaderWritesTheSelectedCellAndItsBottomEmptiesIt) {
  v().FXStepCount[0] = 2;
  ChaserEditor& e = open();
  pressCell(e, 1, 4);
  e.Fader.setPosition(254);
  EXPECT_EQ(cell(0, 2, 5), "1");
  EXPECT_EQ(e.Picture1.cell(1, 4).text, "1");
  e.Fader.setPosition(255);
  EXPECT_TRUE(isEmpty(v().FX1Data.Cell(2, 5)));
  EXPECT_EQ(e.Picture1.cell(1, 4).text, "");
  // A filled 0 from a file prints "0", unlike an empty cell.
  v().FX1Data.setCell(2, 6, Value(uint8_t(0)));
  EXPECT_EQ(e.Picture1.cell(1, 5).text, "0");
  // No handler of this window raises MixDirty.
  v().MixDirty = kFalse;
  e.Fader.setPosition(0);
  EXPECT_EQ(v().MixDirty, kFalse);
}

TEST_F(EditorTest, FlashAndDoubleClickToggleBetweenOffAndFull) {
  ChaserEditor& e = open();
  pressCell(e, 0, 0);
  e.Flash.click();
  EXPECT_EQ(cell(0, 1, 1), "255");
  e.Flash.click();
  EXPECT_EQ(cell(0, 1, 1), "");
  e.Fader.setPosition(128);  // 127, below half: the flash fills it
  e.Picture1.dblClick(MouseEvent(MouseButton::Left, 200, 100));
  EXPECT_EQ(cell(0, 1, 1), "255");
  e.Fader.setPosition(127);  // 128, at half or more: the flash empties it
  e.Flash.click();
  EXPECT_EQ(cell(0, 1, 1), "");
}

TEST_F(EditorTest, BoxesThatNameNoCellAreToldAndWriteNothing) {
  ChaserEditor& e = open();
  e.txtStep.setText("abc");
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0], "MSGBOX Chaser 1 Config | Type mismatch");
  e.txtStep.setText("");  // an empty box waits for a number
  EXPECT_EQ(dialogs.shown.size(), 1u);
  e.txtStep.setText("40000");
  EXPECT_EQ(dialogs.shown.back(), "MSGBOX Chaser 1 Config | Overflow");
  const uint64_t before = v().FX1Data.version();
  e.Fader.setPosition(10);
  EXPECT_EQ(v().FX1Data.version(), before);
  int key = 'x';
  e.txtStep.onKeyPress(key);
  EXPECT_EQ(key, 0);
  key = '7';
  e.txtStep.onKeyPress(key);
  EXPECT_EQ(key, '7');
}

TEST_F(EditorTest, ACountBeyondAByteIsToldAndNotStored) {
  v().FXStepCount[0] = 250;
  ChaserEditor& e = open();
  e.vscScroll.setPosition(50);
  e.Picture1.mouseDown(MouseEvent(MouseButton::Left, 10, 19 * 255 + 10));  // step 69: fits
  EXPECT_EQ(v().FXStepCount[0], 250);
  e.Picture3.mouseDown(MouseEvent(MouseButton::Left, 10, 300 * 255));
  EXPECT_EQ(dialogs.shown.back(), "MSGBOX Chaser 1 Config | Overflow");
  EXPECT_EQ(v().FXStepCount[0], 250);
}

TEST_F(EditorTest, InsertOpensAnEmptyStepAndMovesTheRestDown) {
  v().FXStepCount[0] = 3;
  for (int s = 1; s <= 3; ++s) fill(0, s, 1, s * 10);
  ChaserEditor& e = open();
  pressCell(e, 1, 0);
  control("FX1Config.mnuInsert").click();
  EXPECT_EQ(v().FXStepCount[0], 4);
  EXPECT_EQ(cell(0, 1, 1), "10");
  EXPECT_EQ(cell(0, 2, 1), "");
  EXPECT_EQ(cell(0, 3, 1), "20");
  EXPECT_EQ(cell(0, 4, 1), "30");
}

TEST_F(EditorTest, ClearEmptiesOneStepClearAllEveryStepAndNewEverythingWithItsCount) {
  v().FXStepCount[0] = 2;
  for (int s = 1; s <= 4; ++s) fill(0, s, 7, 99);
  ChaserEditor& e = open();
  pressCell(e, 1, 0);
  e.mnuClear();
  EXPECT_EQ(cell(0, 1, 7), "99");
  EXPECT_EQ(cell(0, 2, 7), "");
  fill(0, 2, 7, 99);
  e.mnuClearAll();
  EXPECT_EQ(cell(0, 1, 7), "");
  EXPECT_EQ(cell(0, 2, 7), "");
  EXPECT_EQ(cell(0, 3, 7), "99");  // beyond the count: kept
  EXPECT_EQ(v().FXStepCount[0], 2);
  e.mnuNew();
  EXPECT_EQ(cell(0, 3, 7), "");
  EXPECT_EQ(v().FXStepCount[0], 0);
}

TEST_F(EditorTest, LoadShowsTheChaserWithoutWritingItBack) {
  v().FX1Level = 100;
  form1().FXTimer[0]->setInterval(641);
  v().FXRandom[0] = kTrue;
  ChaserEditor& e = open();
  EXPECT_FALSE(e.EditorUpdating);
  EXPECT_EQ(e.SMaster.position(), 155);
  EXPECT_EQ(e.Label2.caption(), "39");
  EXPECT_EQ(e.ScSpeed.position(), 128);
  EXPECT_EQ(e.Label3.caption(), "50");
  EXPECT_EQ(e.ChkRandom.checked(), 1);
  EXPECT_EQ(v().FX1Level, 100);
  EXPECT_EQ(form1().FXTimer[0]->interval(), 641);  // not rounded to 128 x 5 + 1
  EXPECT_EQ(e.backColor, console().colors.SkinBackColor);
}

TEST_F(EditorTest, LevelSpeedAndRandomReachTheChaser) {
  ChaserEditor& e = open();
  e.SMaster.setPosition(55);
  EXPECT_EQ(v().FX1Level, 200);
  e.ScSpeed.setPosition(10);
  EXPECT_EQ(form1().FXTimer[0]->interval(), 51);
  EXPECT_EQ(e.Label3.caption(), "96");
  e.ChkRandom.setChecked(1);
  EXPECT_EQ(v().FXRandom[0], kTrue);
  // Under the fence nothing goes back.
  e.EditorUpdating = true;
  e.SMaster.setPosition(0);
  EXPECT_EQ(v().FX1Level, 200);
}

TEST_F(EditorTest, TheTwinEditsTheSecondChaser) {
  v().FX2Level = 0;
  ChaserEditor& e = open(1);
  EXPECT_EQ(e.caption(), "Chaser 2 Config");
  EXPECT_EQ(e.SMaster.position(), 255);
  pressCell(e, 3, 0);
  e.Flash.click();
  EXPECT_EQ(cell(1, 4, 1), "255");
  EXPECT_EQ(cell(0, 4, 1), "");
  EXPECT_EQ(v().FXStepCount[1], 4);
  EXPECT_EQ(v().FXStepCount[0], 0);
  e.ScSpeed.setPosition(0);
  EXPECT_EQ(form1().FXTimer[1]->interval(), 1);
  EXPECT_EQ(form1().FXTimer[0]->interval(), 1000);
  e.ChkRandom.setChecked(1);
  EXPECT_EQ(v().FXRandom[1], kTrue);
  EXPECT_EQ(v().FXRandom[0], kFalse);
}

TEST_F(EditorTest, SaveAsAndOpenGoThroughTheChaserFile) {
  v().FXStepCount[0] = 2;
  fill(0, 1, 3, 0);
  fill(0, 2, 4, 128);
  ChaserEditor& e = open();
  dialogs.queueAnswer(path("a.qfx"));
  e.mnuSaveAs();
  ASSERT_TRUE(std::filesystem::exists(path("a.qfx")));

  e.mnuNew();
  v().FXRandom[0] = kFalse;
  {
    std::ofstream f(path("a.qfx"), std::ios::app);
    f << "RANDOM:YES\r\n";
  }
  dialogs.queueAnswer(path("a.qfx"));
  e.mnuOpen();
  EXPECT_EQ(v().FXStepCount[0], 2);
  EXPECT_EQ(cell(0, 1, 3), "0");
  EXPECT_EQ(cell(0, 2, 4), "128");
  EXPECT_EQ(e.ChkRandom.checked(), 1);

  // A cancelled save goes to the name the chooser last held ...
  std::filesystem::remove(path("a.qfx"));
  e.mnuSaveAs();
  EXPECT_TRUE(std::filesystem::exists(path("a.qfx")));
  // ... a cancelled open opens nothing, and leaves no name to save under.
  e.mnuNew();
  e.mnuOpen();
  EXPECT_EQ(v().FXStepCount[0], 0);
  const size_t boxes = dialogs.shown.size();
  e.mnuSaveAs();
  ASSERT_EQ(dialogs.shown.size(), boxes + 1);
  EXPECT_NE(dialogs.shown.back().find("Error saving file"), std::string::npos);
}

TEST_F(EditorTest, TheStepThatPlaysIsMarkedWhileTheChaserRuns) {
  console().start();
  v().FXStepCount[0] = 3;
  ChaserEditor& e = open();
  EXPECT_EQ(e.playingStep(), 0);
  std::vector<TableChange> repainted;
  e.Picture3.cells.listen([&](const TableChange& t) { repainted.push_back(t); });
  control("FXbutton(0)").mouseUp(MouseButton::Left);
  EXPECT_EQ(e.playingStep(), 1);
  EXPECT_TRUE(e.Picture3.cell(0, 0).bold);
  advance(1000);
  EXPECT_EQ(e.playingStep(), 2);
  EXPECT_TRUE(e.Picture3.cell(1, 0).bold);
  EXPECT_FALSE(e.Picture3.cell(0, 0).bold);
  EXPECT_NE(e.Picture1.cell(1, 5).backColor, e.Picture1.cell(2, 5).backColor);
  EXPECT_FALSE(repainted.empty());
  control("FXbutton(0)").mouseUp(MouseButton::Left);
  EXPECT_EQ(e.playingStep(), 0);
}

TEST_F(EditorTest, ClosedAndOpenedAgainItLoadsAfresh) {
  ChaserEditor& e = open();
  e.vscScroll.setPosition(7);
  e.closeBox();
  EXPECT_EQ(console().windows.find("FX1Config"), nullptr);
  ChaserEditor& again = open();
  EXPECT_EQ(again.FirstStep, 1);
  EXPECT_EQ(again.lblTopLeft.caption(), "Top: 1, Left: 1");
}

}  // namespace
}  // namespace q::test
