#include "headless/options.h"

namespace q {

HeadlessOptions parseHeadlessOptions(int argc, char** argv) {
  HeadlessOptions o;
  for (int i = 0; i < argc; ++i) {
    if (i > 0) o.commandLine += ' ';
    o.commandLine += argv[i];
  }
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (a == "--virtual-clock") {
      o.virtualClock = true;
    } else if (a == "--script" || a == "--home") {
      if (i + 1 >= argc) {
        o.error = a + " needs an argument";
        break;
      }
      (a == "--script" ? o.script : o.home) = argv[++i];
    }
    // Anything else (--headless, -default, -nosplash ...) is the console's own business.
  }
  return o;
}

}  // namespace q
