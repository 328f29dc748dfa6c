#include "engine/controls/registry.h"

#include <stdexcept>

namespace q {

void Registry::add(Control& c) {
  auto [it, fresh] = controls_.emplace(c.name(), &c);
  if (!fresh && it->second != &c)
    throw std::logic_error("a control named " + c.name() + " is already registered");
}

void Registry::remove(const Control& c) {
  auto it = controls_.find(c.name());
  if (it != controls_.end() && it->second == &c) controls_.erase(it);
}

Control* Registry::peek(const std::string& name) const {
  auto it = controls_.find(name);
  return it == controls_.end() ? nullptr : it->second;
}

Control* Registry::find(const std::string& name) {
  if (Control* c = peek(name)) return c;
  const std::string window = windowOf(name);
  if (window.empty() || !loadWindow || !loadWindow(window)) return nullptr;
  return peek(name);
}

std::string indexed(const std::string& base, int index) {
  return base + "(" + std::to_string(index) + ")";
}

std::string windowOf(const std::string& name) {
  const size_t dot = name.find('.');
  if (dot != std::string::npos) return name.substr(0, dot);
  // A bare name is a window when it carries no index ("Tecles", not "Fader(3)").
  return name.find('(') == std::string::npos ? name : std::string();
}

}  // namespace q
