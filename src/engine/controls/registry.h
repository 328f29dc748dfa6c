#pragma once
// Finds controls by their console names. The desk binds its widgets through
// it and the command language looks names up in it, so `Fader(3)` in a
// script, on the screen binding and in the code is one name.
//
// Controls of the main window are registered bare (`NextCue`); controls of
// other windows as `Window.Control` (`Cuewin.mnuSort`). A window other than
// the main one is created on first use, through its factory.

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "engine/controls/control.h"

namespace q {

class Registry {
 public:
  void add(Control& c);
  void remove(const Control& c);
  // Window-qualified name, e.g. `Cuewin.mnuSort`; creates the window first if needed.
  Control* find(const std::string& name);
  template <class T>
  T* find(const std::string& name) {
    return dynamic_cast<T*>(find(name));
  }
  bool has(const std::string& name) const { return controls_.count(name) > 0; }

  // A window that is created when one of its controls is first asked for;
  // forget destroys it again (the main window's unload forgets every window).
  void addWindowFactory(const std::string& window, std::function<void()> create,
                        std::function<void()> forget = {});
  void forgetWindow(const std::string& window);

  const std::map<std::string, Control*>& all() const { return controls_; }

 private:
  std::map<std::string, Control*> controls_;
  std::map<std::string, std::function<void()>> factories_;
  std::map<std::string, std::function<void()>> forgetters_;
};

// "Fader" and 3 make "Fader(3)".
std::string indexed(const std::string& base, int index);

}  // namespace q
