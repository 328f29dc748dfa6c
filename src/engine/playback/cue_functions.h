#pragma once
// What a row that is no memory cue does when playback reaches it. The row's
// function column says what (see the function table); its var column holds
// the argument: a file, a command line, a message. The memories call in at
// two points: a row leaving Prog (the pass) and a player load cue coming
// into Prog.

#include "engine/core/process_launcher.h"
#include "engine/core/value.h"

namespace q {

class Console;

class CueFunctions {
 public:
  explicit CueFunctions(Console& c);

  // A row leaving Prog that doesn't play like a memory cue (which a memory
  // cue and a player load cue do).
  void pass(long row, const Value& function);
  // A player load cue coming into Prog: the player takes the file of the
  // row in NextCue, and Prog moves on to the next row at once, over any
  // further load cues.
  void loadPlayer(int player);

 private:
  void setSubmasterLevels(long row);
  void programSubmaster(long row, int column);
  void runProgram(const std::string& commandLine);

  Console& c_;
  NoProcessLauncher noLauncher_;
  ProcessLauncher& launcher_;
};

}  // namespace q
