// The cue grid: what its panes show, selection and the in-place editor,
// appending from the live look, the show's name and date, resizing and
// scrolling, and the commands on rows and on the whole list.

#include <gtest/gtest.h>

#include <filesystem>

#include "cue_list_fixture.h"
#include "engine/core/console.h"

namespace q::test {
namespace {

class CueGrid : public CueListFixture {};

TEST_F(CueGrid, OpensFromTheMainMenuAtTheTopLeftWithNothingSelected) {
  addCue("1", "House", {{1, 128}, {3, 255}});
  addCue("2.5", "Dawn");
  Cuewin& w = open();
  EXPECT_TRUE(w.isVisible());
  EXPECT_EQ(w.caption(), "Cue List");
  EXPECT_EQ(w.txt_Show.text(), "Unnamed");
  EXPECT_EQ(w.txt_Date.text(), "No save date");
  EXPECT_EQ(get("Cuewin.lblTopLeft"), "Top: 1, Left: 1");
  EXPECT_EQ(w.vscScroll.position(), 1);
  EXPECT_EQ(w.hscScroll.position(), 1);
  EXPECT_EQ(v().SelectedCue, 0);
  // Row 0 of each pane is row TopRow of the table; Picture2 numbers the channels.
  EXPECT_EQ(shown(w.Picture1, 0, 0), "128");
  EXPECT_EQ(shown(w.Picture1, 0, 1), "");
  EXPECT_EQ(shown(w.Picture1, 0, 2), "255");
  EXPECT_EQ(shown(w.Picture2, 0, 0), "1");
  EXPECT_EQ(shown(w.Picture2, 0, 4), "5");
  EXPECT_EQ(shown(w.Picture3, 1, 0), "2.5");
  EXPECT_EQ(shown(w.Picture4, 1, 0), "1");
  EXPECT_EQ(shown(w.Picture6, 0, 0), "House");
  // Every cell is 400 by 255 twips, and its text starts 50 in and 25 down.
  EXPECT_EQ(w.Picture1.cellWidth, 400);
  EXPECT_EQ(w.Picture1.cellHeight, 255);
  EXPECT_EQ(w.Picture1.gridColor, 0x808080);
  EXPECT_EQ(w.Picture1.textLeft, 50);
  EXPECT_EQ(w.Picture1.textTop, 25);
}

TEST_F(CueGrid, ShowNameAndDateBoxesKeepInStepWithTheShow) {
  Cuewin& w = open();
  w.txt_Show.setText("Hamlet");
  w.txt_Date.setText("1 May");
  EXPECT_EQ(v().ShowName, "Hamlet");
  EXPECT_EQ(v().ShowDate, "1 May");
  // A file read while the window is open puts its header in the boxes.
  console().files.load("cuelist", write("a.qcl", {"SHOW:Lear", "DATE:2 June"}));
  EXPECT_EQ(w.txt_Show.text(), "Lear");
  EXPECT_EQ(w.txt_Date.text(), "2 June");
  console().files.load("submasters", write("b.qsm", {"SHOW:Macbeth", "DATE:3 July"}));
  EXPECT_EQ(w.txt_Show.text(), "Macbeth");
  EXPECT_EQ(v().ShowDate, "3 July");
}

TEST_F(CueGrid, APressSelectsTheRowAndChannelAndPutsTheEditorOverTheCell) {
  addCue("1", "a");
  addCue("2", "b", {{2, 77}});
  Cuewin& w = open();
  w.Picture1.mouseDown({MouseButton::Left, 450, 300});
  EXPECT_EQ(v().SelectedCue, 2);
  EXPECT_EQ(w.EditChannel, 2);
  EXPECT_EQ(w.txtedit.text(), "77");
  EXPECT_FALSE(w.txtedit.visible());
  const Cuewin::Box& pane = w.boxOf(w.Picture1);
  EXPECT_EQ(w.boxOf(w.txtedit), (Cuewin::Box{pane.left + 400, pane.top + 255, 400, 255}));
  // The other panes select the row only; a scrolled grid counts from TopRow.
  w.vscScroll.setPosition(5);
  EXPECT_EQ(get("Cuewin.lblTopLeft"), "Top: 5, Left: 1");
  w.Picture6.mouseDown({MouseButton::Left, 100, 10});
  EXPECT_EQ(v().SelectedCue, 5);
  EXPECT_EQ(w.EditChannel, 2);
  // A point beyond the table's rows chooses nothing.
  w.Picture1.mouseDown({MouseButton::Left, 0, 1e9});
  EXPECT_EQ(v().SelectedCue, 5);
}

TEST_F(CueGrid, TheRightButtonPopsUpTheCueMenu) {
  Cuewin& w = open();
  std::vector<std::string> popped;
  w.onPopupMenu = [&](const std::string& m) { popped.push_back(m); };
  w.Picture1.mouseDown({MouseButton::Right, 10, 10});
  w.Picture4.mouseDown({MouseButton::Right, 10, 300});
  w.Picture4.mouseDown({MouseButton::Left, 10, 300});
  EXPECT_EQ(popped, (std::vector<std::string>{"Cuewin.mnuCue", "Cuewin.mnuCue"}));
  EXPECT_EQ(v().SelectedCue, 2);
}

struct Typed {
  const char* text;
  const char* stored;  // what the cell holds afterwards; "was" for unchanged
};

class EditorEnter : public CueListFixture, public ::testing::WithParamInterface<Typed> {};

TEST_P(EditorEnter, StoresWhatTheTextReadsAsOrLeavesTheCell) {
  addCue("1", "a", {{1, 40}});
  Cuewin& w = open();
  w.Picture1.mouseDown({MouseButton::Left, 10, 10});
  w.Picture1.dblClick();
  EXPECT_TRUE(w.txtedit.visible());
  w.txtedit.setText(GetParam().text);
  EXPECT_EQ(w.txtedit.keyPress(13), 0);
  EXPECT_FALSE(w.txtedit.visible());
  const std::string want = std::string(GetParam().stored) == "was" ? "40" : GetParam().stored;
  EXPECT_EQ(cue(1, 1), want) << "typed " << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(CueGrid, EditorEnter,
                         ::testing::Values(Typed{"0", ""}, Typed{"ff", "255"}, Typed{"Ff", "255"},
                                           Typed{"FF", "255"}, Typed{"300", "was"},
                                           Typed{"256", "was"}, Typed{"255", "255"},
                                           Typed{"abc", ""}, Typed{"", ""}, Typed{"12.75", "12.75"},
                                           Typed{"12abc", "12"}, Typed{"-5", "was"},
                                           Typed{"-0.5", "was"}, Typed{"1e309", "was"},
                                           Typed{"1e2", "100"}, Typed{" 7", "7"},
                                           Typed{"99999999999999999999999", "was"}));

TEST_F(CueGrid, EnterEditsTheCellUnderTheEditorAlsoPastTheList) {
  Cuewin& w = open();
  w.Picture1.mouseDown({MouseButton::Left, 850, 2600});  // row 11, channel 3
  w.Picture1.dblClick();
  w.txtedit.setText("9");
  w.txtedit.keyPress(13);
  EXPECT_EQ(cue(11, 3), "9");
  EXPECT_EQ(v().CueCount, 0) << "the list's length is not the editor's business";
  // Other keys go to the box as typed.
  EXPECT_EQ(w.txtedit.keyPress('5'), '5');
}

TEST_F(CueGrid, ADoubleClickPastTheListAppendsTheLiveLookFirst) {
  addCue("1", "a");
  Cuewin& w = open();
  console().memories.STAGEMem.setText("7");
  console().memories.STAGEName.setText("Sunset");
  console().fadeTimes.WupTime.setText("1");
  console().fadeTimes.UpTime.setText("2");
  console().fadeTimes.WdownTime.setText("3");
  console().fadeTimes.DownTime.setText("4");
  v().MixBuffer[0] = 100;
  v().MixBuffer[2] = 255;
  v().J = 1;  // where the last cue search left the shared counter
  w.Picture3.mouseDown({MouseButton::Left, 0, 300});
  w.Picture3.dblClick();
  EXPECT_EQ(v().CueCount, 2);
  EXPECT_EQ(cue(2, cue::kNumber), "7");
  EXPECT_EQ(cue(2, cue::kFunction), "1");
  EXPECT_EQ(cue(2, cue::kName), "Sunset");
  EXPECT_EQ(cue(2, 1), "100");
  EXPECT_EQ(cue(2, 2), "");
  EXPECT_EQ(cue(2, 3), "255");
  // The times went to row J, not to the new row.
  EXPECT_EQ(cue(2, cue::kWaitUp), "");
  EXPECT_EQ(cue(1, cue::kWaitUp), "1");
  EXPECT_EQ(cue(1, cue::kDownTime), "4");
  EXPECT_EQ(v().I, v().MaxChans + 1);
  ASSERT_NE(console().windows.find("CueProps"), nullptr);
  EXPECT_TRUE(console().windows.find("CueProps")->isVisible());
  // Inside the list the properties open on the row as it is.
  console().windows.find("CueProps")->unload();
  w.Picture5.mouseDown({MouseButton::Left, 0, 0});
  w.Picture5.dblClick();
  EXPECT_EQ(v().CueCount, 2);
}

TEST_F(CueGrid, DeleteEmptiesTheRowInPlaceAndDeleteAllEmptiesTheList) {
  addCue("1", "a", {{1, 10}});
  addCue("2", "b", {{1, 20}});
  addCue("3", "c", {{1, 30}});
  setCue(2, cue::kChaser1Action, int16_t(1));
  Cuewin& w = open();
  w.Picture3.mouseDown({MouseButton::Left, 0, 300});
  w.menu("mnuDelete").click();
  EXPECT_EQ(v().CueCount, 3);
  EXPECT_EQ(cue(2, cue::kNumber), "");
  EXPECT_EQ(cue(2, 1), "");
  EXPECT_EQ(cue(2, cue::kChaser1Action), "");
  EXPECT_EQ(cue(3, cue::kName), "c");
  w.menu("mnuDeleteallCues").click();
  EXPECT_EQ(v().CueCount, 0);
  EXPECT_EQ(cue(3, cue::kName), "");
  addCue("9", "z");
  w.menu("mnuNew").click();
  EXPECT_EQ(v().CueCount, 0);
  EXPECT_EQ(w.txt_Show.text(), "");
  EXPECT_EQ(v().ShowName, "");
  EXPECT_EQ(v().ShowDate, "");
}

TEST_F(CueGrid, CopyWritesTheSelectedRowToTheClipboardFile) {
  addCue("1", "a");
  addCue("2", "Blue, a wash", {{1, 255}, {17, 40}});
  setCue(2, cue::kWaitUp, std::string("5"));
  setCue(2, cue::kVar, std::string("go.qch"));
  setCue(2, cue::kPlayer1Action, std::string("1"));
  Cuewin& w = open();
  w.Picture3.mouseDown({MouseButton::Left, 0, 300});
  w.menu("mnuCopy").click();
  EXPECT_EQ(
      read(path("tempcue.qcl")),
      crlf({kRule, "NAME:Unnamed", "DATE:No save date", kRule, "MEM:2", "FUNCTION:1", "TIMES:5,,,,",
            "NAME:Blue, a wash", "VAR:", "VAR:go.qch", "PLR1:1", "CHAN:1a255,17a40,", kRule}));
  EXPECT_EQ(v().CueCount, 2);
}

TEST_F(CueGrid, PasteAppendsTheCueAndRenamesTheLastRowWithTheShowsName) {
  addCue("1", "a", {{1, 10}});
  addCue("2", "b");
  addCue("3", "c");
  Cuewin& w = open();
  w.Picture3.mouseDown({MouseButton::Left, 0, 0});
  w.menu("mnuCopy").click();
  w.Picture3.mouseDown({MouseButton::Left, 0, 300});
  w.menu("mnuPaste").click();
  EXPECT_EQ(v().CueCount, 4);
  EXPECT_EQ(cue(4, cue::kNumber), "1");
  EXPECT_EQ(cue(4, cue::kName), "a");
  EXPECT_EQ(cue(4, 1), "10");
  // The clipboard's own "NAME:" line comes before its "MEM:".
  EXPECT_EQ(cue(3, cue::kName), "Unnamed");
  EXPECT_EQ(cue(2, cue::kName), "b");
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(CueGrid, CutCopiesThenDeletesAndAFailedCopyDeletesNothing) {
  addCue("1", "a");
  addCue("2", "b");
  Cuewin& w = open();
  w.Picture3.mouseDown({MouseButton::Left, 0, 0});
  w.menu("mnuCut").click();
  EXPECT_EQ(cue(1, cue::kName), "");
  EXPECT_NE(read(path("tempcue.qcl")).find("NAME:a"), std::string::npos);
  // A clipboard that cannot be written: one message, the row stays.
  std::filesystem::remove(path("tempcue.qcl"));
  std::filesystem::create_directory(path("tempcue.qcl"));
  w.Picture3.mouseDown({MouseButton::Left, 0, 300});
  w.menu("mnuCut").click();
  EXPECT_EQ(cue(2, cue::kName), "b");
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0].rfind("MSGBOX ERROR | Error saving file : ", 0), 0u);
}

TEST_F(CueGrid, PasteWithoutAClipboardIsOneMessageAndChangesNothing) {
  addCue("1", "a");
  Cuewin& w = open();
  w.menu("mnuPaste").click();
  EXPECT_EQ(v().CueCount, 1);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX ERROR | Error loading file : " + path("tempcue.qcl") + ", file not found");
}

TEST_F(CueGrid, LoadsTheSelectedRowInStageOrProg) {
  addCue("4", "Night", {{1, 30}});
  Cuewin& w = open();
  w.Picture3.mouseDown({MouseButton::Left, 0, 0});
  v().MixDirty = kFalse;
  w.menu("mnuLoadStage").click();
  EXPECT_EQ(console().memories.STAGEMem.text(), "4");
  EXPECT_EQ(v().chan(1, kStageColumn), 30);
  EXPECT_EQ(v().MixDirty, kFalse);
  w.menu("mnuLoadInProg").click();
  EXPECT_EQ(console().memories.PROGName.text(), "Night");
  EXPECT_EQ(v().chan(1, kProgColumn), 30);
}

TEST_F(CueGrid, ResizingFollowsTheWindowAboveItsSmallestSize) {
  Cuewin& w = open();
  w.resize(15000, 9000);
  EXPECT_EQ(w.Picture1.width, 9550);
  EXPECT_EQ(w.Picture2.width, 9550);
  EXPECT_EQ(w.boxOf(w.hscScroll).width, 9550);
  EXPECT_EQ(w.boxOf(w.vscScroll).left, 14600);
  EXPECT_EQ(w.boxOf(w.hscScroll).top, 7900);
  for (CellGrid* p : {&w.Picture1, &w.Picture3, &w.Picture4, &w.Picture5, &w.Picture6})
    EXPECT_EQ(p->height, 7200);
  EXPECT_EQ(w.boxOf(w.vscScroll).height, 7200);
  // 128 channels less 23.875 cells, plus one: 105.125.
  EXPECT_EQ(w.hscScroll.max(), 105);
  EXPECT_EQ(w.Picture1.rows, 29);     // 28 whole rows and a part
  EXPECT_EQ(w.Picture1.columns, 24);  // 23 whole columns and a part
  // Smaller than 9000 by 2500 the panes stay as they were.
  w.resize(8000, 2000);
  EXPECT_EQ(w.Picture1.width, 9550);
  EXPECT_EQ(w.Picture1.height, 7200);
  EXPECT_EQ(w.width(), 8000);
}

TEST_F(CueGrid, ScrollingMovesThePanesOverTheTable) {
  addCue("1", "a", {{20, 99}});
  addCue("2", "b");
  Cuewin& w = open();
  w.hscScroll.setPosition(20);
  EXPECT_EQ(w.LeftChannel, 20);
  EXPECT_EQ(get("Cuewin.lblTopLeft"), "Top: 1, Left: 20");
  EXPECT_EQ(shown(w.Picture1, 0, 0), "99");
  EXPECT_EQ(shown(w.Picture2, 0, 0), "20");
  w.vscScroll.setPosition(2);
  EXPECT_EQ(w.TopRow, 2);
  EXPECT_EQ(shown(w.Picture6, 0, 0), "b");
  EXPECT_EQ(w.vscScroll.largeChange, 21);
  EXPECT_EQ(w.hscScroll.largeChange, 16);
}

TEST_F(CueGrid, PanesHearOfTheCellsThatChangedOnly) {
  addCue("1", "a");
  Cuewin& w = open();
  std::vector<TableChange> levels, names;
  w.Picture1.cells.listen([&](const TableChange& c) { levels.push_back(c); });
  w.Picture6.cells.listen([&](const TableChange& c) { names.push_back(c); });
  setCue(1, 3, uint8_t(50));
  setCue(1, cue::kName, std::string("new"));
  EXPECT_EQ(levels, (std::vector<TableChange>{{0, 0, 2, 2}}));
  EXPECT_EQ(names, (std::vector<TableChange>{{0, 0, 0, 0}}));
  setCue(400, 3, uint8_t(50));  // far below what the panes show
  EXPECT_EQ(levels.size(), 1u);
}

TEST_F(CueGrid, TheSelectedRowAndTheRowInProgStandOut) {
  addCue("1", "a");
  addCue("2", "b");
  Cuewin& w = open();
  w.Picture3.mouseDown({MouseButton::Left, 0, 300});
  console().memories.NextCue.setCaption("1");
  EXPECT_NE(w.Picture3.cell(1, 0).backColor, -1);
  EXPECT_EQ(w.Picture3.cell(0, 0).backColor, -1);
  EXPECT_TRUE(w.Picture6.cell(0, 0).bold);
  EXPECT_NE(w.Picture1.cell(0, 4).foreColor, -1);
  EXPECT_FALSE(w.Picture6.cell(1, 0).bold);
}

TEST_F(CueGrid, StayOnTopTurnsWithItsCheckMark) {
  Cuewin& w = open();
  EXPECT_FALSE(w.menu("mnuStayOnTop").checked());
  w.menu("mnuStayOnTop").click();
  EXPECT_TRUE(w.menu("mnuStayOnTop").checked());
  EXPECT_TRUE(w.stayOnTop);
  w.menu("mnuStayOnTop").click();
  EXPECT_FALSE(w.stayOnTop);
}

TEST_F(CueGrid, CloseUnloadsAndTheNextOpeningStartsAfresh) {
  Cuewin& w = open();
  w.vscScroll.setPosition(4);
  w.menu("mnuClose").click();
  EXPECT_EQ(console().windows.find("Cuewin"), nullptr);
  EXPECT_EQ(open().TopRow, 1);
}

}  // namespace
}  // namespace q::test
