#include "engine/look/about_window.h"

#include "engine/core/console.h"

#ifndef QUINTARA_VERSION
#define QUINTARA_VERSION "unknown"
#endif

namespace q {

AboutWindow::AboutWindow(Console& c)
    : Window(c.registry, "frmAbout"),
      lblTitle(add<Label>("lblTitle", "QUINTARA")),
      lblVersion(add<Label>("lblVersion", std::string("Version ") + QUINTARA_VERSION)),
      lblWeb(add<Label>("lblWeb", "The console's documentation")),
      cmdSysInfo(add<Label>("cmdSysInfo", "System Info...")),
      cmdOK(add<Label>("cmdOK", "OK")),
      c_(c) {
  setCaption("About Quintara");
  lblWeb.onClick = [this] {
    if (c_.onOpenDocumentation) c_.onOpenDocumentation();
  };
  cmdSysInfo.onClick = [this] {
    if (c_.onSystemInformation) c_.onSystemInformation();
  };
  cmdOK.onClick = [this] { unload(); };
}

void addAboutWindow(Console& c) {
  c.windows.setFactory("frmAbout", [&c] { return std::make_unique<AboutWindow>(c); });
  c.form1.menu("mnuAbout").onClick = [&c] { c.windows.load("frmAbout").show(); };
}

}  // namespace q
