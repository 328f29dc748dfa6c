#include "engine/chasers/chaser_editor.h"

#include <cmath>

#include "engine/core/console.h"
#include "engine/showfiles/show_formats.h"
#include "engine/submasters/submaster_bank.h"

namespace q {

namespace {
const char* const kChaserFilter = "Orvaldi Effect (*.Qfx)|*.Qfx|Plain Text (*.txt)|*.txt";

// The boxes take digits only; Backspace and the other control keys pass.
void digitsOnly(int& key) {
  if (key >= 32 && (key < '0' || key > '9')) key = 0;
}
}  // namespace

ChaserEditor::ChaserEditor(Console& c, int chaser)
    : Window(c.registry, windowName(chaser)),
      Picture1(add<CellGrid>("Picture1", kCellWidth, kCellHeight)),
      Picture2(add<CellGrid>("Picture2", kCellWidth, kCellHeight)),
      Picture3(add<CellGrid>("Picture3", kCellWidth, kCellHeight)),
      hscScroll(add<Scroller>("hscScroll", 1, 1, 1)),
      vscScroll(add<Scroller>("vscScroll", 1, kLastFirstStep, 1)),
      txtStep(add<TextBox>("txtStep", "1")),
      txtChannel(add<TextBox>("txtChannel", "1")),
      Fader(add<Scroller>("Fader", 0, 255, 255)),
      SLevel(add<Label>("SLevel", "00")),
      Flash(add<Label>("Flash", "FLASH")),
      SMaster(add<Scroller>("SMaster", 0, 255, 0)),
      Label2(add<Label>("Label2", "100")),
      ScSpeed(add<Scroller>("ScSpeed", 0, 255, 200)),
      Label3(add<Label>("Label3", "22")),
      ChkRandom(add<CheckBox>("ChkRandom", "RANDOM MODE")),
      lblTopLeft(add<Label>("lblTopLeft")),
      c_(c),
      chaser_(chaser & 1),
      dialog_(c.dialogs()) {
  setCaption(chaser_ == 0 ? "Chaser 1 Config" : "Chaser 2 Config");
  addMenus();
  setupPanes();
  wireControls();
  load();
  watchChaser();
}

ChaserEditor::~ChaserEditor() { unwatchChaser(); }

void ChaserEditor::addMenus() {
  const struct {
    const char* name;
    const char* caption;
    const char* parent;
    void (ChaserEditor::*action)();
  } items[] = {
      {"mnuFile", "File", "", nullptr},
      {"mnuNew", "New", "mnuFile", &ChaserEditor::mnuNew},
      {"mnuOpen", "Open ...", "mnuFile", &ChaserEditor::mnuOpen},
      {"mnuSaveAs", "Save As ...", "mnuFile", &ChaserEditor::mnuSaveAs},
      {"mnuEdit", "Edit", "", nullptr},
      {"mnuInsert", "Insert", "mnuEdit", &ChaserEditor::mnuInsert},
      {"mnuClear", "Clear", "mnuEdit", &ChaserEditor::mnuClear},
      {"mnuClearAll", "Clear All", "mnuEdit", &ChaserEditor::mnuClearAll},
      // Cut, Copy and Paste stand in the menu with nothing behind them.
      {"mnuCut", "Cut", "mnuEdit", nullptr},
      {"mnuCopy", "Copy", "mnuEdit", nullptr},
      {"mnuPaste", "Paste", "mnuEdit", nullptr},
  };
  for (const auto& it : items) {
    MenuItem& m = addMenu(it.name, it.caption, it.parent);
    if (it.action) m.onClick = [this, a = it.action] { (this->*a)(); };
  }
}

void ChaserEditor::wireControls() {
  Picture1.onMouseDown = [this](const MouseEvent& e) { gridMouseDown(e); };
  Picture1.onDblClick = [this](const MouseEvent&) { flashClick(); };
  Picture3.onMouseDown = [this](const MouseEvent& e) { stepColumnMouseDown(e); };
  txtStep.onChange = [this] { selectCell(); };
  txtChannel.onChange = [this] { selectCell(); };
  txtStep.onKeyPress = digitsOnly;
  txtChannel.onKeyPress = digitsOnly;
  Fader.onChange = [this] { faderChange(); };
  Flash.onClick = [this] { flashClick(); };
  SMaster.onChange = [this] {
    Label2.setCaption(SubmasterBank::percentText(SMaster.position()));
    if (EditorUpdating) return;
    (chaser_ == 0 ? c_.v.FX1Level : c_.v.FX2Level) = uint8_t(255 - SMaster.position());
  };
  ScSpeed.onChange = [this] {
    Label3.setCaption(SubmasterBank::percentText(ScSpeed.position()));
    if (!EditorUpdating) c_.chasers.setSpeed(chaser_, ScSpeed.position());
  };
  ChkRandom.onClick = [this] { c_.v.FXRandom[chaser_] = ChkRandom.checked() ? kTrue : kFalse; };
  hscScroll.onChange = [this] {
    FirstChannel = hscScroll.position();
    repaintGrid();
  };
  vscScroll.onChange = [this] {
    FirstStep = vscScroll.position();
    repaintGrid();
    repaintStepColumn();
  };
}

// The window's load: nothing the scrollers do here writes back.
void ChaserEditor::load() {
  hscScroll.setRange(1, std::max(1, int(c_.v.MaxChans) - 12));
  hscScroll.largeChange = kVisibleColumns;
  vscScroll.setRange(1, kLastFirstStep);
  vscScroll.largeChange = kVisibleRows;
  EditorUpdating = true;
  FirstStep = FirstChannel = 1;
  SMaster.setPosition(255 - (chaser_ == 0 ? c_.v.FX1Level : c_.v.FX2Level));
  Label2.setCaption(SubmasterBank::percentText(SMaster.position()));
  const int interval = c_.form1.FXTimer[chaser_]->interval();
  ScSpeed.setPosition(int(std::clamp<long>(roundHalfEven(interval / 5.0), 0, 255)));
  Label3.setCaption(SubmasterBank::percentText(ScSpeed.position()));
  ChkRandom.setChecked(c_.v.FXRandom[chaser_] != kFalse);
  backColor = c_.colors.SkinBackColor;
  EditorUpdating = false;
  // The fader shows the cell the two boxes name from the start.
  selectCell();
  repaintGrid();
}

std::optional<std::pair<int16_t, int16_t>> ChaserEditor::currentCell() {
  const TextBox* boxes[] = {&txtStep, &txtChannel};
  int16_t at[2] = {0, 0};
  for (int i = 0; i < 2; ++i) {
    const std::string& text = boxes[i]->text();
    if (text.empty()) return std::nullopt;
    const auto n = parseNumber(text);
    if (!n) {
      c_.dialogs().msgBox(caption(), "Type mismatch", MsgButtons::OK, MsgIcon::Exclamation);
      return std::nullopt;
    }
    if (!std::isfinite(*n) || *n < -32768.5 || *n > 32767.5) {
      c_.dialogs().msgBox(caption(), "Overflow", MsgButtons::OK, MsgIcon::Exclamation);
      return std::nullopt;
    }
    at[i] = int16_t(roundHalfEven(*n));
  }
  return std::pair{at[0], at[1]};
}

// A change of either box: the fader and its percentage show the cell.
void ChaserEditor::selectCell() {
  const auto cell = currentCell();
  if (!cell) return;
  const int oldStep = selStep_, oldChannel = selChannel_;
  selStep_ = cell->first;
  selChannel_ = cell->second;
  invalidateCell(oldStep, oldChannel);
  invalidateCell(selStep_, selChannel_);
  EditorUpdating = true;
  Fader.setPosition(255 - int(std::clamp(steps().number(cell->first, cell->second), 0.0, 255.0)));
  SLevel.setCaption(SubmasterBank::percentText(Fader.position()));
  EditorUpdating = false;
}

// A level above 0 is stored; the bottom empties the cell, so it is left out of a saved file.
void ChaserEditor::faderChange() {
  SLevel.setCaption(SubmasterBank::percentText(Fader.position()));
  if (EditorUpdating) return;
  const auto cell = currentCell();
  if (!cell) return;
  const int p = Fader.position();
  steps().setCell(cell->first, cell->second, p != 255 ? Value(uint8_t(255 - p)) : Value());
}

void ChaserEditor::flashClick() { Fader.setPosition(Fader.position() >= 128 ? 0 : 255); }

// A press picks the cell under it; a left press below the last step extends the chaser to it.
void ChaserEditor::gridMouseDown(const MouseEvent& e) {
  const double step = std::floor(e.y / kCellHeight) + FirstStep;
  const double channel = std::floor(e.x / kCellWidth) + FirstChannel;
  txtStep.setText(toText(Value(step)));
  txtChannel.setText(toText(Value(channel)));
  // A row the boxes could not take has been told already.
  const bool selected = selStep_ == step && selChannel_ == channel;
  if (selected && e.button == MouseButton::Left && step > stepCount()) {
    if (setStepCount(long(step))) repaintStepColumn();
  }
  if (e.button == MouseButton::Right && onPopupMenu) onPopupMenu("mnuEdit");
}

// A press in the step column makes the chaser end at that row; the cells
// below stay in the table and come back if it grows again.
void ChaserEditor::stepColumnMouseDown(const MouseEvent& e) {
  const double step = std::floor(e.y / kCellHeight) + FirstStep;
  if (setStepCount(long(std::clamp(step, -1e9, 1e9)))) repaintStepColumn();
}

bool ChaserEditor::setStepCount(long count) {
  if (count < 0 || count > 255) {
    c_.dialogs().msgBox(caption(), "Overflow", MsgButtons::OK, MsgIcon::Exclamation);
    return false;
  }
  c_.v.FXStepCount[chaser_] = int16_t(count);
  return true;
}

int16_t ChaserEditor::stepCount() const { return c_.v.FXStepCount[chaser_]; }

CSparseMatrix& ChaserEditor::steps() { return c_.v.fxData(chaser_); }

void ChaserEditor::clearStep(int16_t step) {
  for (int ch = 1; ch <= c_.v.MaxChans; ++ch) steps().setCell(step, int16_t(ch), Value());
}

void ChaserEditor::mnuClear() {
  const auto cell = currentCell();
  if (!cell) return;
  auto batch = steps().changes.batch();
  clearStep(cell->first);
}

// Every step of the chaser is emptied; the count stays.
void ChaserEditor::mnuClearAll() {
  auto batch = steps().changes.batch();
  for (int step = 1; step <= stepCount(); ++step) clearStep(int16_t(step));
}

// Opens an empty step at the selected one: the steps from there on move down one.
void ChaserEditor::mnuInsert() {
  const auto cell = currentCell();
  if (!cell) return;
  const int at = cell->first;
  {
    auto batch = steps().changes.batch();
    // Rows below 0 hold no steps: nothing there is moved.
    for (int step = stepCount(); step >= std::max(at, 0) && step < INT16_MAX; --step)
      for (int ch = 1; ch <= c_.v.MaxChans; ++ch)
        steps().setCell(int16_t(step + 1), int16_t(ch), steps().Cell(int16_t(step), int16_t(ch)));
    clearStep(int16_t(at));
  }
  setStepCount(stepCount() + 1);
  repaintStepColumn();
}

// An empty chaser. The margin of 30 steps also clears rows a shorter count no longer covers.
void ChaserEditor::mnuNew() {
  {
    auto batch = steps().changes.batch();
    for (int step = 0; step <= stepCount() + 30; ++step) clearStep(int16_t(step));
  }
  c_.v.FXStepCount[chaser_] = 0;
  repaintStepColumn();
}

void ChaserEditor::mnuOpen() {
  dialog_.FileName.clear();
  dialog_.Filter = kChaserFilter;
  dialog_.ShowOpen();
  if (dialog_.FileName.empty()) return;
  const std::string path = dialog_.FileName;
  c_.files.tryLoad(path, [&] { LoadChaser(c_, path, chaser_); });
  // What the file set stays set, also when it failed part way.
  ChkRandom.setChecked(c_.v.FXRandom[chaser_] != kFalse);
  repaintGrid();
  repaintStepColumn();
}

// The chooser's name is neither emptied first nor tested: a cancel saves
// under the name it last held, and with none held the save fails and says so.
void ChaserEditor::mnuSaveAs() {
  dialog_.Filter = kChaserFilter;
  dialog_.ShowSave();
  const std::string path = dialog_.FileName;
  c_.files.trySave(path, [&] { SaveChaser(c_, path, chaser_, c_.v.FXRandom[chaser_]); });
}

}  // namespace q
