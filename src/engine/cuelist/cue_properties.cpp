#include "engine/cuelist/cue_properties.h"

#include <cmath>

#include "engine/core/console.h"
#include "engine/playback/cue_function_table.h"
#include "engine/playback/cue_record.h"

namespace q {

namespace {
const char* const kPictures[3][2] = {
    {"PlayOff", "PlayOn"}, {"StopOff", "StopOn"}, {"PauseOff", "PauseOn"}};
const char* const kFieldCaptions[CueProps::kLabels] = {
    "Number", "Name", "Function", "Wait Up", "Time Up", "Wait Down", "Time Down"};

// The action column a button index works on: players 0 and 3, chasers 4 and 5.
int actionColumn(int k) {
  switch (k) {
    case 0:
      return cue::kPlayer1Action;
    case 3:
      return cue::kPlayer2Action;
    case 4:
      return cue::kChaser1Action;
    default:
      return cue::kChaser2Action;
  }
}

bool within(int n, int low, int high) { return n >= low && n <= high; }
}  // namespace

CueProps::CueProps(Console& c)
    : Window(c.registry, "CueProps"),
      txtNum(add<TextBox>("txtNum")),
      txtName(add<TextBox>("txtName")),
      txtFunc(add<TextBox>("txtFunc")),
      txtWaitUp(add<TextBox>("txtWaitUp")),
      txtTimeUp(add<TextBox>("txtTimeUp")),
      txtWaitDown(add<TextBox>("txtWaitDown")),
      txtTimeDown(add<TextBox>("txtTimeDown")),
      txtVar(add<TextBox>("txtVar")),
      Combo1(add<ListBox>("Combo1")),
      Check1(add<CheckBox>("Check1", "Auto Go")),
      Check2(add<CheckBox>("Check2", "Auto Start")),
      Frame2(add<q::Label>("Frame2", "Variable")),
      btn_Busca(add<q::Label>("btn_Busca", "...")),
      btn_Ok(add<q::Label>("btn_Ok", "OK")),
      btn_Cancel(add<q::Label>("btn_Cancel", "Cancel")),
      c_(c),
      CDialog1(c.dialogs()) {
  setCaption("Cue Properties");
  build();
  load();
}

void CueProps::build() {
  for (int i = 0; i < kLabels; ++i)
    labels_[size_t(i)] = &add<q::Label>(indexed("Label1", i), kFieldCaptions[i]);
  for (const CueFunctionInfo& f : cueFunctions()) {
    if (f.propertiesText.empty()) continue;
    Combo1.addItem(std::string(f.propertiesText));
    itemData_.push_back(f.number());
  }
  Combo1.onClick = [this] { comboClick(); };
  btn_Busca.onClick = [this] { btnBusca(); };
  btn_Ok.onClick = [this] { ok(); };
  btn_Cancel.onClick = [this] { unload(); };

  for (int k = 0; k < 2; ++k) {
    const std::string n = std::to_string(k + 1);
    mediaFrames_[size_t(k)] = &add<q::Label>(indexed("FrameMedia", k), "Media Player " + n);
    fxFrames_[size_t(k)] = &add<q::Label>(indexed("FrameFX", k), "FX" + n);
    mpActive_[size_t(k)] = &add<CheckBox>(indexed("MpActive", k), "Active");
    fxActive_[size_t(k)] = &add<CheckBox>(indexed("FXActive", k), "Active");
    vol_[size_t(k)] = &add<Scroller>(indexed("VolScroller", k), 0, 255, 0);
    pan_[size_t(k)] = &add<Scroller>(indexed("PanScroller", k), 0, 255, 0);
    level_[size_t(k)] = &add<Scroller>(indexed("LevelScroller", k), 0, 255, 0);
    speed_[size_t(k)] = &add<Scroller>(indexed("SpeedScroller", k), 0, 255, 0);
  }
  // Each scroller writes its column at once and ticks its group's box; the
  // volume of player 2 ticks the box of player 1, as this dialog always has.
  auto moved = [this](Scroller& s, int column, CheckBox& active) {
    s.onChange = [this, &s, column, &active] { scrollerMoved(s, column, active); };
  };
  moved(VolScroller(0), cue::kPlayer1Volume, MpActive(0));
  moved(PanScroller(0), cue::kPlayer1Balance, MpActive(0));
  moved(VolScroller(1), cue::kPlayer2Volume, MpActive(0));
  moved(PanScroller(1), cue::kPlayer2Balance, MpActive(1));
  moved(LevelScroller(0), cue::kChaser1Level, FXActive(0));
  moved(SpeedScroller(0), cue::kChaser1Speed, FXActive(0));
  moved(LevelScroller(1), cue::kChaser2Level, FXActive(1));
  moved(SpeedScroller(1), cue::kChaser2Speed, FXActive(1));

  const char* names[3] = {"ImagePlay", "ImageStop", "ImagePause"};
  for (int a = 0; a < 3; ++a)
    for (int k = 0; k < 6; ++k) {
      const auto action = Action(a + 1);
      if (!hasButton(action, k) && k != 1 && k != 2) continue;
      const char* picture = kPictures[a][k == 2 ? 1 : 0];
      Lamp& lamp = add<Lamp>(indexed(names[a], k), picture);
      images_[size_t(a)][size_t(k)] = &lamp;
      if (hasButton(action, k)) lamp.onClick = [this, action, k] { imageClick(action, k); };
    }
}

int CueProps::row() const { return c_.v.SelectedCue; }

// The load sequence: the dialog is filled from the row, in this order.
void CueProps::load() {
  Variables& v = c_.v;
  for (int k = 0; k < 2; ++k) {
    MpActive(k).setChecked(0);
    FXActive(k).setChecked(0);
  }
  const int16_t r = int16_t(row());
  auto text = [&](int column) { return toText(v.Cues.Cell(r, int16_t(column))); };
  txtNum.setText(text(cue::kNumber));
  txtName.setText(text(cue::kName));
  txtWaitUp.setText(text(cue::kWaitUp));
  txtTimeUp.setText(text(cue::kUpTime));
  txtWaitDown.setText(text(cue::kWaitDown));
  txtTimeDown.setText(text(cue::kDownTime));
  txtVar.setText(text(cue::kVar));
  txtFunc.setText(text(cue::kFunction));

  // The function's row is selected (which runs the selection handling), and
  // the handling runs once more whether a row was found or not.
  const double function = leadingNumber(txtFunc.text());
  for (size_t i = 0; i < itemData_.size(); ++i)
    if (itemData_[i] == function) Combo1.setListIndex(int(i));
  comboClick();

  // Opening the dialog on the row after the last lengthens the list at once.
  if (r > v.CueCount) v.CueCount = r;

  const FadeTimes& t = c_.fadeTimes;
  std::pair<TextBox*, const TextBox*> times[] = {{&txtWaitUp, &t.WupTime},
                                                 {&txtTimeUp, &t.UpTime},
                                                 {&txtWaitDown, &t.WdownTime},
                                                 {&txtTimeDown, &t.DownTime}};
  for (auto [box, main] : times)
    if (box->text().empty()) box->setText(main->text());

  Check1.setChecked(numberOr0(v.Cues.Cell(r, cue::kAutoGo)) != 0 ? 1 : 0);
  const Value before = r > INT16_MIN ? v.Cues.Cell(int16_t(r - 1), cue::kAutoGo) : Value{};
  Check2.setChecked(numberOr0(before) != 0 ? 1 : 0);

  for (int k : {0, 3, 4, 5}) {
    const double action = numberOr0(v.Cues.Cell(r, int16_t(actionColumn(k))));
    const bool player = k < 4;
    for (Action a : {Play, Stop, Pause})
      if (action == int(a) && hasButton(a, k)) {
        light(a, k, true);
        (player ? MpActive(k == 0 ? 0 : 1) : FXActive(k - 4)).setChecked(1);
      }
  }

  badValues_.clear();
  loadScroller(VolScroller(0), cue::kPlayer1Volume, MpActive(0));
  loadScroller(PanScroller(0), cue::kPlayer1Balance, MpActive(0));
  loadScroller(VolScroller(1), cue::kPlayer2Volume, MpActive(1));
  loadScroller(PanScroller(1), cue::kPlayer2Balance, MpActive(1));
  loadScroller(LevelScroller(0), cue::kChaser1Level, FXActive(0));
  loadScroller(SpeedScroller(0), cue::kChaser1Speed, FXActive(0));
  loadScroller(LevelScroller(1), cue::kChaser2Level, FXActive(1));
  loadScroller(SpeedScroller(1), cue::kChaser2Speed, FXActive(1));
  // A hand-edited value a scroller cannot take leaves it where it is, and is told once.
  if (!badValues_.empty())
    c_.dialogs().msgBox("Cue Properties",
                        "Values a scroller cannot show were left out:" + badValues_, MsgButtons::OK,
                        MsgIcon::Exclamation);
}

// A filled column sets its scroller (whose change handling runs) and ticks its group's box.
void CueProps::loadScroller(Scroller& s, int column, CheckBox& active) {
  const Value cell = c_.v.Cues.Cell(int16_t(row()), int16_t(column));
  if (isEmpty(cell)) return;
  const auto n = numberOf(cell);
  const long position = n && std::fabs(*n) < 1e9 ? roundHalfEven(*n) : -1;
  if (!s.setPosition(int(position))) badValues_ += "\n" + s.name() + ": " + toText(cell);
  active.setChecked(1);
}

void CueProps::scrollerMoved(Scroller& s, int column, CheckBox& active) {
  c_.v.Cues.setCell(int16_t(row()), int16_t(column), int16_t(s.position()));
  active.setChecked(1);
}

void CueProps::comboClick() {
  const int i = Combo1.listIndex();
  int function = 0;
  if (i >= 0 && i < int(itemData_.size())) {
    function = itemData_[size_t(i)];
    txtFunc.setText(std::to_string(function));
  } else {
    // No row chosen yet: the box keeps its number, and the frame follows it.
    const double n = leadingNumber(txtFunc.text());
    function = std::fabs(n) < 1e9 ? int(n) : 0;
  }
  showArgumentFrame(function);
}

// The frame round the argument shows what the function takes, if anything.
void CueProps::showArgumentFrame(int f) {
  if (f == 1 || f == 4 || within(f, 11, 30) || within(f, 32, 40) || within(f, 42, 45)) {
    Frame2.setVisible(false);
    return;
  }
  Frame2.setVisible(true);
  if (f == 2) {
    Frame2.setCaption("Jump to cue number");
    btn_Busca.setVisible(false);
  } else if (f == 3 || f == 6 || f == 9 || f == 31 || f == 41) {
    Frame2.setCaption("Filename");
    btn_Busca.setVisible(true);
  } else if (f == 7) {
    Frame2.setCaption("Message");
    btn_Busca.setVisible(false);
  }
}

void CueProps::btnBusca() {
  const int i = Combo1.listIndex();
  const int f = i >= 0 && i < int(itemData_.size()) ? itemData_[size_t(i)] : 0;
  if (f == 3) CDialog1.Filter = "Quintara Save File (*.qsm)|*.qsm";
  if (f == 6) CDialog1.Filter = "Programs (*.exe)|*.exe";
  if (f == 9) CDialog1.Filter = "Quintara Channel File (*.qch)|*.qch";
  if (f == 31 || f == 41)
    CDialog1.Filter =
        "All Multimedia files|*.mp3; *.wav;*.avi;*.mpg;*.voc|Mp3 Files ( *.mp3)|*.mp3";
  CDialog1.ShowOpen();
  txtVar.setText(CDialog1.FileName);
}

void CueProps::light(Action a, int k, bool on) {
  image(a, k).setPicture(kPictures[a - 1][on ? 1 : 0]);
}

// A button turns its action on (and the other two of its group off), or,
// pressed again, off. A value the buttons don't know leaves all as they are.
void CueProps::imageClick(Action a, int k) {
  const int16_t column = int16_t(actionColumn(k));
  const double v = numberOr0(c_.v.Cues.Cell(int16_t(row()), column));
  if (v == int(a)) {
    light(a, k, false);
    c_.v.Cues.setCell(int16_t(row()), column, Value{});
    return;
  }
  if (v != 0 && v != int(Play) && v != int(Stop) && v != int(Pause)) return;
  light(a, k, true);
  for (Action other : {Play, Stop, Pause})
    if (other != a && hasButton(other, k)) light(other, k, false);
  c_.v.Cues.setCell(int16_t(row()), column, int16_t(a));
}

void CueProps::storeGroup(CheckBox& active, Scroller& a, int columnA, Scroller& b, int columnB) {
  const int16_t r = int16_t(row());
  const bool on = active.checked() != 0;
  c_.v.Cues.setCell(r, int16_t(columnA), on ? Value{int16_t(a.position())} : Value{});
  c_.v.Cues.setCell(r, int16_t(columnB), on ? Value{int16_t(b.position())} : Value{});
}

void CueProps::ok() {
  if (txtNum.text().empty()) {
    c_.dialogs().msgBox("Error", "Invalid Cue Number", MsgButtons::OK, MsgIcon::Exclamation);
    return;
  }
  CSparseMatrix& cues = c_.v.Cues;
  const int16_t r = int16_t(row());
  {
    auto batch = cues.changes.batch();
    cues.setCell(r, cue::kNumber, txtNum.text());
    cues.setCell(r, cue::kName, txtName.text());
    cues.setCell(r, cue::kWaitUp, txtWaitUp.text());
    cues.setCell(r, cue::kUpTime, txtTimeUp.text());
    cues.setCell(r, cue::kWaitDown, txtWaitDown.text());
    cues.setCell(r, cue::kDownTime, txtTimeDown.text());
    // An emptied box keeps the old argument in the cue.
    if (!txtVar.text().empty()) cues.setCell(r, cue::kVar, txtVar.text());
    cues.setCell(r, cue::kFunction, txtFunc.text());
    cues.setCell(r, cue::kAutoGo, Check1.checked() ? Value{int16_t(1)} : Value{});
    // For the first cue this is row 0, which no list shows.
    if (r > INT16_MIN)
      cues.setCell(int16_t(r - 1), cue::kAutoGo, Check2.checked() ? Value{int16_t(1)} : Value{});
  }
  storeGroup(MpActive(0), VolScroller(0), cue::kPlayer1Volume, PanScroller(0),
             cue::kPlayer1Balance);
  storeGroup(MpActive(1), VolScroller(1), cue::kPlayer2Volume, PanScroller(1),
             cue::kPlayer2Balance);
  storeGroup(FXActive(0), LevelScroller(0), cue::kChaser1Level, SpeedScroller(0),
             cue::kChaser1Speed);
  storeGroup(FXActive(1), LevelScroller(1), cue::kChaser2Level, SpeedScroller(1),
             cue::kChaser2Speed);
  unload();
}

}  // namespace q
