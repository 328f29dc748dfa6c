#pragma once
// Base of every window model: owns its controls and registers them under the
// window's prefix ("" for the main window, "Cuewin." for the cue list ...).

#include <memory>
#include <vector>

#include "engine/controls/checkbox.h"
#include "engine/controls/label.h"
#include "engine/controls/lamp.h"
#include "engine/controls/listbox.h"
#include "engine/controls/menuitem.h"
#include "engine/controls/registry.h"
#include "engine/controls/scroller.h"
#include "engine/controls/textbox.h"
#include "engine/controls/timer.h"

namespace q {

class Window {
 public:
  // prefix: "" for the main window, else the window's name (e.g. "Cuewin").
  Window(Registry& registry, std::string name, bool isMain = false)
      : registry_(registry), name_(std::move(name)), isMain_(isMain) {}
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  const std::string& name() const { return name_; }
  std::string qualified(const std::string& control) const {
    return isMain_ ? control : name_ + "." + control;
  }

  bool isVisible() const { return visible_; }
  void setVisible(bool v);
  std::function<void()> onVisibleChange;

 protected:
  // Creates a control owned by this window and registers it by its qualified name.
  template <class T, class... Args>
  T& add(const std::string& controlName, Args&&... args) {
    auto c = std::make_unique<T>(qualified(controlName), std::forward<Args>(args)...);
    T& ref = *c;
    registry_.add(ref);
    controls_.push_back(std::move(c));
    return ref;
  }
  Registry& registry() { return registry_; }

 private:
  Registry& registry_;
  std::string name_;
  bool isMain_;
  bool visible_ = false;
  std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace q
