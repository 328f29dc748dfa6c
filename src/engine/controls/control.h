#pragma once
// Every control of the console (fader, label, text box, lamp, menu item,
// timer ...) is a model: it holds what the operator sees and the handlers
// that run when the operator acts on it. Views (the Qt desk, the headless
// runner) observe a control through a view listener, which is separate from
// the control's own handlers: painting never runs console logic.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace q {

enum class MouseButton { Left = 1, Right = 2 };

class Control {
 public:
  using ViewListener = std::function<void()>;

  explicit Control(std::string name) : name_(std::move(name)) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }

  // What `get NAME` prints for this control.
  virtual std::string value() const = 0;
  // `set NAME VALUE`; false when the control takes no value or the value is out of range.
  virtual bool setValue(int) { return false; }

  bool enabled() const { return enabled_; }
  void setEnabled(bool e);
  bool visible() const { return visible_; }
  void setVisible(bool v);

  // Operator events. A control without a handler ignores the event.
  std::function<void(MouseButton)> onMouseDown;
  std::function<void(MouseButton)> onMouseUp;
  std::function<void()> onClick;
  std::function<void()> onDblClick;
  // Key press with the character code; the handler may swallow it by setting it to 0.
  std::function<void(int& keyAscii)> onKeyPress;
  // A file dropped on the control with the mouse button that carried it.
  std::function<void(const std::string& path, MouseButton)> onDrop;

  void mouseDown(MouseButton b = MouseButton::Left) {
    if (onMouseDown) onMouseDown(b);
  }
  void mouseUp(MouseButton b = MouseButton::Left) {
    if (onMouseUp) onMouseUp(b);
  }
  void click() {
    if (onClick) onClick();
  }
  void dblClick() {
    if (onDblClick) onDblClick();
  }
  void keyPress(int code);
  void drop(const std::string& path, MouseButton b = MouseButton::Left) {
    if (onDrop) onDrop(path, b);
  }

  // Views: called after the control's visible state changed.
  int addViewListener(ViewListener l);
  void removeViewListener(int id);

 protected:
  void notifyView();

 private:
  std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
  std::vector<std::pair<int, ViewListener>> listeners_;
  int nextListener_ = 1;
};

}  // namespace q
