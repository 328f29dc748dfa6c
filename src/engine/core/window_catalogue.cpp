#include "engine/core/window_catalogue.h"

#include <algorithm>
#include <stdexcept>

#include "engine/controls/handler_scope.h"

namespace q {

WindowCatalogue::WindowCatalogue(Registry& registry)
    : registry_(registry), unloaded_(std::make_shared<std::vector<std::unique_ptr<Window>>>()) {
  registry_.loadWindow = [this](const std::string& name) {
    if (!canMake(name)) return false;
    // A window whose load sequence asks for its own controls finds only those made so far.
    if (std::find(loading_.begin(), loading_.end(), name) != loading_.end()) return false;
    load(name);
    return true;
  };
}

WindowCatalogue::~WindowCatalogue() {
  registry_.loadWindow = nullptr;
  live_.clear();
  unloaded_->clear();
}

const WindowEntry* WindowCatalogue::entry(std::string_view name) {
  for (const WindowEntry& e : kWindowCatalogue)
    if (e.name == name) return &e;
  return nullptr;
}

const WindowEntry* WindowCatalogue::openedBy(std::string_view control) {
  for (const WindowEntry& e : kWindowCatalogue)
    if (e.opener == control) return &e;
  return nullptr;
}

void WindowCatalogue::setFactory(std::string_view name, Factory factory) {
  if (!entry(name)) throw std::logic_error("no window named " + std::string(name));
  if (!factories_.emplace(std::string(name), std::move(factory)).second)
    throw std::logic_error("the window " + std::string(name) + " has a factory already");
}

bool WindowCatalogue::canMake(std::string_view name) const {
  return factories_.find(name) != factories_.end();
}

void WindowCatalogue::enableOpeners() {
  for (const WindowEntry& e : kWindowCatalogue)
    if (auto* item = dynamic_cast<MenuItem*>(registry_.peek(std::string(e.opener))))
      item->setEnabled(canMake(e.name));
}

Window* WindowCatalogue::find(std::string_view name) const {
  auto it = live_.find(name);
  return it == live_.end() ? nullptr : it->second.get();
}

Window& WindowCatalogue::load(std::string_view name) {
  if (Window* w = find(name)) return *w;
  auto f = factories_.find(name);
  if (f == factories_.end())
    throw std::logic_error("no factory for the window " + std::string(name));
  HandlerScope scope;
  loading_.emplace_back(name);
  std::unique_ptr<Window> made;
  try {
    made = f->second();
  } catch (...) {
    loading_.pop_back();
    throw;
  }
  loading_.pop_back();
  Window& w = *made;
  w.forget = [this](Window& gone) { forget(gone); };
  live_.emplace(std::string(name), std::move(made));
  loaded.notify(w);
  return w;
}

void WindowCatalogue::forget(Window& w) {
  auto it = live_.find(w.name());
  if (it == live_.end() || it->second.get() != &w) return;
  w.unregisterControls();
  unloaded_->push_back(std::move(it->second));
  live_.erase(it);
  std::weak_ptr<std::vector<std::unique_ptr<Window>>> later = unloaded_;
  HandlerScope::whenIdle([later] {
    if (auto gone = later.lock()) gone->clear();
  });
}

void WindowCatalogue::unloadAll() {
  std::vector<const WindowEntry*> order;
  for (const WindowEntry& e : kWindowCatalogue)
    if (e.unloadOrder >= 0) order.push_back(&e);
  std::sort(order.begin(), order.end(), [](const WindowEntry* a, const WindowEntry* b) {
    return a->unloadOrder < b->unloadOrder;
  });
  HandlerScope scope;
  for (const WindowEntry* e : order)
    if (Window* w = find(e->name)) w->unload();
}

std::vector<std::string> WindowCatalogue::loadedNames() const {
  std::vector<std::string> names;
  for (const auto& [name, w] : live_) names.push_back(name);
  return names;
}

}  // namespace q
