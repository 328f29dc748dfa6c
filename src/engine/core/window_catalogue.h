#pragma once
// The console's windows, each named once: its console name, what opens it,
// its place in the main window's unload. The registry loads windows from it
// on first use, the main window's unload forgets them in its order, and
// menus that open a window are enabled when that window can be made.
//
// A window's model is made by the factory its subsystem gives, lives while
// the window is loaded, and is destroyed after it unloads, once the handlers
// that were running have returned.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/controls/listeners.h"
#include "engine/controls/window.h"

namespace q {

struct WindowEntry {
  std::string_view name;
  // The menu item or control that opens it (the first, where there are several).
  std::string_view opener;
  // Its place in the main window's unload; -1 for a window that stays
  // loaded through it (the patch windows).
  int unloadOrder;
};

inline constexpr WindowEntry kWindowCatalogue[] = {
    {"frmSparseMatrix", "mnuMatrix", 0},
    {"Mobile", "mnuMobile", 1},
    {"Config", "FaderCFG", 2},  // a right press on a strip's selector
    {"Cuewin", "mnuCueList", 3},
    {"Simple", "mnuSimple", 4},
    {"Canals", "mnuChanWin", 5},
    {"Tecles", "mnuTecles", 6},  // also CmdDirect and the PAD key
    {"MIDISetupForm", "mnuMidiSetup", 7},
    {"FX1Config", "btnFXConfig(0)", 8},
    {"FX2Config", "btnFXConfig(1)", 9},
    {"CueProps", "Cuewin.Picture3", 10},  // a double click on a row of CUE, FUN, TIMES or NAME
    {"SpCue", "Cuewin.mnuSpecialCue", 11},
    {"frmAbout", "mnuAbout", 12},
    {"Refreshrate", "mnuInterface", 13},
    {"OscSetup", "mnuOscSetup", 14},
    {"frmPatch", "mnuPatch", -1},
    {"frmInvPatch", "frmPatch.ReverseBtn", -1},
};

class WindowCatalogue {
 public:
  using Factory = std::function<std::unique_ptr<Window>()>;

  explicit WindowCatalogue(Registry& registry);
  ~WindowCatalogue();
  WindowCatalogue(const WindowCatalogue&) = delete;
  WindowCatalogue& operator=(const WindowCatalogue&) = delete;

  // The entry of a window; null for a name that is none.
  static const WindowEntry* entry(std::string_view name);
  // The window a menu item or control opens; null when it opens none.
  static const WindowEntry* openedBy(std::string_view control);

  // The subsystem that owns a window gives its factory (once).
  void setFactory(std::string_view name, Factory factory);
  bool canMake(std::string_view name) const;
  // Enables every menu item that opens a window, when that window can be made.
  void enableOpeners();

  // The loaded model, or null; nothing is loaded by asking.
  Window* find(std::string_view name) const;
  template <class T>
  T* find(std::string_view name) const {
    return dynamic_cast<T*>(find(name));
  }
  // The model, loading it first if needed (its load sequence runs).
  Window& load(std::string_view name);
  template <class T>
  T& load(std::string_view name) {
    return dynamic_cast<T&>(load(name));
  }
  // The main window's unload: every window with a place, in order.
  void unloadAll();
  std::vector<std::string> loadedNames() const;

  // A window was loaded (the desk builds its view over it).
  Listeners<Window&> loaded;

 private:
  void forget(Window& w);

  Registry& registry_;
  std::map<std::string, Factory, std::less<>> factories_;
  std::map<std::string, std::unique_ptr<Window>, std::less<>> live_;
  std::vector<std::string> loading_;
  // Unloaded models waiting for the running handlers to return.
  std::shared_ptr<std::vector<std::unique_ptr<Window>>> unloaded_;
};

}  // namespace q
