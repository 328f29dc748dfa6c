// The channels matrix: what a press, a drag and Enter in the cell editor
// write, how the window scrolls and lays itself out, and which cells it
// repaints when the channel table or the frame changes.

#include <set>
#include <utility>

#include "engine/views/channels_matrix.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

constexpr double kW = MatrixLayout::kCellWidth;
constexpr double kH = MatrixLayout::kCellHeight;

class MatrixTest : public ConsoleFixture {
 protected:
  void SetUp() override { console().start(); }
  ChannelsMatrix& open() {
    form1().menu("mnuMatrix").click();
    return *console().windows.find<ChannelsMatrix>("frmSparseMatrix");
  }
  // A point in the middle of a cell of the grid, as the pane counts it.
  static MouseEvent at(int paneRow, int paneColumn, MouseButton b = MouseButton::Left) {
    return MouseEvent(b, paneColumn * kW + kW / 2, paneRow * kH + kH / 2);
  }
  static MouseEvent moveTo(double y) { return MouseEvent(MouseButton::Left, 100, y); }
  void typeLevel(ChannelsMatrix& m, const std::string& text) {
    m.txtedit.setText(text);
    m.txtedit.keyPress(13);
  }
};

// Which pane cells a grid was told to repaint.
struct Repaints {
  explicit Repaints(CellGrid& g) : grid(g) {
    id = g.cells.listen([this](const TableChange& c) { changes.push_back(c); });
  }
  ~Repaints() { grid.cells.unlisten(id); }
  std::set<std::pair<int, int>> cells() const {
    std::set<std::pair<int, int>> out;
    for (const TableChange& c : changes)
      for (int r = c.firstRow; r <= c.lastRow; ++r)
        for (int col = c.firstColumn; col <= c.lastColumn; ++col) out.insert({r, col});
    return out;
  }
  CellGrid& grid;
  int id;
  std::vector<TableChange> changes;
};

TEST_F(MatrixTest, OpensFromItsMenuOnEveryRowAndTheFirstChannels) {
  v().MaxChans = 512;
  ChannelsMatrix& m = open();
  EXPECT_TRUE(m.isVisible());
  EXPECT_EQ(m.caption(), "Channels Matrix");
  EXPECT_EQ(m.lblTopLeft.caption(), "Top: 1, Left: 1");
  EXPECT_EQ(m.Lbl1.caption(), "OUT");
  EXPECT_FALSE(m.txtedit.visible());
  EXPECT_EQ(m.lastY, 0.0f);
  // Twenty channels wide: the last left channel shows 493 to 512.
  EXPECT_EQ(m.hscScroll.max(), 493);
  EXPECT_EQ(m.Picture1.columns, 20);
  EXPECT_EQ(m.Picture4.cell(0, 0).text, "STAGE");
  EXPECT_EQ(m.Picture4.cell(1, 0).text, "PROG");
  EXPECT_EQ(m.Picture4.cell(21, 0).text, "SUB 20");
  EXPECT_EQ(m.Picture4.cell(22, 0).text, "") << "the 23rd row has no heading";
  EXPECT_EQ(m.Picture2.cell(0, 4).text, "5");
}

TEST_F(MatrixTest, CellsShowTheirLevelFadingToBlue) {
  ChannelsMatrix& m = open();
  v().chan(3, 2) = 200;  // channel 3, submaster 1
  const CellGrid::Cell full = m.Picture1.cell(2, 2);
  EXPECT_EQ(full.text, "200");
  EXPECT_EQ(full.backColor, 0x3737FF);
  const CellGrid::Cell zero = m.Picture1.cell(0, 0);
  EXPECT_EQ(zero.text, "0") << "zero cells show 0 too";
  EXPECT_EQ(zero.backColor, -1);
}

TEST_F(MatrixTest, APressTakesTheCellAndLaysTheEditorOverIt) {
  ChannelsMatrix& m = open();
  v().chan(4, 1) = 77;
  m.Picture1.mouseDown(at(1, 3));
  EXPECT_TRUE(m.dragging);
  EXPECT_EQ(m.currentChannel, 4);
  EXPECT_EQ(m.currentRow, 2);
  EXPECT_EQ(m.txtedit.text(), "77");
  EXPECT_FALSE(m.txtedit.visible()) << "the editor shows only on a double click";
  const Place& cell = m.layout().txtedit;
  EXPECT_EQ(cell.left, m.layout().picture1.left + 3 * kW);
  EXPECT_EQ(cell.top, m.layout().picture1.top + 1 * kH);
  m.Picture1.mouseUp(at(1, 3));
  EXPECT_FALSE(m.dragging);
}

