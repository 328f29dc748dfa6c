#pragma once
// A window's menus built from its menu items, in their order: the bar, and
// the same menus as popups (the main window's screen menu on the live
// display, its label menu on a strip's name, the cue list's cue menu).
// Captions, check marks, visibility and enabled state follow the console;
// choosing an item is its click.

#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "gui/views/view_binding.h"

namespace q {
class MenuItem;
}

namespace q::gui {

class MenuView : public QObject {
  Q_OBJECT
 public:
  // bar may be null for a window whose menus only pop up.
  MenuView(std::vector<MenuItem*> items, QMenuBar* bar, QObject* parent);
  ~MenuView() override;

  // The menu built for a top-level item (`mnuScreen`, `mnuLabel`); null when unknown.
  QMenu* menu(const std::string& name) const;
  // The action of an item; null when unknown.
  QAction* action(const std::string& name) const;
  // Shows a menu at the mouse without waiting for it.
  void popup(const std::string& name);
  // Looks at every item again (a window became available).
  void syncAll();

  // Whether an item may be chosen beside its own enabled state (the desk
  // keeps an item that opens a window it cannot show yet disabled).
  std::function<bool(const std::string& item)> mayChoose;
  // Runs after every chosen item.
  std::function<void()> afterChoice;

 private:
  void sync(MenuItem& m);
  void syncMenu(QMenu* menu);

  std::map<std::string, QMenu*> menus_;
  std::map<std::string, QAction*> actions_;
  std::map<QAction*, MenuItem*> items_;
  std::vector<std::unique_ptr<ViewBinding>> bindings_;
};

}  // namespace q::gui
