#include "gui/desk/desk_options.h"

#include <cstdlib>
#include <cstring>

namespace q::gui {

DeskOptions parseDeskOptions(int argc, char** argv) {
  DeskOptions o;
  for (int i = 0; i < argc; ++i) {
    if (i) o.commandLine += ' ';
    o.commandLine += argv[i];
  }
  auto value = [&](int& i, std::string& out) {
    if (i + 1 >= argc) {
      o.error = std::string(argv[i]) + " needs a value";
      return;
    }
    out = argv[++i];
  };
  for (int i = 1; i < argc && o.error.empty(); ++i) {
    const char* a = argv[i];
    if (!std::strcmp(a, "--home")) {
      value(i, o.home);
    } else if (!std::strcmp(a, "--listen")) {
      value(i, o.listen);
    } else if (!std::strcmp(a, "--web")) {
      value(i, o.web);
    } else if (!std::strcmp(a, "--screenshot")) {
      value(i, o.screenshot);
    } else if (!std::strcmp(a, "--window")) {
      value(i, o.window);
    } else if (!std::strcmp(a, "--zoom")) {
      std::string z;
      value(i, z);
      o.zoom = std::atof(z.c_str());
      if (o.error.empty() && (o.zoom < 0.5 || o.zoom > 4)) o.error = "--zoom takes 0.5 to 4";
    } else if (a[0] == '-') {
      // "-nosplash", "-default" and the toolkit's own switches.
    } else if (o.file.empty()) {
      o.file = a;
    } else {
      o.error = std::string("one file at a time: ") + a;
    }
  }
  return o;
}

}  // namespace q::gui
