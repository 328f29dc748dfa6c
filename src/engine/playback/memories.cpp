#include "engine/playback/memories.h"

#include <algorithm>
#include <climits>

#include "engine/core/console.h"
#include "engine/playback/cue_actions.h"
#include "engine/playback/cue_function_table.h"
#include "engine/playback/cue_record.h"

namespace q {

namespace {

// Channels 1..MaxChans, the part of a cue that loads and saves touch.
int channelsInUse(const Variables& v) { return std::clamp<int>(v.MaxChans, 0, kChannels); }

// Rows whose function shows number, name and times in Prog but has no levels.
bool showsWithoutLevels(const Value& f) {
  const auto n = numberOf(f);
  return n && showsInProg(*n);
}

bool copiesProgToStage(const Value& f) {
  const CueFunctionInfo* fn = cueFunctionIn(f);
  return fn && fn->has(kCopiesProgToStage);
}

// The shared loop counter J keeps the value the last cue search left in it:
// one past the last row looked at, or the row where the search stopped. The
// cue grid's append reads it.
void leaveJ(Variables& v, int j) { v.J = int16_t(std::clamp(j, INT16_MIN, INT16_MAX)); }

}  // namespace

Memories::Memories(Console& c)
    : STAGEMem(c.form1.add<TextBox>("STAGEMem")),
      STAGEName(c.form1.add<TextBox>("STAGEName")),
      PROGMem(c.form1.add<TextBox>("PROGMem")),
      PROGName(c.form1.add<TextBox>("PROGName")),
      StageMemLoad(c.form1.add<Lamp>("StageMemLoad")),
      StageMemSave(c.form1.add<Lamp>("StageMemSave")),
      ProgMemLoad(c.form1.add<Lamp>("ProgMemLoad")),
      ProgMemSave(c.form1.add<Lamp>("ProgMemSave")),
      NextCue(c.form1.add<Label>("NextCue", "0")),
      c_(c) {
  StageMemLoad.onClick = [this] { stageMemLoad(); };
  StageMemSave.onClick = [this] { stageMemSave(); };
  ProgMemLoad.onClick = [this] { progMemLoad(); };
  ProgMemSave.onClick = [this] { progMemSave(); };
}

long Memories::nextCue() const {
  const double n = parseNumber(NextCue.caption()).value_or(0.0);
  return long(std::clamp(n, double(LONG_MIN / 2), double(LONG_MAX / 2)));
}

void Memories::setNextCue(long row) { NextCue.setCaption(std::to_string(row)); }

void Memories::loadColumn(long row, int column) {
  auto batch = c_.v.ChanTable.changes.batch();
  for (int i = 1; i <= channelsInUse(c_.v); ++i)
    c_.v.chan(i, column) = cellLevel(cueCell(c_.v, row, i));
}

void Memories::showInProg(long row) {
  const Variables& v = c_.v;
  PROGMem.setText(toText(cueCell(v, row, cue::kNumber)));
  PROGName.setText(toText(cueCell(v, row, cue::kName)));
  showTimes(row);
}

void Memories::showTimes(long row) {
  const Variables& v = c_.v;
  FadeTimes& t = c_.fadeTimes;
  t.WupTime.setText(toText(cueCell(v, row, cue::kWaitUp)));
  t.UpTime.setText(toText(cueCell(v, row, cue::kUpTime)));
  t.WdownTime.setText(toText(cueCell(v, row, cue::kWaitDown)));
  t.DownTime.setText(toText(cueCell(v, row, cue::kDownTime)));
}

void Memories::LoadCueinProg(long row) {
  const Value f = cueCell(c_.v, row, cue::kFunction);
  const CueFunctionInfo* fn = cueFunctionIn(f);
  if (cellIsFunction(f, CueFunction::MemoryCue)) {
    showInProg(row);
    loadColumn(row, kProgColumn);
  } else if (showsWithoutLevels(f)) {
    showInProg(row);
  } else if (fn && fn->has(kLoadsPlayer)) {
    if (loadPlayerCue) loadPlayerCue(row, playerOf(fn->function));
  }
  c_.timesGraph.paint();
}

void Memories::PassaPrograma() {
  Variables& v = c_.v;
  STAGEName.setText(PROGName.text());
  STAGEMem.setText(PROGMem.text());
  const long row = nextCue();
  const Value f = cueCell(v, row, cue::kFunction);
  if (copiesProgToStage(f)) {
    auto batch = v.ChanTable.changes.batch();
    for (int i = 1; i <= channelsInUse(v); ++i)
      v.ChanTable.set(i, kStageColumn, v.ChanTable.get(i, kProgColumn));
  } else if (passFunction) {
    passFunction(row, f);
  }
  // Whatever the row was, the weights return to rest: Stage full, Prog out.
  v.StageLevel = 255;
  v.ProgLevel = 0;
  v.MixDirty = kTrue;
  setNextCue(nextCue() + 1);
  LoadCueinProg(nextCue());
}

std::optional<int16_t> Memories::askNumber(const std::string& title) {
  auto n = parseNumber(c_.dialogs().inputBox(title, "Cue number ? ", "1"));
  if (!n) return std::nullopt;
  const long whole = roundHalfEven(*n);
  if (whole < INT16_MIN || whole > INT16_MAX) return std::nullopt;
  return int16_t(whole);
}

void Memories::progMemLoad() {
  if (auto number = askNumber("Load cue in Prog")) progLoadNumber(*number);
}

void Memories::progLoadNumber(int16_t number) {
  Variables& v = c_.v;
  // Every row is looked at: with duplicate numbers the last one wins.
  int j = 1;
  for (; j <= v.CueCount; ++j) {
    if (!cellEquals(cueCell(v, j, cue::kNumber), number)) continue;
    PROGMem.setText(std::to_string(number));
    setNextCue(j);
    PROGName.setText(toText(cueCell(v, j, cue::kName)));
    showTimes(j);
    loadColumn(j, kProgColumn);
  }
  leaveJ(v, j);
  // Prog is out at rest, so a load there needs no new mix.
  c_.timesGraph.paint();
}

void Memories::stageMemLoad() {
  auto number = askNumber("Load cue in Stage");
  if (!number) return;
  Variables& v = c_.v;
  int j = 1;
  for (; j <= v.CueCount; ++j) {
    if (!cellEquals(cueCell(v, j, cue::kNumber), *number)) continue;
    STAGEMem.setText(std::to_string(*number));
    STAGEName.setText(toText(cueCell(v, j, cue::kName)));
    loadColumn(j, kStageColumn);
    // Recalled straight to Stage, the cue's players and chasers act at once.
    runCueActions(c_, j);
  }
  leaveJ(v, j);
  v.MixDirty = kTrue;
}

void Memories::progMemSave() { save(PROGMem, PROGName, false); }
void Memories::stageMemSave() { save(STAGEMem, STAGEName, true); }

// Stage saves the mix as it leaves the mixer (MixBuffer: submasters and
// chasers included, one flat look); Prog saves its column alone.
void Memories::save(TextBox& mem, TextBox& name, bool fromOutput) {
  Variables& v = c_.v;
  Dialogs& d = c_.dialogs();
  const char* title = "Save output to cuelist";
  if (mem.text().empty())
    mem.setText(d.inputBox(title, "Save as Cue Number", std::to_string(v.CueCount + 1)));
  if (name.text().empty()) name.setText(d.inputBox(title, "Cue Name?", ""));

  // A No leaves that row alone and looks on; a No to every duplicate appends
  // one more row with the same number.
  long row = 0;
  int j = 1;
  for (; j <= v.CueCount; ++j) {
    if (!cellEqualsText(cueCell(v, j, cue::kNumber), mem.text())) continue;
    if (d.msgBox("Caution", "This cue already exist. Overwrite ?", MsgButtons::YesNo,
                 MsgIcon::Question) == MsgResult::Yes) {
      row = j;
      break;
    }
  }
  leaveJ(v, j);
  if (row == 0) {
    if (v.CueCount == INT16_MAX) return;  // the list is full; nothing can be appended
    row = ++v.CueCount;
  }

  const auto r = int16_t(row);
  const FadeTimes& t = c_.fadeTimes;
  auto batch = v.Cues.changes.batch();
  v.Cues.setCell(r, cue::kNumber, mem.text());
  v.Cues.setCell(r, cue::kFunction, std::string("1"));
  v.Cues.setCell(r, cue::kName, name.text());
  v.Cues.setCell(r, cue::kWaitUp, t.WupTime.text());
  v.Cues.setCell(r, cue::kUpTime, t.UpTime.text());
  v.Cues.setCell(r, cue::kWaitDown, t.WdownTime.text());
  v.Cues.setCell(r, cue::kDownTime, t.DownTime.text());
  // A zero level is never kept as a number: the cell is left empty.
  for (int i = 1; i <= channelsInUse(v); ++i) {
    const uint8_t level = fromOutput ? v.MixBuffer[i - 1] : v.chan(i, kProgColumn);
    v.Cues.setCell(r, int16_t(i), level == 0 ? Value{} : Value{level});
  }
}

void Memories::loadInProg(long row) {
  PROGMem.setText(toText(cueCell(c_.v, row, cue::kNumber)));
  PROGName.setText(toText(cueCell(c_.v, row, cue::kName)));
  loadColumn(row, kProgColumn);
  c_.v.MixDirty = kTrue;
}

// No actions and no new mix: the output follows at the next change that asks for one.
void Memories::loadStage(long row) {
  STAGEMem.setText(toText(cueCell(c_.v, row, cue::kNumber)));
  STAGEName.setText(toText(cueCell(c_.v, row, cue::kName)));
  loadColumn(row, kStageColumn);
}

}  // namespace q
