// The three panes of the chaser editor: the steps, the channel numbers over
// them and the step numbers beside them. What each cell shows is worked out
// when a view asks; the editor only tells which cells changed: a cell the
// table changed, the selected cell, the rows of the step that is playing.

#include <algorithm>

#include "engine/chasers/chaser_editor.h"
#include "engine/core/console.h"

namespace q {

namespace {
constexpr int kGridBack = 0x0E1014;
constexpr int kGridText = 0xE8ECF2;
constexpr int kGridLines = 0x808080;  // grey, 128 on each colour
constexpr int kHeaderBack = 0x1C1F25;
constexpr int kSelectedBack = 0x2A5C8E;
constexpr int kPlayingRowBack = 0x4A3200;
constexpr int kInCountBack = 0xC01818;  // a step inside the chaser's count
constexpr int kPlayingStepBack = 0xFFB420;
}  // namespace

void ChaserEditor::setupPanes() {
  Picture1.rows = kVisibleRows;
  Picture1.columns = kVisibleColumns;
  Picture1.width = kVisibleColumns * kCellWidth;
  Picture1.height = kVisibleRows * kCellHeight;
  Picture1.backColor = kGridBack;
  Picture1.foreColor = kGridText;
  Picture1.gridColor = kGridLines;
  Picture1.cellAt = [this](int r, int c) { return stepCell(r, c); };

  Picture2.rows = 1;
  Picture2.columns = kVisibleColumns;
  Picture2.width = Picture1.width;
  Picture2.height = kCellHeight;
  Picture2.backColor = kHeaderBack;
  Picture2.foreColor = c_.colors.LabelColor;
  Picture2.gridColor = kGridLines;
  Picture2.cellAt = [this](int, int c) { return channelHeader(c); };

  Picture3.rows = kVisibleRows;
  Picture3.columns = 1;
  Picture3.width = kCellWidth;
  Picture3.height = Picture1.height;
  Picture3.backColor = kHeaderBack;
  Picture3.foreColor = kGridText;
  Picture3.gridColor = kGridLines;
  Picture3.cellAt = [this](int r, int) { return stepHeader(r); };
}

// A cell that holds 0 shows "0"; an empty cell shows nothing.
CellGrid::Cell ChaserEditor::stepCell(int row, int column) const {
  const int step = FirstStep + row, channel = FirstChannel + column;
  CellGrid::Cell cell;
  if (step >= INT16_MIN && step <= INT16_MAX && channel <= INT16_MAX) {
    const Value v = c_.v.fxData(chaser_).Cell(int16_t(step), int16_t(channel));
    if (!isEmpty(v)) cell.text = toText(v);
  }
  if (step == selStep_ && channel == selChannel_)
    cell.backColor = kSelectedBack;
  else if (step == playing_)
    cell.backColor = kPlayingRowBack;
  return cell;
}

CellGrid::Cell ChaserEditor::channelHeader(int column) const {
  CellGrid::Cell cell;
  cell.text = std::to_string(FirstChannel + column);
  return cell;
}

CellGrid::Cell ChaserEditor::stepHeader(int row) const {
  const int step = FirstStep + row;
  CellGrid::Cell cell;
  cell.text = std::to_string(step);
  if (step == playing_) {
    cell.backColor = kPlayingStepBack;
    cell.foreColor = 0x000000;
    cell.bold = true;
  } else if (row < c_.v.FXStepCount[chaser_] - FirstStep + 1) {
    cell.backColor = kInCountBack;
  }
  return cell;
}

void ChaserEditor::repaintGrid() {
  Picture1.invalidateAll();
  Picture2.invalidateAll();
  lblTopLeft.setCaption("Top: " + std::to_string(FirstStep) +
                        ", Left: " + std::to_string(FirstChannel));
}

void ChaserEditor::repaintStepColumn() { Picture3.invalidateAll(); }

// Cells of the table as stored: step rows and channel columns.
void ChaserEditor::tableChanged(int firstStep, int lastStep, int firstChannel, int lastChannel) {
  const int r0 = std::max(firstStep - FirstStep, 0);
  const int r1 = std::min(lastStep - FirstStep, kVisibleRows - 1);
  const int c0 = std::max(firstChannel - FirstChannel, 0);
  const int c1 = std::min(lastChannel - FirstChannel, kVisibleColumns - 1);
  if (r0 <= r1 && c0 <= c1) Picture1.invalidate(r0, r1, c0, c1);
}

void ChaserEditor::invalidateCell(int step, int channel) {
  tableChanged(step, step, channel, channel);
}

void ChaserEditor::invalidateStepRow(int step) {
  const int row = step - FirstStep;
  if (row < 0 || row >= kVisibleRows) return;
  Picture1.invalidate(row, row, 0, kVisibleColumns - 1);
  Picture3.invalidate(row, row, 0, 0);
}

// The step that plays is the chaser's pointer while its timer runs.
void ChaserEditor::followPlayingStep() {
  const int now = c_.chasers.running(chaser_) ? c_.chasers.currentStep(chaser_) : 0;
  if (now == playing_) return;
  const int before = playing_;
  playing_ = now;
  invalidateStepRow(before);
  invalidateStepRow(now);
}

void ChaserEditor::watchChaser() {
  tableListener_ = steps().changes.listen([this](const TableChange& t) {
    tableChanged(t.firstRow, t.lastRow, t.firstColumn, t.lastColumn);
  });
  stepListener_ = c_.form1.FxStep[chaser_]->addViewListener([this] { followPlayingStep(); });
  timerListener_ = c_.form1.FXTimer[chaser_]->addViewListener([this] { followPlayingStep(); });
  followPlayingStep();
}

void ChaserEditor::unwatchChaser() {
  steps().changes.unlisten(tableListener_);
  c_.form1.FxStep[chaser_]->removeViewListener(stepListener_);
  c_.form1.FXTimer[chaser_]->removeViewListener(timerListener_);
}

}  // namespace q
