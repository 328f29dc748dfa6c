#pragma once
// frmAbout, "About Quintara": the console's name and version, a link to its
// documentation and a key that tells what machine it runs on. OK unloads it.

#include "engine/controls/window.h"

namespace q {

class Console;

class AboutWindow : public Window {
 public:
  explicit AboutWindow(Console& c);

  Label& lblTitle;
  Label& lblVersion;
  Label& lblWeb;
  Label& cmdSysInfo;
  Label& cmdOK;

 private:
  Console& c_;
};

// Gives the catalogue the About window and opens it from the Help menu.
void addAboutWindow(Console& c);

}  // namespace q
