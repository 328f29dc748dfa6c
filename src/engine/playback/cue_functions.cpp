#include "engine/playback/cue_functions.h"

#include <algorithm>
#include <cmath>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/show_formats.h"

namespace q {

namespace {
bool isPlayerLoad(const Value& f, int& player) {
  if (cellEquals(f, 31))
    player = 0;
  else if (cellEquals(f, 41))
    player = 1;
  else
    return false;
  return true;
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
  const std::string var = toText(cueCell(c_.v, row, cue::kVar));
  Console& c = c_;
  // Tested in this order; "02: Jump" and "08: Sub. level change" pass the row and nothing else.
  if (f == 3) {
    c.files.tryLoad(var, [&] { LoadSubmasters(c, var); });
  } else if (f == 4) {
    setSubmasterLevels(row);
  } else if (f == 6) {
    runProgram(var);
  } else if (f == 7) {
    c.dialogs().msgBox("", var, MsgButtons::OK, MsgIcon::Information);
  } else if (f == 9) {
    c.files.tryLoad(var, [&] { LoadChannels(c, var); });
  } else if (f >= 11 && f <= 30) {
    programSubmaster(row, int(roundHalfEven(f - 9)));
  } else if (f == 32 || f == 42) {
    c.WMP(f == 32 ? 0 : 1).play();
  } else if (f == 33 || f == 43) {
    c.WMP(f == 33 ? 0 : 1).pause();
  } else if (f == 34 || f == 44) {
    c.WMP(f == 34 ? 0 : 1).stop();
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
    if (!isPlayerLoad(cueCell(c_.v, row + 1, cue::kFunction), player)) break;
  }
  m.LoadCueinProg(m.nextCue());
}

}  // namespace q