TEST_F(MatrixTest, EachDragStepMovesTheCellOneLevel) {
  ChannelsMatrix& m = open();
  v().chan(1, 0) = 100;
  m.Picture1.mouseDown(at(0, 0));
  // The first step compares with the last handled Y, 0 at the start: down.
  m.Picture1.mouseMove(moveTo(200));
  EXPECT_EQ(v().chan(1, 0), 99);
  m.Picture1.mouseMove(moveTo(100));  // up, however far
  m.Picture1.mouseMove(moveTo(100));  // sideways counts as up
  EXPECT_EQ(v().chan(1, 0), 101);
  EXPECT_EQ(v().MixDirty, kTrue);
  m.Picture1.mouseUp(moveTo(100));
  m.Picture1.mouseMove(moveTo(0));
  EXPECT_EQ(v().chan(1, 0), 101) << "no drag after the release";
  // The next drag starts from where the last one ended.
  m.Picture1.mouseDown(at(0, 0));
  m.Picture1.mouseMove(moveTo(150));
  EXPECT_EQ(v().chan(1, 0), 100);
}

TEST_F(MatrixTest, DraggingStopsAtTheEndsOfTheRange) {
  ChannelsMatrix& m = open();
  v().chan(2, 0) = 255;
  m.Picture1.mouseDown(at(0, 1));
  m.Picture1.mouseMove(moveTo(-10));
  EXPECT_EQ(v().chan(2, 0), 255);
  m.Picture1.mouseMove(moveTo(0));
  EXPECT_EQ(v().chan(2, 0), 254);
  v().chan(2, 0) = 0;
  m.Picture1.mouseMove(moveTo(20));
  EXPECT_EQ(v().chan(2, 0), 0);
}

TEST_F(MatrixTest, TheTwentyThirdRowIsTheSpareColumnAndDragsToo) {
  ChannelsMatrix& m = open();
  m.Picture1.mouseDown(at(22, 0));
  EXPECT_EQ(m.currentRow, 23);
  m.Picture1.mouseMove(moveTo(-5));
  EXPECT_EQ(v().chan(1, 22), 1);
}

TEST_F(MatrixTest, APressBeyondTheTableWritesNothing) {
  v().MaxChans = 512;
  ChannelsMatrix& m = open();
  m.hscScroll.setPosition(m.hscScroll.max());
  m.Picture1.mouseDown(MouseEvent(MouseButton::Left, 20 * kW + 10, 10));  // channel 513
  EXPECT_EQ(m.currentChannel, 513);
  m.Picture1.mouseMove(moveTo(-1));
  typeLevel(m, "99");
  m.Picture1.mouseDown(MouseEvent(MouseButton::Left, -1e9, -1e9));
  m.Picture1.mouseMove(moveTo(-1e9));
  for (int col = 0; col < kColumns; ++col) EXPECT_EQ(v().chan(512, col), 0);
  EXPECT_EQ(m.Picture1.cell(0, 20).text, "") << "nothing is shown beyond channel 512";
}

TEST_F(MatrixTest, DoubleClickOpensTheEditorWithTheFocus) {
  ChannelsMatrix& m = open();
  int focused = 0;
  m.txtedit.addFocusListener([&] { ++focused; });
  m.Picture1.mouseDown(at(0, 0));
  m.Picture1.mouseUp(at(0, 0));
  m.Picture1.dblClick(at(0, 0));
  EXPECT_FALSE(m.dragging);
  EXPECT_TRUE(m.txtedit.visible());
  EXPECT_EQ(focused, 1);
  typeLevel(m, "40");
  EXPECT_FALSE(m.txtedit.visible()) << "Enter hides it";
}

