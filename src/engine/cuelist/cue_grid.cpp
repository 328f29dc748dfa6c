#include "engine/cuelist/cue_grid.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/show_formats.h"

namespace q {

namespace {
constexpr int kGridLines = 0x808080;
constexpr int kPaneBack = 0x0B0D10;
constexpr int kPaneText = 0xE8ECF2;
constexpr int kHeaderBack = 0x1F232A;
constexpr int kHeaderText = 0xFFC860;
constexpr int kSelectedBack = 0x4A3A12;  // the row selected
constexpr int kInProgText = 0x36E06E;    // the row now in Prog (NextCue)

// The client area's fixed places, in twips.
constexpr double kMargin = 120;
constexpr double kPanesTop = 660;
constexpr double kHeaderTop = kPanesTop - Cuewin::kCellHeight;
constexpr double kLevelsLeft = 5050;
constexpr double kNameWidth = 2400;
// The levels take what the left panes and the scroll bar leave: W - 5450.
constexpr int kLevelsLess = 5450;
constexpr int kBarFromRight = 400;
constexpr int kPanesLess = 1800;
constexpr int kBarFromBottom = 1100;
constexpr double kBar = 255;

int wholeCells(double length, double cell) { return std::max(0, int(std::floor(length / cell))); }

// A typed level: the leading number of the text, with its exponent if it has
// one; nothing when the text reads as no finite number at all.
std::optional<double> typedNumber(const std::string& text) {
  const char* s = text.c_str();
  while (*s == ' ' || *s == '\t') ++s;
  const char* p = s;
  if (*p == '+' || *p == '-') ++p;
  const char* digits = p;
  while (std::isdigit(static_cast<unsigned char>(*p)) || *p == '.') ++p;
  if (p == digits) return 0.0;
  if (*p == 'e' || *p == 'E') {
    const char* e = p + 1;
    if (*e == '+' || *e == '-') ++e;
    if (std::isdigit(static_cast<unsigned char>(*e))) {
      while (std::isdigit(static_cast<unsigned char>(*e))) ++e;
      p = e;
    }
  }
  const double d = std::strtod(std::string(s, p).c_str(), nullptr);
  if (!std::isfinite(d)) return std::nullopt;
  return d;
}

std::string upper(std::string s) {
  for (char& ch : s) ch = char(std::toupper(static_cast<unsigned char>(ch)));
  return s;
}
}  // namespace

Cuewin::Cuewin(Console& c)
    : Window(c.registry, "Cuewin"),
      txt_Show(add<TextBox>("txt_Show")),
      txt_Date(add<TextBox>("txt_Date")),
      Picture1(add<CellGrid>("Picture1", kCellWidth, kCellHeight)),
      Picture2(add<CellGrid>("Picture2", kCellWidth, kCellHeight)),
      Picture3(add<CellGrid>("Picture3", kCellWidth, kCellHeight)),
      Picture4(add<CellGrid>("Picture4", kCellWidth, kCellHeight)),
      Picture5(add<CellGrid>("Picture5", kCellWidth, kCellHeight)),
      Picture6(add<CellGrid>("Picture6", kNameWidth, kCellHeight)),
      vscScroll(add<Scroller>("vscScroll", 1, INT16_MAX, 1)),
      hscScroll(add<Scroller>("hscScroll", 1, 1, 1)),
      txtedit(add<TextBox>("txtedit")),
      lblTopLeft(add<Label>("lblTopLeft")),
      logo(add<Lamp>("logo", "logo")),
      c_(c),
      CDialog1(c.dialogs()) {
  setCaption("Cue List");
  buildMenus();
  txtedit.setVisible(false);

  setBox(txt_Show, {kMargin, 60, 2900, 315});
  setBox(txt_Date, {3120, 60, 1840, 315});
  setBox(lblTopLeft, {kLevelsLeft, 90, 2800, 255});
  setBox(logo, {10110, 30, 1500, 360});
  setBox(Picture3, {kMargin, kPanesTop, kCellWidth, 0});
  setBox(Picture4, {kMargin + kCellWidth + 20, kPanesTop, kCellWidth, 0});
  setBox(Picture5, {kMargin + 2 * (kCellWidth + 20), kPanesTop, 4 * kCellWidth, 0});
  setBox(Picture6,
         {kMargin + 2 * (kCellWidth + 20) + 4 * kCellWidth + 20, kPanesTop, kNameWidth, 0});
  setBox(Picture2, {kLevelsLeft, kHeaderTop, 0, kCellHeight});
  setBox(Picture1, {kLevelsLeft, kPanesTop, 0, 0});
  setBox(vscScroll, {0, kPanesTop, kBar, 0});
  setBox(hscScroll, {kLevelsLeft, 0, 0, kBar});
  setBox(txtedit, {kLevelsLeft, kPanesTop, kCellWidth, kCellHeight});
  Picture3.columns = Picture4.columns = Picture6.columns = 1;
  Picture5.columns = 4;
  for (CellGrid* p : {&Picture3, &Picture4, &Picture5, &Picture6}) p->width = boxOf(*p).width;

  // The window as it first opens: the resize rule lays it out.
  resize(kStartWidth, kStartHeight);
  txt_Show.setText(c.v.ShowName);
  txt_Date.setText(c.v.ShowDate);
  txt_Show.onChange = [this] { c_.v.ShowName = txt_Show.text(); };
  txt_Date.onChange = [this] { c_.v.ShowDate = txt_Date.text(); };
  // The large steps: the whole cells that fit.
  vscScroll.largeChange = std::max(1, wholeCells(Picture1.height, kCellHeight));
  hscScroll.largeChange = std::max(1, wholeCells(Picture1.width, kCellWidth));
  vscScroll.onChange = [this] {
    TopRow = int16_t(vscScroll.position());
    refreshLevels();
    refreshColumns();
  };
  hscScroll.onChange = [this] {
    LeftChannel = int16_t(hscScroll.position());
    refreshLevels();
    Picture3.invalidateAll();
  };
  wirePanes();
  wireMenus();
  readRecent();

  cuesListener_ = c.v.Cues.changes.listen([this](const TableChange& ch) { cuesChanged(ch); });
  nextCueRow_ = c.memories.nextCue();
  // The label may go before this window does, as the console itself ends.
  nextCue_ = &c.memories.NextCue;
  nextCueListener_ = nextCue_->addViewListener([this] { nextCueChanged(); });
  nextCueGone_ = nextCue_->addDestroyListener([this] { nextCue_ = nullptr; });
}

Cuewin::~Cuewin() {
  c_.v.Cues.changes.unlisten(cuesListener_);
  if (!nextCue_) return;
  nextCue_->removeViewListener(nextCueListener_);
  nextCue_->removeDestroyListener(nextCueGone_);
}

void Cuewin::setBox(const Control& c, Box b) { boxes_[&c] = b; }

void Cuewin::sizePane(CellGrid& pane, double w, double h) {
  Box& b = boxes_.at(&pane);
  b.width = pane.width = w;
  b.height = pane.height = h;
  // The rows painted: from 0 to the whole cells that fit, so a part row shows too.
  pane.rows = &pane == &Picture2 ? 1 : wholeCells(h, kCellHeight) + 1;
  if (&pane == &Picture1 || &pane == &Picture2) pane.columns = wholeCells(w, kCellWidth) + 1;
  if (&pane == &Picture6) pane.cellWidth = w;
  pane.reshape();
}

void Cuewin::resize(int w, int h) {
  width_ = w;
  height_ = h;
  if (w > 9000) {
    const double levels = w - kLevelsLess;
    sizePane(Picture1, levels, Picture1.height);
    sizePane(Picture2, levels, kCellHeight);
    boxes_.at(&hscScroll).width = levels;
    boxes_.at(&vscScroll).left = w - kBarFromRight;
    const long most = roundHalfEven(c_.v.MaxChans - levels / kCellWidth + 1);
    hscScroll.setRange(1, int(std::clamp<long>(most, 1, INT16_MAX)));
  }
  if (h > 2500) {
    const double panes = h - kPanesLess;
    boxes_.at(&hscScroll).top = h - kBarFromBottom;
    boxes_.at(&vscScroll).height = panes;
    sizePane(Picture1, Picture1.width, panes);
    for (CellGrid* p : {&Picture3, &Picture4, &Picture5, &Picture6}) sizePane(*p, p->width, panes);
  }
  refreshAll();
  layoutChanged.notify();
}

// --- painting -----------------------------------------------------------------

void Cuewin::wirePanes() {
  for (CellGrid* p : {&Picture1, &Picture2, &Picture3, &Picture4, &Picture5, &Picture6}) {
    p->backColor = kPaneBack;
    p->foreColor = kPaneText;
    p->gridColor = kGridLines;
    p->textLeft = 50;
    p->textTop = 25;
  }
  Picture2.backColor = kHeaderBack;
  Picture1.cellAt = [this](int r, int c) { return levelCell(r, c); };
  Picture2.cellAt = [this](int, int c) { return headerCell(c); };
  Picture3.cellAt = [this](int r, int) {
    return rowCell(TopRow + r, cueCell(c_.v, TopRow + r, cue::kNumber));
  };
  Picture4.cellAt = [this](int r, int) {
    return rowCell(TopRow + r, cueCell(c_.v, TopRow + r, cue::kFunction));
  };
  Picture5.cellAt = [this](int r, int c) {
    return rowCell(TopRow + r, cueCell(c_.v, TopRow + r, cue::kWaitUp + c));
  };
  Picture6.cellAt = [this](int r, int) {
    return rowCell(TopRow + r, cueCell(c_.v, TopRow + r, cue::kName));
  };

  Picture1.onMouseDown = [this](const MouseEvent& e) { levelsDown(e); };
  // The editor comes up over the cell the press before chose.
  Picture1.onDblClick = [this](const MouseEvent&) {
    txtedit.setVisible(true);
    txtedit.requestFocus();
  };
  for (CellGrid* p : {&Picture3, &Picture4, &Picture5, &Picture6}) {
    p->onMouseDown = [this](const MouseEvent& e) { columnsDown(e); };
    p->onDblClick = [this](const MouseEvent&) { columnsDblClick(); };
  }
  txtedit.onKeyPress = [this](int& key) {
    if (key != 13) return;
    key = 0;
    editorEnter();
  };
}

// The selected row stands out by its background, the row in Prog by its green type.
CellGrid::Cell Cuewin::rowCell(int row, const Value& value) const {
  CellGrid::Cell cell;
  cell.text = toText(value);
  cell.align = CellGrid::Cell::Align::Left;
  if (row == c_.v.SelectedCue) cell.backColor = kSelectedBack;
  if (row == nextCueRow_ && row > 0) {
    cell.foreColor = kInProgText;
    cell.bold = true;
  }
  return cell;
}

CellGrid::Cell Cuewin::levelCell(int r, int c) const {
  const long column = long(LeftChannel) + c;
  const Value v = column <= INT16_MAX ? cueCell(c_.v, long(TopRow) + r, int(column)) : Value{};
  return rowCell(TopRow + r, v);
}

CellGrid::Cell Cuewin::headerCell(int c) const {
  CellGrid::Cell cell;
  cell.text = std::to_string(long(LeftChannel) + c);
  cell.foreColor = kHeaderText;
  cell.align = CellGrid::Cell::Align::Left;
  return cell;
}

void Cuewin::refreshLevels() {
  Picture1.invalidateAll();
  Picture2.invalidateAll();
  lblTopLeft.setCaption("Top: " + std::to_string(TopRow) +
                        ", Left: " + std::to_string(LeftChannel));
}

void Cuewin::refreshColumns() {
  for (CellGrid* p : {&Picture3, &Picture4, &Picture5, &Picture6}) p->invalidateAll();
}

void Cuewin::refreshAll() {
  refreshLevels();
  refreshColumns();
}

// Cells of the table that changed, as rows and columns of the panes that show them.
void Cuewin::cuesChanged(const TableChange& ch) {
  const int r0 = std::max(ch.firstRow - TopRow, 0);
  const int r1 = std::min(ch.lastRow - TopRow, Picture1.rows);
  if (r0 > r1) return;
  auto shows = [&ch](int column) { return ch.firstColumn <= column && ch.lastColumn >= column; };
  const int c0 = std::max(ch.firstColumn - LeftChannel, 0);
  const int c1 = std::min(ch.lastColumn - LeftChannel, Picture1.columns);
  if (c0 <= c1) Picture1.invalidate(r0, r1, c0, c1);
  if (shows(cue::kNumber)) Picture3.invalidate(r0, r1, 0, 0);
  if (shows(cue::kFunction)) Picture4.invalidate(r0, r1, 0, 0);
  if (ch.firstColumn <= cue::kDownTime && ch.lastColumn >= cue::kWaitUp)
    Picture5.invalidate(r0, r1, std::max(ch.firstColumn - cue::kWaitUp, 0),
                        std::min(ch.lastColumn - cue::kWaitUp, 3));
  if (shows(cue::kName)) Picture6.invalidate(r0, r1, 0, 0);
}

void Cuewin::rowChanged(int row) {
  const int r = row - TopRow;
  if (r < 0 || r >= Picture1.rows) return;
  for (CellGrid* p : {&Picture1, &Picture3, &Picture4, &Picture5, &Picture6})
    p->invalidate(r, r, 0, p->columns - 1);
}

void Cuewin::nextCueChanged() {
  if (!nextCue_) return;
  const long now = c_.memories.nextCue();
  if (now == nextCueRow_) return;
  const long before = std::exchange(nextCueRow_, now);
  if (before >= INT16_MIN && before <= INT16_MAX) rowChanged(int(before));
  if (now >= INT16_MIN && now <= INT16_MAX) rowChanged(int(now));
}

// --- selection and the editor ---------------------------------------------------

void Cuewin::setSelectedCue(double row) {
  const int16_t before = c_.v.SelectedCue;
  c_.v.SelectedCue = int16_t(row);
  rowChanged(before);
  rowChanged(c_.v.SelectedCue);
}

// A press chooses the row and the channel under it; the editor takes that
// cell's value and moves over it, still hidden. A point whose row or channel
// lies beyond the table's numbers chooses nothing.
void Cuewin::levelsDown(const MouseEvent& e) {
  const double r = std::floor(e.y / kCellHeight), c = std::floor(e.x / kCellWidth);
  const double row = r + TopRow, channel = c + LeftChannel;
  if (!(row >= INT16_MIN && row <= INT16_MAX && channel >= INT16_MIN && channel <= INT16_MAX))
    return;
  setSelectedCue(row);
  EditChannel = int16_t(channel);
  txtedit.setText(toText(c_.v.Cues.Cell(c_.v.SelectedCue, EditChannel)));
  const Box& pane = boxOf(Picture1);
  const Box at{pane.left + c * kCellWidth, pane.top + r * kCellHeight, kCellWidth, kCellHeight};
  if (at != boxOf(txtedit)) {
    setBox(txtedit, at);
    layoutChanged.notify();
  }
  if (e.button == MouseButton::Right && onPopupMenu) onPopupMenu(qualified("mnuCue"));
}

void Cuewin::columnsDown(const MouseEvent& e) {
  const double row = std::floor(e.y / kCellHeight) + TopRow;
  if (!(row >= INT16_MIN && row <= INT16_MAX)) return;
  setSelectedCue(row);
  if (e.button == MouseButton::Right && onPopupMenu) onPopupMenu(qualified("mnuCue"));
}

// The properties of the selected row; a row past the list is first made
// from the live look.
void Cuewin::columnsDblClick() {
  if (c_.v.SelectedCue > c_.v.CueCount) appendFromLiveLook();
  c_.windows.load("CueProps").show();
}

// Enter: the typed level goes into the cell. "FF" in any case is full; a
// number from 0 up to below 256 is stored as it reads (0 empties the cell);
// anything else leaves the cell as it was, and text that is no number reads as 0.
void Cuewin::editorEnter() {
  txtedit.setVisible(false);
  const std::string text = txtedit.text();
  Value level;
  if (upper(text) == "FF") {
    level = 255.0;
  } else {
    const auto n = typedNumber(text);
    if (!n || *n < 0 || *n >= 256) return;
    if (*n != 0) level = *n;
  }
  c_.v.Cues.setCell(c_.v.SelectedCue, EditChannel, level);
}

// A new row from what is on stage: the Stage panel's number and name, the
// mix as it leaves the mixer, and the four times of the coming fade. The
// times go to the row the shared counter J was left on by the last cue
// search, not to the new row: kept so on purpose.
void Cuewin::appendFromLiveLook() {
  Variables& v = c_.v;
  if (v.CueCount == INT16_MAX) return;  // the list is full
  auto batch = v.Cues.changes.batch();
  const int16_t row = ++v.CueCount;
  v.Cues.setCell(row, cue::kNumber, c_.memories.STAGEMem.text());
  v.Cues.setCell(row, cue::kFunction, std::string("1"));
  v.Cues.setCell(row, cue::kName, c_.memories.STAGEName.text());
  const FadeTimes& t = c_.fadeTimes;
  v.Cues.setCell(v.J, cue::kWaitUp, t.WupTime.text());
  v.Cues.setCell(v.J, cue::kUpTime, t.UpTime.text());
  v.Cues.setCell(v.J, cue::kWaitDown, t.WdownTime.text());
  v.Cues.setCell(v.J, cue::kDownTime, t.DownTime.text());
  const int16_t channels = int16_t(std::clamp<int>(v.MaxChans, 0, kChannels));
  for (v.I = 1; v.I <= channels; ++v.I) {
    const uint8_t level = v.MixBuffer[size_t(v.I - 1)];
    v.Cues.setCell(row, v.I, level == 0 ? Value{} : Value{level});
  }
}

}  // namespace q
