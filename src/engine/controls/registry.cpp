#include "engine/controls/registry.h"

namespace q {

void Registry::add(Control& c) { controls_[c.name()] = &c; }

void Registry::remove(const Control& c) {
  auto it = controls_.find(c.name());
  if (it != controls_.end() && it->second == &c) controls_.erase(it);
}

Control* Registry::find(const std::string& name) {
  auto it = controls_.find(name);
  if (it != controls_.end()) return it->second;
  // A bare window name is that window's own key handler (`Tecles`), so it too creates the window.
  auto dot = name.find('.');
  auto f = factories_.find(dot == std::string::npos ? name : name.substr(0, dot));
  if (f == factories_.end()) return nullptr;
  f->second();
  it = controls_.find(name);
  return it == controls_.end() ? nullptr : it->second;
}

void Registry::addWindowFactory(const std::string& window, std::function<void()> create,
                                std::function<void()> forget) {
  factories_[window] = std::move(create);
  if (forget) forgetters_[window] = std::move(forget);
}

void Registry::forgetWindow(const std::string& window) {
  auto it = forgetters_.find(window);
  if (it != forgetters_.end()) it->second();
}

std::string indexed(const std::string& base, int index) {
  return base + "(" + std::to_string(index) + ")";
}

}  // namespace q
