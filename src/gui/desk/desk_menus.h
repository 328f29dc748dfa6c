#pragma once
// The main window's menus, built from the console's menu items in their
// order: the bar, and the same items as popups (the screen menu on the live
// display, the label menu on a strip's name). Captions, check marks,
// visibility and enabled state follow the console; choosing an item is its
// click. An item that opens a window the desk doesn't have yet stays
// disabled.

#include <QMenu>
#include <QMenuBar>
#include <QObject>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "gui/desk/desk_context.h"

namespace q {
class MainWindow;
class MenuItem;
}  // namespace q

namespace q::gui {

class DeskMenus : public QObject {
  Q_OBJECT
 public:
  DeskMenus(MainWindow& form1, QMenuBar* bar);
  ~DeskMenus() override;

  // The menu built for a top-level item (`mnuScreen`, `mnuLabel`); null when unknown.
  QMenu* menu(const std::string& name) const;
  // The action of an item; null when unknown.
  QAction* action(const std::string& name) const;
  // Shows a menu at the mouse without waiting for it.
  void popup(const std::string& name);

  // Windows the desk can show; a menu item that opens another window stays disabled.
  void setAvailableWindows(std::set<std::string> windows);

  // Runs after every chosen item (the desk checks whether the console closed).
  std::function<void()> afterChoice;

 private:
  void sync(MenuItem& m);
  bool opensMissingWindow(const std::string& item) const;

  MainWindow& form1_;
  std::map<std::string, QMenu*> menus_;
  std::map<std::string, QAction*> actions_;
  std::vector<std::unique_ptr<ViewBinding>> bindings_;
  std::set<std::string> windows_;
};

}  // namespace q::gui
