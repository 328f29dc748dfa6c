#include "engine/playback/cue_functions.h"

#include <algorithm>
#include <cmath>

#include "engine/core/console.h"
#include "engine/playback/cue_function_table.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/show_formats.h"

namespace q {

namespace {
// The player a load cue fills, or -1 for a row of any other function.
int loadsPlayer(const Value& f) {
  const CueFunctionInfo* fn = cueFunctionIn(f);
  return fn && fn->has(kLoadsPlayer) ? playerOf(fn->function) : -1;
}

// Function 11 programs submaster 1, whose levels are the column after Prog.
int programmedColumn(double f) {
  constexpr int kOffset = int(CueFunction::ProgramSub1) - (kProgColumn + 1);
  return int(roundHalfEven(f - kOffset));
}
}  // namespace

CueFunctions::CueFunctions(Console& c)
    : c_(c), launcher_(c.host().processes ? *c.host().processes : noLauncher_) {
  c.memories.passFunction = [this](long row, const Value& f) { pass(row, f); };
  c.memories.loadPlayerCue = [this](long, int player) { loadPlayer(player); };
}

void CueFunctions::pass(long row, const Value& function) {
  const auto number = numberOf(function);
  if (!number) return;
  const double f = *number;
  if (programsSubmaster(f)) {
    programSubmaster(row, programmedColumn(f));
    return;
  }
  const CueFunctionInfo* fn = findCueFunction(f);
  if (!fn) return;
  const std::string var = toText(cueCell(c_.v, row, cue::kVar));
  Console& c = c_;
  switch (fn->function) {
    case CueFunction::LoadStatus:
      c.files.tryLoad(var, [&] { LoadSubmasters(c, var); });
      break;
    case CueFunction::SubmasterLevels:
      setSubmasterLevels(row);
      break;
    case CueFunction::RunProgram:
      runProgram(var);
      break;
    case CueFunction::ShowMessage:
      c.dialogs().msgBox("", var, MsgButtons::OK, MsgIcon::Information);
      break;
    case CueFunction::LoadFileInProg:
      c.files.tryLoad(var, [&] { LoadChannels(c, var); });
      break;
    case CueFunction::Player1Play:
    case CueFunction::Player2Play:
      c.WMP(playerOf(fn->function)).play();
      break;
    case CueFunction::Player1Pause:
    case CueFunction::Player2Pause:
      c.WMP(playerOf(fn->function)).pause();
      break;
    case CueFunction::Player1Stop:
    case CueFunction::Player2Stop:
      c.WMP(playerOf(fn->function)).stop();
      break;
    default:
      // A jump, the special cue dialog's level change and a player's go to
      // time, volume or balance pass the row and do nothing else.
      break;
  }
}

// The row's first twenty level columns become the strips' levels, each
// fader running its own handling. A level that no fader position can show
// leaves that fader where it is.
void CueFunctions::setSubmasterLevels(long row) {
  for (int n = 1; n <= kSubmasters; ++n) {
    const auto level = numberOf(cueCell(c_.v, row, n));
    if (!level) continue;
    const double position = 255 - *level;
    if (!(position >= 0 && position <= 255)) continue;
    c_.form1.Fader(n + 2).setPosition(int(roundHalfEven(position)));
  }
}

// Channels 1..MaxChans of the row go to a submaster's column; a channel the
// row leaves empty is cleared.
void CueFunctions::programSubmaster(long row, int column) {
  Variables& v = c_.v;
  const int channels = std::clamp<int>(v.MaxChans, 0, kChannels);
  auto batch = v.ChanTable.changes.batch();
  for (int ch = 1; ch <= channels; ++ch)
    v.ChanTable.set(ch, column, cellLevel(cueCell(v, row, ch)));
  v.MixDirty = kTrue;
}

void CueFunctions::runProgram(const std::string& commandLine) {
  std::string why;
  if (launcher_.start(commandLine, why)) return;
  c_.dialogs().msgBox("ERROR", "Error starting program : " + commandLine + ", " + why,
                      MsgButtons::OK, MsgIcon::Critical);
}

void CueFunctions::loadPlayer(int player) {
  Memories& m = c_.memories;
  // Each load cue moves Prog on by one row; a run of them is walked here
  // rather than by recursion, so a long run can't exhaust the stack.
  for (;;) {
    const long row = m.nextCue();
    MediaPlayer& p = c_.WMP(player);
    p.setFileName(toText(cueCell(c_.v, row, cue::kVar)));
    p.setVisible(true);
    m.setNextCue(row + 1);
    player = loadsPlayer(cueCell(c_.v, row + 1, cue::kFunction));
    if (player < 0) break;
  }
  m.LoadCueinProg(m.nextCue());
}

}  // namespace q
