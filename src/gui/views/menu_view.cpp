#include "gui/views/menu_view.h"

#include <QCursor>

#include "engine/controls/menuitem.h"

namespace q::gui {

MenuView::MenuView(std::vector<MenuItem*> items, QMenuBar* bar, QObject* parent) : QObject(parent) {
  for (MenuItem* m : items) {
    QAction* a = nullptr;
    if (m->parent.empty()) {
      auto* menu = new QMenu(QString::fromStdString(m->caption()), bar);
      menu->setObjectName(QString::fromStdString(m->name()));
      if (bar) bar->addMenu(menu);
      menus_[m->name()] = menu;
      a = menu->menuAction();
      // Handlers may be wired after the menus were built: look again before showing.
      connect(menu, &QMenu::aboutToShow, this, [this, menu] { syncMenu(menu); });
    } else {
      auto parentMenu = menus_.find(m->parent);
      if (parentMenu == menus_.end()) continue;
      QMenu* menu = parentMenu->second;
      if (m->caption() == "-") {
        a = menu->addSeparator();
      } else {
        a = menu->addAction(QString::fromStdString(m->caption()));
        connect(a, &QAction::triggered, this, [this, a] {
          auto it = items_.find(a);
          if (it == items_.end() || !it->second) return;
          MenuItem* item = it->second;
          item->click();
          // The click may have unloaded the window and this menu with it.
          if (items_.count(a) && items_[a]) sync(*item);
          if (afterChoice) afterChoice();
        });
      }
    }
    a->setObjectName(QString::fromStdString(m->name()));
    actions_[m->name()] = a;
    items_[a] = m;
    auto binding = std::make_unique<ViewBinding>(m, [this, m] { sync(*m); });
    binding->onGone = [this, a] { items_[a] = nullptr; };
    bindings_.push_back(std::move(binding));
    sync(*m);
  }
}

MenuView::~MenuView() = default;

QMenu* MenuView::menu(const std::string& name) const {
  auto it = menus_.find(name);
  return it == menus_.end() ? nullptr : it->second;
}

QAction* MenuView::action(const std::string& name) const {
  auto it = actions_.find(name);
  return it == actions_.end() ? nullptr : it->second;
}

void MenuView::syncMenu(QMenu* menu) {
  for (QAction* child : menu->actions()) {
    auto it = items_.find(child);
    if (it != items_.end() && it->second) sync(*it->second);
  }
}

void MenuView::popup(const std::string& name) {
  if (QMenu* m = menu(name)) {
    syncMenu(m);
    m->popup(QCursor::pos());
  }
}

void MenuView::syncAll() {
  for (auto& [a, m] : items_)
    if (m) sync(*m);
}

void MenuView::sync(MenuItem& m) {
  QAction* a = action(m.name());
  if (!a) return;
  if (!a->isSeparator()) a->setText(QString::fromStdString(m.caption()));
  a->setVisible(m.visible());
  const bool topLevel = m.parent.empty();
  const bool choosable = topLevel || (m.onClick && (!mayChoose || mayChoose(m.name())));
  a->setEnabled(m.enabled() && choosable);
  a->setCheckable(m.checked());
  a->setChecked(m.checked());
}

}  // namespace q::gui
