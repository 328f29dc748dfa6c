// frmAbout: the console's name and version, a link to its documentation, and
// the machine it runs on on request.

#include "gui/windows/window_builders.h"

#include "engine/look/about_window.h"
#include "gui/views/label_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

FormView* buildAboutWindow(WindowHost& host, Window& model) {
  auto& a = dynamic_cast<AboutWindow&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(4800, 2700);
  auto* title = view->at(new LabelView(&a.lblTitle, nullptr), {240, 180, 4320, 600});
  title->foreground = QColor(0xFF, 0xB4, 0x20);
  title->alignment = Qt::AlignLeft | Qt::AlignVCenter;
  title->setProperty("fontPoints", 18);
  title->setProperty("fontBold", true);
  view->relayout();
  view->at(new LabelView(&a.lblVersion, nullptr), {240, 840, 4320, 285});
  auto* web = view->at(new LabelView(&a.lblWeb, nullptr), {240, 1200, 4320, 285});
  web->foreground = QColor(0x7F, 0xE7, 0xFF);
  web->underline = true;
  web->setCursor(Qt::PointingHandCursor);
  view->at(new ButtonView(a.cmdSysInfo, nullptr), {240, 2040, 1800, 420});
  view->at(new ButtonView(a.cmdOK, nullptr), {3360, 2040, 1200, 420});
  return view;
}

}  // namespace q::gui
