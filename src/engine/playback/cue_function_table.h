#pragma once
// The functions a cue row can carry. The number in a row's function column
// says what playback does with it: 1 is a memory cue with a fade, every
// other listed number an instruction run as the row passes. One table names
// them all, with the line each list of the cue list window shows, what the
// row's var holds for it, and how the row behaves as it comes into Prog and
// as it leaves.

#include <cstdint>
#include <span>
#include <string_view>

#include "engine/core/value.h"

namespace q {

enum class CueFunction : int {
  MemoryCue = 1,
  Jump = 2,             // passes the row; no jump takes place
  LoadStatus = 3,       // loads a submaster file
  SubmasterLevels = 4,  // the row's first twenty levels become the strips' levels
  RunProgram = 6,
  ShowMessage = 7,
  SubLevelChange = 8,  // offered by the special cue dialog; passes without effect
  LoadFileInProg = 9,  // loads a channel file into the selected column
  ProgramSub1 = 11,    // 11..30: the row's levels become submaster 1..20
  ProgramSub20 = 30,
  Player1Load = 31,
  Player1Play = 32,
  Player1Pause = 33,
  Player1Stop = 34,
  Player1GoToTime = 35,
  Player1Volume = 36,
  Player1Balance = 37,
  Player2Load = 41,
  Player2Play = 42,
  Player2Pause = 43,
  Player2Stop = 44,
  Player2GoToTime = 45,
  Player2Volume = 46,
  Player2Balance = 47,
};

// What the var column of a row holds for its function.
enum class CueArgument : uint8_t {
  None,
  CueNumber,      // a jump's target, kept but never followed
  Message,        // shown in a box
  SubmasterFile,  // .qsm
  Program,        // a command line, started without waiting
  ChannelFile,    // .qch
  MediaFile,      // for a player
};

// How playback treats a row of the function.
enum CueFunctionFlag : uint8_t {
  // Leaving Prog, the row plays like a memory cue: Prog is copied to Stage.
  kCopiesProgToStage = 1,
  // Coming into Prog, the panel shows the row's number, name and times.
  kShowsInProg = 2,
  // Coming into Prog, the row loads its player and Prog moves on at once.
  kLoadsPlayer = 4,
};

struct CueFunctionInfo {
  CueFunction function;
  std::string_view specialLine;     // as the special cue dialog lists it; empty when not there
  std::string_view propertiesText;  // as the cue properties list shows it; empty when not there
  CueArgument argument;
  uint8_t flags;

  constexpr int number() const { return int(function); }
  constexpr bool has(CueFunctionFlag f) const { return (flags & f) != 0; }
  constexpr bool takesArgument() const { return argument != CueArgument::None; }
  constexpr bool needsFile() const {
    return argument == CueArgument::SubmasterFile || argument == CueArgument::Program ||
           argument == CueArgument::ChannelFile || argument == CueArgument::MediaFile;
  }
};

// Every function by rising number, which is also the order of both lists.
std::span<const CueFunctionInfo> cueFunctions();

// The entry for a whole number of the table; nullptr for any other number.
const CueFunctionInfo* findCueFunction(double number);
// The entry for a function cell ("02" and 2 alike); nullptr when the cell
// holds no function of the table.
const CueFunctionInfo* cueFunctionIn(const Value& cell);

// A function cell compared with a function, by numeric value.
bool cellIsFunction(const Value& cell, CueFunction f);

// The player (0 or 1) a player function works on; -1 for other functions.
int playerOf(CueFunction f);

// Three runs of functions are tested as ranges: 11 to 30 wherever they are
// met, and 32 to 35, 42 to 45 as a row comes into Prog. So a number between
// two of a run, which only a hand-edited file can hold, counts with the run.
bool programsSubmaster(double number);
// Whether a row of this number shows its number, name and times in Prog.
bool showsInProg(double number);

}  // namespace q
