#pragma once
// Keeps a view's listener on a control for as long as both live. When the
// control goes first (its window unloaded, the desk reset) the binding lets
// go of it and control() turns null: a view asks it before every use and so
// never touches a control that is gone.

#include <functional>

namespace q {
class Control;
}

namespace q::gui {

class ViewBinding {
 public:
  ViewBinding() = default;
  ViewBinding(Control* c, std::function<void()> onChange);
  ~ViewBinding();
  ViewBinding(const ViewBinding&) = delete;
  ViewBinding& operator=(const ViewBinding&) = delete;

  void bind(Control* c, std::function<void()> onChange);
  // Also hears when the console gives the control the focus.
  void bindFocus(std::function<void()> onFocus);
  void unbind();
  // The bound control, or null once it is gone.
  Control* control() const { return control_; }
  template <class T>
  T* as() const {
    return static_cast<T*>(control_);
  }

  // Runs when the control is destroyed, after the binding let go of it.
  std::function<void()> onGone;

 private:
  Control* control_ = nullptr;
  int changeId_ = 0;
  int goneId_ = 0;
  int focusId_ = 0;
};

}  // namespace q::gui
