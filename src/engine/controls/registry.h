#pragma once
// Finds controls by their console names. The desk binds its widgets through
// it and the command language looks names up in it, so `Fader(3)` in a
// script, on the screen binding and in the code is one name.
//
// Controls of the main window are registered bare (`NextCue`); controls of
// other windows as `Window.Control` (`Cuewin.mnuSort`), and each window
// itself under its bare name (`Tecles`). A window other than the main one is
// loaded on first use, through the window catalogue.

#include <functional>
#include <map>
#include <string>

#include "engine/controls/control.h"

namespace q {

class Registry {
 public:
  // Refuses (std::logic_error) a second control under a name already taken:
  // two controls with one name would make scripts and views act on either.
  void add(Control& c);
  void remove(const Control& c);
  // Window-qualified name, e.g. `Cuewin.mnuSort`; loads the window first if needed.
  Control* find(const std::string& name);
  template <class T>
  T* find(const std::string& name) {
    return dynamic_cast<T*>(find(name));
  }
  // Looks without loading anything.
  Control* peek(const std::string& name) const;
  bool has(const std::string& name) const { return controls_.count(name) > 0; }

  // Loads a window by name; false when no such window can be loaded. Set by
  // the window catalogue.
  std::function<bool(const std::string& window)> loadWindow;

  const std::map<std::string, Control*>& all() const { return controls_; }

 private:
  std::map<std::string, Control*> controls_;
};

// "Fader" and 3 make "Fader(3)".
std::string indexed(const std::string& base, int index);

// The window part of a qualified name: "Cuewin" for "Cuewin.mnuSort" and for
// "Cuewin"; "" for a control of the main window such as "Fader(3)".
std::string windowOf(const std::string& name);

}  // namespace q
