// quintara: the desk window, or with --headless the command-language console.

#include <cstring>
#include <iostream>

#include "headless/runner.h"
#include "platform/runtime_dir.h"
#include "usage.h"

#ifdef QUINTARA_WITH_GUI
#include "gui/app.h"
#include "gui/print/qt_page_printer.h"
#endif

int main(int argc, char** argv) {
  if (q::answerHelpOrVersion(argc, argv, std::cout)) return 0;
  q::ensureRuntimeDir();
  bool headless = false;
  for (int i = 1; i < argc; ++i)
    if (std::strcmp(argv[i], "--headless") == 0) headless = true;
#ifdef QUINTARA_WITH_GUI
  if (!headless) return q::runDesk(argc, argv);
  // Without a screen the cue list prints into a PDF file, through Qt on its offscreen platform.
  q::gui::QtPagePrinter pdf(q::gui::QtPagePrinter::Target::PdfOnly);
  return q::runHeadless(argc, argv, &pdf);
#else
  (void)headless;
  return q::runHeadless(argc, argv);
#endif
}
