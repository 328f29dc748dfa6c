#pragma once
// The headless console's command line:
//   quintara --headless [--virtual-clock] [--script FILE] [--home DIR] [-default] [-nosplash]
// "-default" and "-nosplash" are not parsed here: the console searches the
// whole command line for them, as the desk does.

#include <string>

namespace q {

struct HeadlessOptions {
  bool virtualClock = false;
  std::string script;       // empty: commands come from standard input
  std::string home;         // empty: the program's own folder
  std::string commandLine;  // every argument joined by blanks
  std::string error;        // a malformed command line, for the user
};

HeadlessOptions parseHeadlessOptions(int argc, char** argv);

}  // namespace q
