#include "usage.h"

#include <cstring>
#include <ostream>

#ifndef QUINTARA_VERSION
#define QUINTARA_VERSION "unknown"
#endif

namespace q {

namespace {

constexpr const char* kUsage =
    R"(Usage: quintara [options] [FILE]
       quintara --headless [--virtual-clock] [--script FILE] [options]

Quintara, a theatre lighting console. Without --headless the desk opens;
FILE (a show, cue list, submaster or channels file) is opened after start-up.

Options of the desk:
  --listen [ADDRESS:]PORT  take commands of the command language on a TCP port
  --web [ADDRESS:]PORT     serve the web remote there (else [Remote] WebPort=)
  --zoom Z                 draw the desk at Z times its size (0.5 to 4)
  --screenshot FILE.png    draw the desk (or --window NAME) into a picture and end
  -nosplash                no splash screen
  -default                 start with the default settings and skin

The headless console (no window; commands from standard input or a script):
  --headless               run without windows
  --virtual-clock          time moves only with the command `advance`
  --script FILE            read the commands from FILE instead of standard input

Both:
  --home DIR               keep settings, clipboard and skins in DIR
  --help, --version        print this text or the version, and end

Settings are kept in ~/.config/quintara/ (or $XDG_CONFIG_HOME/quintara),
or beside the program when a file named quintara.portable is there.
The command language is described in the manual page quintara(1).
)";

bool has(int argc, char** argv, const char* word) {
  for (int i = 1; i < argc; ++i)
    if (!std::strcmp(argv[i], word)) return true;
  return false;
}

}  // namespace

bool answerHelpOrVersion(int argc, char** argv, std::ostream& out) {
  if (has(argc, argv, "--help") || has(argc, argv, "-h")) {
    out << kUsage;
    return true;
  }
  if (has(argc, argv, "--version")) {
    out << "quintara " << QUINTARA_VERSION << "\n";
    return true;
  }
  return false;
}

}  // namespace q
