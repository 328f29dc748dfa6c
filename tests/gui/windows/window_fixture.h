#pragma once
// The desk with a way into its secondary windows: a window's view by its
// console name, a control's widget inside it, a menu choice, and a pause for
// the deferred deletions and repaints a choice leaves behind.

#include <QCoreApplication>
#include <QEvent>
#include <string>

#include "gui/desk_fixture.h"
#include "gui/views/form_view.h"
#include "gui/views/menu_view.h"
#include "gui/views/window_host.h"

namespace q::test {

class WindowFixture : public DeskFixture {
 protected:
  gui::FormView* view(const std::string& window) { return desk().windows().viewOf(window); }
  template <class W = QWidget>
  W* child(const std::string& window, const std::string& control) {
    gui::FormView* v = view(window);
    return v ? v->findChild<W*>(QString::fromStdString(window + "." + control)) : nullptr;
  }
  void choose(const char* item) { desk().menus().action(item)->trigger(); }
  // Lets deferred deletions and repaints run.
  static void settle() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
  bool shown(const std::string& window) {
    gui::FormView* v = view(window);
    return v && v->isVisible();
  }
};

}  // namespace q::test
