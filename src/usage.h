#pragma once
// What `quintara --help` and `quintara --version` print. Both are answered
// before any window system is touched, so they work over ssh, in a package
// check and on a machine without a screen.

#include <iosfwd>

namespace q {

// Prints the help or the version and returns true when the command line asks
// for either; otherwise prints nothing and returns false.
bool answerHelpOrVersion(int argc, char** argv, std::ostream& out);

}  // namespace q
