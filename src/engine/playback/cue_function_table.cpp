#include "engine/playback/cue_function_table.h"

#include <algorithm>
#include <cmath>

namespace q {

namespace {

using enum CueFunction;
using enum CueArgument;

// Two list texts differ from their neighbours, and stay so: "Submaster 4
// Prog" has no point and "Submaster 16 prog." a small letter.
constexpr CueFunctionInfo kTable[] = {
    {MemoryCue, "", "Dimmers", None, kCopiesProgToStage | kShowsInProg},
    {Jump, "02: Jump", "Jump", CueNumber, 0},
    {LoadStatus, "03: Load Status", "Sub. Page Load", SubmasterFile, 0},
    {SubmasterLevels, "", "Sub. Level Change", None, kShowsInProg},
    {RunProgram, "06: Run Ext. Program", "Run External Prog.", Program, kShowsInProg},
    {ShowMessage, "07: Show message", "Show message", Message, kShowsInProg},
    {SubLevelChange, "08: Sub. level change", "", None, 0},
    {LoadFileInProg, "09: Load file in Prog", "Load file in prog", ChannelFile, 0},
    {CueFunction(11), "11: Program Sub 1", "Submaster 1 Prog.", None, kShowsInProg},
    {CueFunction(12), "12: Program Sub 2", "Submaster 2 Prog.", None, kShowsInProg},
    {CueFunction(13), "13: Program Sub 3", "Submaster 3 Prog.", None, kShowsInProg},
    {CueFunction(14), "14: Program Sub 4", "Submaster 4 Prog", None, kShowsInProg},
    {CueFunction(15), "15: Program Sub 5", "Submaster 5 Prog.", None, kShowsInProg},
    {CueFunction(16), "16: Program Sub 6", "Submaster 6 Prog.", None, kShowsInProg},
    {CueFunction(17), "17: Program Sub 7", "Submaster 7 Prog.", None, kShowsInProg},
    {CueFunction(18), "18: Program Sub 8", "Submaster 8 Prog.", None, kShowsInProg},
    {CueFunction(19), "19: Program Sub 9", "Submaster 9 Prog.", None, kShowsInProg},
    {CueFunction(20), "20: Program Sub 10", "Submaster 10 Prog.", None, kShowsInProg},
    {CueFunction(21), "21: Program Sub 11", "Submaster 11 Prog.", None, kShowsInProg},
    {CueFunction(22), "22: Program Sub 12", "Submaster 12 Prog.", None, kShowsInProg},
    {CueFunction(23), "23: Program Sub 13", "Submaster 13 Prog.", None, kShowsInProg},
    {CueFunction(24), "24: Program Sub 14", "Submaster 14 Prog.", None, kShowsInProg},
    {CueFunction(25), "25: Program Sub 15", "Submaster 15 Prog.", None, kShowsInProg},
    {CueFunction(26), "26: Program Sub 16", "Submaster 16 prog.", None, kShowsInProg},
    {CueFunction(27), "27: Program Sub 17", "Submaster 17 Prog.", None, kShowsInProg},
    {CueFunction(28), "28: Program Sub 18", "Submaster 18 Prog.", None, kShowsInProg},
    {CueFunction(29), "29: Program Sub 19", "Submaster 19 Prog.", None, kShowsInProg},
    {CueFunction(30), "30: Program Sub 20", "Submaster 20 Prog.", None, kShowsInProg},
    {Player1Load, "31: Player 1 Load", "Player 1 Load", MediaFile,
     kCopiesProgToStage | kLoadsPlayer},
    {Player1Play, "32: Player 1 Play", "Player 1 Play", None, kShowsInProg},
    {Player1Pause, "33: Player 1 Pause", "Player 1 Pause", None, kShowsInProg},
    {Player1Stop, "34: Player 1 Stop", "Player 1 Stop", None, kShowsInProg},
    {Player1GoToTime, "35: Player 1 Go to time", "Player 1 Go to time", None, kShowsInProg},
    {Player1Volume, "36: Player 1 Volume", "", None, 0},
    {Player1Balance, "37: Player 1 Balance", "", None, 0},
    {Player2Load, "41: Player 2 Load", "Player 2 Load", MediaFile,
     kCopiesProgToStage | kLoadsPlayer},
    {Player2Play, "42: Player 2 Play", "Player 2 Play", None, kShowsInProg},
    {Player2Pause, "43: Player 2 Pause", "Player 2 Pause", None, kShowsInProg},
    {Player2Stop, "44: Player 2 Stop", "Player 2 Stop", None, kShowsInProg},
    {Player2GoToTime, "45: Player 2 Go to time", "Player 2 Go to time", None, kShowsInProg},
    {Player2Volume, "46: Player 2 Volume", "", None, 0},
    {Player2Balance, "47: Player 2 Balance", "", None, 0},
};

constexpr bool risingByNumber() {
  for (size_t k = 1; k < std::size(kTable); ++k)
    if (kTable[k - 1].number() >= kTable[k].number()) return false;
  return true;
}
static_assert(risingByNumber(), "the lists show the functions by rising number");

bool within(double number, CueFunction first, CueFunction last) {
  return number >= int(first) && number <= int(last);
}

}  // namespace

std::span<const CueFunctionInfo> cueFunctions() { return kTable; }

const CueFunctionInfo* findCueFunction(double number) {
  const auto* it =
      std::find_if(std::begin(kTable), std::end(kTable),
                   [number](const CueFunctionInfo& f) { return f.number() == number; });
  return it == std::end(kTable) ? nullptr : it;
}

const CueFunctionInfo* cueFunctionIn(const Value& cell) {
  const auto number = numberOf(cell);
  return number ? findCueFunction(*number) : nullptr;
}

bool cellIsFunction(const Value& cell, CueFunction f) {
  const auto number = numberOf(cell);
  return number && *number == int(f);
}

int playerOf(CueFunction f) {
  if (within(int(f), Player1Load, Player1Balance)) return 0;
  if (within(int(f), Player2Load, Player2Balance)) return 1;
  return -1;
}

bool programsSubmaster(double number) { return within(number, ProgramSub1, ProgramSub20); }

bool showsInProg(double number) {
  if (const CueFunctionInfo* f = findCueFunction(number)) return f->has(kShowsInProg);
  return programsSubmaster(number) || within(number, Player1Play, Player1GoToTime) ||
         within(number, Player2Play, Player2GoToTime);
}

}  // namespace q
