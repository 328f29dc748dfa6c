// quintara: the desk window, or with --headless the command-language console.

#include <cstring>

#include "headless/runner.h"

#ifdef QUINTARA_WITH_GUI
#include "gui/app.h"
#endif

int main(int argc, char** argv) {
  bool headless = false;
  for (int i = 1; i < argc; ++i)
    if (std::strcmp(argv[i], "--headless") == 0) headless = true;
#ifdef QUINTARA_WITH_GUI
  if (!headless) return q::runDesk(argc, argv);
#endif
  (void)headless;
  return q::runHeadless(argc, argv);
}
