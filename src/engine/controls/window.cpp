#include "engine/controls/window.h"

#include <stdexcept>

#include "engine/controls/handler_scope.h"

namespace q {

Window::Window(Registry& registry, std::string name, bool isMain)
    : registry_(registry), name_(std::move(name)), isMain_(isMain), form_(name_) {
  registry_.add(form_);
}

Window::~Window() { unregisterControls(); }

void Window::unregisterControls() {
  for (auto& c : controls_) registry_.remove(*c);
  registry_.remove(form_);
}

std::vector<MenuItem*> Window::menuItems() const {
  std::vector<MenuItem*> items;
  for (const auto& c : controls_)
    if (auto* m = dynamic_cast<MenuItem*>(c.get())) items.push_back(m);
  return items;
}

MenuItem& Window::menu(const std::string& name) {
  auto* m = dynamic_cast<MenuItem*>(registry_.peek(qualified(name)));
  if (!m) throw std::out_of_range("no menu item " + qualified(name));
  return *m;
}

MenuItem& Window::addMenu(const std::string& name, const std::string& caption,
                          const std::string& parent) {
  MenuItem& m = add<MenuItem>(name, caption);
  m.parent = parent.empty() ? "" : qualified(parent);
  return m;
}

void Window::setCaption(std::string c) {
  if (c == form_.caption) return;
  form_.caption = std::move(c);
  changed.notify();
}

void Window::setVisible(bool v) {
  if (v == isVisible()) return;
  form_.setVisible(v);
  changed.notify();
  if (!v) resumeOpener();
}

void Window::show() {
  setVisible(true);
  activate();
}

void Window::showModal(std::function<void()> then) {
  modal_ = true;
  resume_ = std::move(then);
  changed.notify();
  show();
}

void Window::resumeOpener() {
  modal_ = false;
  if (auto then = std::exchange(resume_, nullptr)) then();
}

void Window::activate() {
  HandlerScope scope;
  if (onActivate) onActivate();
  activated.notify();
}

void Window::closeBox() {
  HandlerScope scope;
  if (onQueryUnload && !onQueryUnload()) return;
  unload();
}

void Window::unload() {
  if (unloaded_) return;
  HandlerScope scope;  // the model outlives the handler that unloads it
  if (onUnload) onUnload();
  unloaded_ = true;
  setVisible(false);
  unloading.notify();
  if (forget) forget(*this);
}

}  // namespace q
