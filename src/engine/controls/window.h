#pragma once
// Base of every window model: owns its controls and registers them under the
// window's prefix ("" for the main window, "Cuewin." for the cue list ...),
// and stands for the window itself under its bare name (`Tecles`): its title,
// whether it is shown, the keys typed at it. Views follow it through its
// listeners: shown or hidden, retitled, activated, unloading.

#include <functional>
#include <memory>
#include <vector>

#include "engine/controls/checkbox.h"
#include "engine/controls/label.h"
#include "engine/controls/lamp.h"
#include "engine/controls/listbox.h"
#include "engine/controls/menuitem.h"
#include "engine/controls/option_button.h"
#include "engine/controls/registry.h"
#include "engine/controls/scroller.h"
#include "engine/controls/textbox.h"
#include "engine/controls/timer.h"

namespace q {

// The window itself as a control: its caption is the title bar, its
// visibility the window's, its key handler the window's own.
class FormControl : public Control {
 public:
  explicit FormControl(std::string name) : Control(std::move(name)) { setVisible(false); }
  std::string value() const override { return {}; }
  const std::string* captionText() const override { return &caption; }
  std::string caption;
};

class Window {
 public:
  Window(Registry& registry, std::string name, bool isMain = false);
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  const std::string& name() const { return name_; }
  std::string qualified(const std::string& control) const {
    return isMain_ ? control : name_ + "." + control;
  }

  const std::string& caption() const { return form_.caption; }
  void setCaption(std::string c);
  FormControl& form() { return form_; }

  bool isVisible() const { return form_.visible(); }
  void setVisible(bool v);
  // The console shows the window (a menu entry, a button): shown, then activated.
  void show();
  // Shown as a modal window: `then` resumes the handler that opened it once
  // the window is hidden or unloaded. Nothing blocks meanwhile: the console,
  // the desk and a script go on, and may act on this or any other window.
  void showModal(std::function<void()> then = {});
  bool isModal() const { return modal_; }
  // The operator brings the window to the front: its activation handling runs.
  void activate();
  // The window's own close box: its closing handling may keep it; else it unloads.
  void closeBox();
  // Unloads the window: its unload handling runs, it is hidden, its controls
  // are forgotten by name, and the model is destroyed once the running
  // handlers have returned. The next use loads it afresh.
  void unload();
  bool isUnloaded() const { return unloaded_; }

  bool stayOnTop = false;
  // The window's own handlers.
  std::function<void()> onActivate;
  std::function<bool()> onQueryUnload;  // false keeps the window open
  std::function<void()> onUnload;

  // Views: shown, hidden or retitled; activated; about to be unloaded.
  Listeners<> changed;
  Listeners<> activated;
  Listeners<> unloading;

  // Set by the catalogue that loaded the window: it forgets the model at unload.
  std::function<void(Window&)> forget;
  // Forgets every control's name (the catalogue, as the window unloads).
  void unregisterControls();
  // The window's menu items in the order they were made: the bar's menus
  // (no parent) each followed by their items.
  std::vector<MenuItem*> menuItems() const;
  // An item of the window's menus by its name within the window; a name
  // that is no menu item of it is a programming error and throws.
  MenuItem& menu(const std::string& name);
  // The background of a secondary window, taken from the skin as it loads; -1: the view's.
  int backColor = -1;

 protected:
  // Adds an item to the window's menus: on the menu bar when parent is
  // empty, else in the menu of that name. Views find the parent menu by its
  // full name.
  MenuItem& addMenu(const std::string& name, const std::string& caption, const std::string& parent);
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
  void resumeOpener();

  Registry& registry_;
  std::string name_;
  bool isMain_;
  FormControl form_;
  bool modal_ = false;
  bool unloaded_ = false;
  std::function<void()> resume_;
  std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace q