TEST_F(MatrixTest, EnterStoresTheLeadingNumberRoundedHalfToEven) {
  ChannelsMatrix& m = open();
  m.Picture1.mouseDown(at(0, 0));
  const std::pair<const char*, int> cases[] = {
      {"12.5", 12}, {"13.5", 14}, {"12abc", 12}, {"  200", 200}, {"255", 255},
      {"-0.5", 0},  {"0.4", 0},   {"ff", 255},   {"abc", 0},     {"FF", 255},
      {"", 0},      {"Ff", 0},    {"1e309", 1},  {"255.4", 255}, {"7,9", 7}};
  for (const auto& [text, level] : cases) {
    v().chan(1, 0) = 33;
    v().MixDirty = kFalse;
    typeLevel(m, text);
    EXPECT_EQ(v().chan(1, 0), level) << '"' << text << '"';
    EXPECT_EQ(v().MixDirty, kTrue) << text;
  }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(MatrixTest, OutOfRangeLevelsAreDroppedWithoutAWord) {
  ChannelsMatrix& m = open();
  m.Picture1.mouseDown(at(0, 0));
  for (const char* text : {"256", "-1", "99999999999999999999", "-7", "1000"}) {
    v().chan(1, 0) = 33;
    v().MixDirty = kFalse;
    typeLevel(m, text);
    EXPECT_EQ(v().chan(1, 0), 33) << text;
    EXPECT_EQ(v().MixDirty, kTrue) << "the repaint and MixDirty still happen";
  }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(MatrixTest, ALevelThatRoundsOutOfAByteIsToldAndChangesNothing) {
  ChannelsMatrix& m = open();
  m.Picture1.mouseDown(at(0, 0));
  v().chan(1, 0) = 33;
  for (const char* text : {"255.7", "-0.7"}) {
    typeLevel(m, text);
    EXPECT_EQ(v().chan(1, 0), 33) << text;
  }
  ASSERT_EQ(dialogs.shown.size(), 2u);
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX Quintara | Channels Matrix: the level \"255.7\" rounds to 256, outside 0 to "
            "255; the cell keeps its level");
  // The console goes on: the next level is taken.
  typeLevel(m, "9");
  EXPECT_EQ(v().chan(1, 0), 9);
}

TEST_F(MatrixTest, TypingChangesTheLastPressedCellEvenAfterAScroll) {
  v().MaxChans = 512;
  ChannelsMatrix& m = open();
  m.Picture1.mouseDown(at(2, 5));  // channel 6, submaster 1
  m.hscScroll.setPosition(100);
  m.vscScroll.setPosition(1);
  typeLevel(m, "50");
  EXPECT_EQ(v().chan(6, 2), 50);
  EXPECT_EQ(m.lblTopLeft.caption(), "Top: 1, Left: 100");
}

TEST_F(MatrixTest, ScrollingMovesTheCellsUnderThePanes) {
  v().MaxChans = 512;
  ChannelsMatrix& m = open();
  m.resize(9400, 3000);  // six rows and a part
  ASSERT_GT(m.vscScroll.max(), 1);
  v().chan(105, 4) = 12;  // submaster 3
  m.hscScroll.setPosition(100);
  m.vscScroll.setPosition(3);
  EXPECT_EQ(m.lblTopLeft.caption(), "Top: 3, Left: 100");
  EXPECT_EQ(m.Picture1.cell(2, 5).text, "12");
  EXPECT_EQ(m.Picture2.cell(0, 5).text, "105");
  EXPECT_EQ(m.Picture4.cell(0, 0).text, "SUB 1");
  m.Picture1.mouseDown(at(2, 5));
  EXPECT_EQ(m.currentChannel, 105);
  EXPECT_EQ(m.currentRow, 5);
}

TEST_F(MatrixTest, FewChannelsHoldTheHorizontalBarStill) {
  v().MaxChans = 16;
  ChannelsMatrix& m = open();
  EXPECT_EQ(m.hscScroll.min(), 1);
  EXPECT_EQ(m.hscScroll.max(), 1);
  EXPECT_FALSE(m.hscScroll.setPosition(2));
  EXPECT_EQ(m.leftChannel, 1);
}

TEST_F(MatrixTest, TheStripShowsTheFrameUpToTheChannelsInUse) {
  v().MaxChans = 20;
  ChannelsMatrix& m = open();
  v().chan(3, 0) = 200;
  v().MixDirty = kTrue;
  form1().DMXTimer.onTick();
  EXPECT_EQ(m.Picture3.cell(0, 2).text, "200");
  EXPECT_EQ(m.Picture3.cell(0, 19).text, "0");
  m.resize(12000, 7085);  // room for more than twenty channels
  EXPECT_EQ(m.Picture3.cell(0, 20).text, "") << "the strip stops after MaxChans";
  EXPECT_EQ(m.Picture1.cell(0, 20).text, "0") << "the grid goes on to 512";
}

TEST_F(MatrixTest, AMixRepaintsOnlyTheStripCellsThatChanged) {
  ChannelsMatrix& m = open();
  form1().DMXTimer.onTick();
  Repaints strip(m.Picture3);
  v().chan(3, 0) = 10;
  v().chan(4, 0) = 10;
  v().chan(9, 0) = 10;
  v().MixDirty = kTrue;
  form1().DMXTimer.onTick();
  EXPECT_EQ(strip.cells(), (std::set<std::pair<int, int>>{{0, 2}, {0, 3}, {0, 8}}));
  strip.changes.clear();
  v().MixDirty = kTrue;
  form1().DMXTimer.onTick();
  EXPECT_TRUE(strip.changes.empty()) << "an unchanged frame repaints nothing";
}

TEST_F(MatrixTest, TableChangesRepaintOnlyTheCellsInView) {
  v().MaxChans = 512;
  ChannelsMatrix& m = open();
  Repaints grid(m.Picture1);
  v().chan(5, 1) = 9;  // pane row 1, column 4
  v().chan(400, 1) = 9;
  EXPECT_EQ(grid.cells(), (std::set<std::pair<int, int>>{{1, 4}}));
  grid.changes.clear();
  // A direct command repaints what it wrote.
  console().direct.Direct.setText("2/3a50");
  console().direct.Direct.keyPress(13);
  EXPECT_EQ(grid.cells(), (std::set<std::pair<int, int>>{{0, 1}, {0, 2}}));
}

TEST_F(MatrixTest, OutsideItsNormalStateTheWindowRepaintsNothingUntilItComesBack) {
  ChannelsMatrix& m = open();
  Repaints grid(m.Picture1), strip(m.Picture3);
  m.setWindowState(ChannelsMatrix::State::Minimized);
  v().chan(1, 0) = 50;
  v().MixDirty = kTrue;
  form1().DMXTimer.onTick();
  EXPECT_TRUE(grid.changes.empty());
  EXPECT_TRUE(strip.changes.empty());
  m.setWindowState(ChannelsMatrix::State::Maximized);
  v().chan(1, 0) = 60;
  EXPECT_TRUE(grid.changes.empty());
  m.setWindowState(ChannelsMatrix::State::Normal);
  EXPECT_FALSE(grid.changes.empty());
  EXPECT_FALSE(strip.changes.empty());
}

TEST_F(MatrixTest, TheWindowIsHeldBetweenItsHeightsAndLaysTheGridOut) {
  v().MaxChans = 512;
  ChannelsMatrix& m = open();
  m.resize(5400, 900);
  EXPECT_EQ(m.height(), MatrixLayout::kMinHeight);
  m.resize(5400, 20000);
  EXPECT_EQ(m.height(), MatrixLayout::kMaxHeight);
  EXPECT_EQ(m.layout().picture1.width, 4000);
  EXPECT_EQ(m.Picture1.columns, 10);
  EXPECT_EQ(m.hscScroll.max(), 503);
  m.resize(5400, 4000);
  EXPECT_EQ(m.layout().picture1.height, 2600);
  EXPECT_EQ(m.Picture1.rows, 11);
  EXPECT_EQ(m.vscScroll.max(), 13);  // 23 - 10.2, rounded
  EXPECT_EQ(m.layout().hscScroll.top, 3200);
  EXPECT_EQ(m.layout().vscScroll.left, 5000);
  // Minimised, the window is too small for anything and keeps its layout.
  m.setWindowState(ChannelsMatrix::State::Minimized);
  m.resize(1500, 400);
  EXPECT_EQ(m.layout().picture1.height, 2600);
  // Maximised, no height is held.
  m.setWindowState(ChannelsMatrix::State::Maximized);
  m.resize(20000, 12000);
  EXPECT_EQ(m.height(), 12000);
}

TEST_F(MatrixTest, UnloadsFirstWithTheMainWindowAndLeavesNoListener) {
  const size_t others = v().ChanTable.changes.listenerCount();  // the recovery snapshots
  ChannelsMatrix& m = open();
  EXPECT_EQ(console().mixer.outputMixed.size(), 1u);
  m.unload();
  EXPECT_EQ(console().mixer.outputMixed.size(), 0u);
  EXPECT_EQ(v().ChanTable.changes.listenerCount(), others);
  open();
  console().unload();
  EXPECT_EQ(console().windows.find("frmSparseMatrix"), nullptr);
}

}  // namespace
}  // namespace q::test
