#include "engine/views/channels_matrix.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/core/console.h"

namespace q {

namespace {
constexpr double kCellW = MatrixLayout::kCellWidth;
constexpr double kCellH = MatrixLayout::kCellHeight;
// Rows 1..24 show the channel table's columns 0..23; only 1..22 have a heading.
constexpr int kLastRow = kColumns;
constexpr int kNamedRows = 22;

constexpr int kWhite = 0xFFFFFF;
constexpr int kBlack = 0x000000;
constexpr int kLines = 0x808080;
constexpr int kNumbersBack = 0x404040;
constexpr int kStripBack = 0xE0E0E0;
constexpr int kWhiteTextFrom = 150;

// The cell a point falls in, counted from the pane's first; far points stay far.
int cellIndex(double at, double size) { return int(std::clamp(std::floor(at / size), -1e6, 1e6)); }

std::string heading(int row) {
  if (row == 1) return "STAGE";
  if (row == 2) return "PROG";
  if (row >= 3 && row <= kNamedRows) return "SUB " + std::to_string(row - 2);
  return {};
}

CellGrid::Cell leftText(std::string text) {
  CellGrid::Cell cell;
  cell.text = std::move(text);
  cell.align = CellGrid::Cell::Align::Left;
  return cell;
}

void paneColours(CellGrid& pane, int back, int fore) {
  pane.backColor = back;
  pane.foreColor = fore;
  pane.gridColor = kLines;
}
}  // namespace

ChannelsMatrix::ChannelsMatrix(Console& c)
    : Window(c.registry, "frmSparseMatrix"),
      Picture1(add<CellGrid>("Picture1", kCellW, kCellH)),
      Picture2(add<CellGrid>("Picture2", kCellW, kCellH)),
      Picture3(add<CellGrid>("Picture3", kCellW, kCellH)),
      Picture4(add<CellGrid>("Picture4", kCellW, kCellH)),
      Lbl1(add<Label>("Lbl1", "OUT")),
      vscScroll(add<Scroller>("vscScroll", 1, 18, 1)),
      hscScroll(add<Scroller>("hscScroll", 1, 1, 1)),
      lblTopLeft(add<Label>("lblTopLeft")),
      txtedit(add<TextBox>("txtedit")),
      c_(c) {
  setCaption("Channels Matrix");
  paneColours(Picture1, kWhite, kBlack);
  paneColours(Picture2, kNumbersBack, kWhite);
  paneColours(Picture3, kStripBack, kBlack);
  paneColours(Picture4, kWhite, kBlack);
  Picture1.cellAt = [this](int r, int col) { return gridCell(r, col); };
  Picture2.cellAt = [this](int, int col) {
    const int ch = leftChannel + col;
    return leftText(ch >= 1 && ch <= kChannels ? std::to_string(ch) : std::string());
  };
  Picture3.cellAt = [this](int, int col) { return outputCell(col); };
  Picture4.cellAt = [this](int r, int) { return leftText(heading(topRow + r)); };
  Picture2.rows = Picture3.rows = 1;
  Picture4.columns = 1;
  txtedit.setVisible(false);
  layout_.layOut(MatrixLayout::kOpenWidth, MatrixLayout::kOpenHeight, c.v.MaxChans);
  wire();
  load();
  // The first resize, as the window opens at its size.
  applyLayout();
}

ChannelsMatrix::~ChannelsMatrix() {
  // The channel table outlives every window; the mixer's notice is left at
  // unload, as the mixer may already be gone when the console itself ends.
  if (tableListener_) c_.v.ChanTable.changes.unlisten(tableListener_);
}

void ChannelsMatrix::wire() {
  Picture1.onMouseDown = [this](const MouseEvent& e) { press(e); };
  Picture1.onMouseMove = [this](const MouseEvent& e) { dragStep(e); };
  Picture1.onMouseUp = [this](const MouseEvent&) { dragging = false; };
  Picture1.onDblClick = [this](const MouseEvent&) { openEditor(); };
  txtedit.onKeyPress = [this](int& key) {
    if (key == 13) enterLevel();
  };
  // Each bar repaints the panes that move with it.
  hscScroll.onChange = [this] {
    leftChannel = hscScroll.position();
    scrolled({&Picture1, &Picture2, &Picture3});
  };
  vscScroll.onChange = [this] {
    topRow = vscScroll.position();
    scrolled({&Picture1, &Picture4});
  };
  tableListener_ =
      c_.v.ChanTable.changes.listen([this](const TableChange& ch) { tableChanged(ch); });
  mixListener_ = c_.mixer.outputMixed.add([this] { outputMixed(); });
  onUnload = [this] {
    if (mixListener_) c_.mixer.outputMixed.remove(std::exchange(mixListener_, 0));
  };
}

// The bars as the window loads: the vertical over the rows, the horizontal
// over the channels in use, each paging by what the grid shows.
void ChannelsMatrix::load() {
  vscScroll.setRange(1, 18);
  vscScroll.largeChange = int(std::max(1L, roundHalfEven(layout_.picture1.height / kCellH)));
  hscScroll.setRange(1, std::max(1, c_.v.MaxChans - 17));
  hscScroll.largeChange = int(std::max(1L, roundHalfEven(layout_.picture1.width / kCellW)));
  showPosition();
}

void ChannelsMatrix::resize(double width, double height) {
  if (state_ == State::Normal) height = MatrixLayout::held(height);
  if (!layout_.layOut(width, height, c_.v.MaxChans)) return;
  applyLayout();
}

void ChannelsMatrix::applyLayout() {
  const MatrixLayout& l = layout_;
  const int rows = l.visibleRows(), columns = l.visibleColumns();
  Picture1.width = l.picture1.width;
  Picture1.height = l.picture1.height;
  Picture1.rows = rows;
  Picture1.columns = columns;
  for (CellGrid* strip : {&Picture2, &Picture3}) {
    strip->width = l.picture1.width;
    strip->height = kCellH;
    strip->columns = columns;
  }
  Picture4.cellWidth = l.picture4.width;
  Picture4.width = l.picture4.width;
  Picture4.height = l.picture4.height;
  Picture4.rows = rows;
  shownOutput_.assign(size_t(columns), -1);
  for (CellGrid* pane : {&Picture1, &Picture2, &Picture3, &Picture4}) pane->reshape();
  // A range that would fall below its start holds the bar still.
  hscScroll.setRange(1, l.hscMax);
  vscScroll.setRange(1, l.vscMax);
  placesChanged.notify();
  if (paints()) repaintAll();
}

void ChannelsMatrix::setWindowState(State s) {
  if (s == state_) return;
  state_ = s;
  // Back in its normal state the window shows the tables as they are now.
  if (paints()) repaintAll();
}

bool ChannelsMatrix::onTable(int row, int channel) const {
  return row >= 1 && row <= kLastRow && channel >= 1 && channel <= kChannels;
}

int ChannelsMatrix::levelAt(int row, int channel) const {
  return onTable(row, channel) ? c_.v.ChanTable.get(channel, row - 1) : -1;
}

CellGrid::Cell ChannelsMatrix::gridCell(int r, int col) const {
  const int v = levelAt(topRow + r, leftChannel + col);
  if (v < 0) return {};
  CellGrid::Cell cell = leftText(std::to_string(v));
  // A level fades from white to pure blue as it rises; on the deeper blues
  // the number is written in white to stay readable.
  if (v > 0) cell.backColor = ((255 - v) << 16) | ((255 - v) << 8) | 0xFF;
  if (v >= kWhiteTextFrom) cell.foreColor = kWhite;
  return cell;
}

// The frame byte of the channel as it stands after patch and masters, up to the channels in use.
int ChannelsMatrix::outputByte(int col) const {
  const int ch = leftChannel + col;
  if (ch < 1 || ch > std::min<int>(c_.v.MaxChans, kChannels)) return -1;
  return c_.v.DMXData[size_t(ch - 1)];
}

CellGrid::Cell ChannelsMatrix::outputCell(int col) const {
  const int b = outputByte(col);
  return b < 0 ? CellGrid::Cell{} : leftText(std::to_string(b));
}

void ChannelsMatrix::press(const MouseEvent& e) {
  dragging = true;
  const int row = cellIndex(e.y, kCellH), col = cellIndex(e.x, kCellW);
  currentRow = row + topRow;
  currentChannel = col + leftChannel;
  if (!onTable(currentRow, currentChannel)) return;
  txtedit.setText(std::to_string(levelAt(currentRow, currentChannel)));
  // Laid over the cell, shown only by a double click.
  const Place& grid = layout_.picture1;
  layout_.txtedit = {grid.left + col * kCellW, grid.top + row * kCellH, kCellW, kCellH};
  placesChanged.notify();
}

// One level per step, whatever the distance: up while the mouse goes up or
// sideways, down while it goes down.
void ChannelsMatrix::dragStep(const MouseEvent& e) {
  if (!dragging) return;
  if (onTable(currentRow, currentChannel)) {
    const int v = levelAt(currentRow, currentChannel);
    int next = v;
    if (e.y <= lastY) {
      if (v < 255) next = v + 1;
    } else if (v > 0) {
      next = v - 1;
    }
    c_.v.ChanTable.set(currentChannel, currentRow - 1, uint8_t(next));
  }
  lastY = float(e.y);
  c_.v.MixDirty = kTrue;
}

void ChannelsMatrix::openEditor() {
  dragging = false;
  txtedit.setVisible(true);
  txtedit.requestFocus();
}

// Enter in the cell editor: the leading number of the text, rounded to a
// level; a number out of range is dropped without a word, and "ff" or "FF" is full.
void ChannelsMatrix::enterLevel() {
  txtedit.setVisible(false);
  const std::string text = txtedit.text();
  const bool onCell = onTable(currentRow, currentChannel);
  {
    auto batch = c_.v.ChanTable.changes.batch();
    const double n = leadingNumber(text);
    if (n > -1 && n < 256) {
      const long level = roundHalfEven(n);
      if (level < 0 || level > 255) {
        c_.failures.report("Channels Matrix: the level \"" + text + "\" rounds to " +
                           std::to_string(level) + ", outside 0 to 255; the cell keeps its level");
        return;
      }
      if (onCell) c_.v.ChanTable.set(currentChannel, currentRow - 1, uint8_t(level));
    }
    if ((text == "ff" || text == "FF") && onCell)
      c_.v.ChanTable.set(currentChannel, currentRow - 1, 255);
  }
  c_.v.MixDirty = kTrue;
}

void ChannelsMatrix::scrolled(std::initializer_list<CellGrid*> panes) {
  if (!paints()) return;
  for (CellGrid* pane : panes) pane->invalidateAll();
  for (size_t col = 0; col < shownOutput_.size(); ++col) shownOutput_[col] = outputByte(int(col));
  showPosition();
}

void ChannelsMatrix::repaintAll() { scrolled({&Picture1, &Picture2, &Picture3, &Picture4}); }

void ChannelsMatrix::showPosition() {
  lblTopLeft.setCaption("Top: " + std::to_string(topRow) +
                        ", Left: " + std::to_string(leftChannel));
}

// A change of the channel table repaints the cells of it that are in view.
void ChannelsMatrix::tableChanged(const TableChange& ch) {
  if (!paints()) return;
  // Table rows are channels, table columns the grid's rows less one.
  const int r0 = std::max(ch.firstColumn + 1 - topRow, 0);
  const int r1 = std::min(ch.lastColumn + 1 - topRow, Picture1.rows - 1);
  const int c0 = std::max(ch.firstRow - leftChannel, 0);
  const int c1 = std::min(ch.lastRow - leftChannel, Picture1.columns - 1);
  if (r0 > r1 || c0 > c1) return;
  Picture1.invalidate(r0, r1, c0, c1);
}

// After every mix: the strip's cells whose byte changed, and only those.
void ChannelsMatrix::outputMixed() {
  if (!paints()) return;
  int runStart = -1;
  const int columns = int(shownOutput_.size());
  for (int col = 0; col <= columns; ++col) {
    bool differs = false;
    if (col < columns) {
      const int now = outputByte(col);
      differs = now != std::exchange(shownOutput_[size_t(col)], now);
    }
    if (differs && runStart < 0) runStart = col;
    if (!differs && runStart >= 0) {
      Picture3.invalidate(0, 0, runStart, col - 1);
      runStart = -1;
    }
  }
}

void addChannelsMatrix(Console& c) {
  c.windows.setFactory("frmSparseMatrix", [&c] { return std::make_unique<ChannelsMatrix>(c); });
  c.form1.menu("mnuMatrix").onClick = [&c] { c.windows.load("frmSparseMatrix").show(); };
}

}  // namespace q
