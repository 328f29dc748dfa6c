#include "gui/desk/desk_menus.h"

#include <QCursor>

#include "engine/core/main_window.h"

namespace q::gui {

namespace {
// Menu items that open a window of their own, and that window.
const std::map<std::string, std::string>& windowItems() {
  static const std::map<std::string, std::string> m = {
      {"mnuCueList", "Cuewin"}, {"mnuMatrix", "frmSparseMatrix"}, {"mnuMobile", "Mobile"},
      {"mnuChanWin", "Canals"}, {"mnuSimple", "Simple"},          {"mnuTecles", "Tecles"},
      {"mnuPatch", "frmPatch"}, {"mnuInterface", "Refreshrate"},  {"mnuMidiSetup", "MIDISetupForm"},
  };
  return m;
}
}  // namespace

DeskMenus::DeskMenus(MainWindow& form1, QMenuBar* bar) : QObject(bar), form1_(form1) {
  for (MenuItem* m : form1.menuBar()) {
    QAction* a = nullptr;
    if (m->parent.empty()) {
      auto* menu = new QMenu(QString::fromStdString(m->caption()), bar);
      menu->setObjectName(QString::fromStdString(m->name()));
      bar->addMenu(menu);
      menus_[m->name()] = menu;
      a = menu->menuAction();
      // Handlers may be wired after the desk was built: look again before showing.
      connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        for (QAction* child : menu->actions())
          for (auto& [name, act] : actions_)
            if (act == child) sync(form1_.menu(name));
      });
    } else {
      auto parent = menus_.find(m->parent);
      if (parent == menus_.end()) continue;
      QMenu* menu = parent->second;
      if (m->caption() == "-") {
        a = menu->addSeparator();
      } else {
        a = menu->addAction(QString::fromStdString(m->caption()));
        connect(a, &QAction::triggered, this, [this, m] {
          m->click();
          sync(*m);
          if (afterChoice) afterChoice();
        });
      }
    }
    a->setObjectName(QString::fromStdString(m->name()));
    actions_[m->name()] = a;
    bindings_.push_back(std::make_unique<ViewBinding>(m, [this, m] { sync(*m); }));
    sync(*m);
  }
}

DeskMenus::~DeskMenus() = default;

QMenu* DeskMenus::menu(const std::string& name) const {
  auto it = menus_.find(name);
  return it == menus_.end() ? nullptr : it->second;
}

QAction* DeskMenus::action(const std::string& name) const {
  auto it = actions_.find(name);
  return it == actions_.end() ? nullptr : it->second;
}

void DeskMenus::popup(const std::string& name) {
  if (QMenu* m = menu(name)) {
    for (QAction* child : m->actions())
      for (auto& [item, act] : actions_)
        if (act == child) sync(form1_.menu(item));
    m->popup(QCursor::pos());
  }
}

void DeskMenus::setAvailableWindows(std::set<std::string> windows) {
  windows_ = std::move(windows);
  for (MenuItem* m : form1_.menuBar()) sync(*m);
}

bool DeskMenus::opensMissingWindow(const std::string& item) const {
  auto it = windowItems().find(item);
  return it != windowItems().end() && !windows_.count(it->second);
}

void DeskMenus::sync(MenuItem& m) {
  QAction* a = action(m.name());
  if (!a) return;
  if (!a->isSeparator()) a->setText(QString::fromStdString(m.caption()));
  a->setVisible(m.visible());
  const bool topLevel = m.parent.empty();
  a->setEnabled(m.enabled() && (topLevel || (m.onClick && !opensMissingWindow(m.name()))));
  a->setCheckable(m.checked());
  a->setChecked(m.checked());
}

}  // namespace q::gui
