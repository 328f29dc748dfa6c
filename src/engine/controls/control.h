#pragma once
// Every control of the console (fader, label, text box, lamp, menu item,
// timer ...) is a model: it holds what the operator sees and the handlers
// that run when the operator acts on it. Views (the Qt desk, the headless
// runner) observe a control through view listeners, which are separate from
// the control's own handlers: painting never runs console logic. A control
// tells its listeners when it is destroyed, so that no view outlives it.

#include <cstdint>
#include <functional>
#include <string>

#include "engine/controls/listeners.h"

namespace q {

enum class MouseButton { None = 0, Left = 1, Right = 2 };

// A mouse event at a point given in the control's own units (twips for a
// pane measured in twips, 0..255 for a pad that runs so). Handlers that only
// care for the button take a MouseButton: the event converts to it.
struct MouseEvent {
  MouseEvent(MouseButton b = MouseButton::Left, double px = 0, double py = 0, int sh = 0)
      : button(b), x(px), y(py), shift(sh) {}
  operator MouseButton() const { return button; }
  MouseButton button;  // a move: the button held, or None
  double x, y;
  int shift;  // 1 Shift, 2 Ctrl, 4 Alt
};

class Control {
 public:
  using ViewListener = std::function<void()>;

  explicit Control(std::string name) : name_(std::move(name)) {}
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }

  // What `get NAME` prints for this control.
  virtual std::string value() const = 0;
  // `set NAME VALUE`; false when the control takes no value or the value is out of range.
  virtual bool setValue(int) { return false; }
  // The caption of a control that has one (label, frame, check box, menu item).
  virtual const std::string* captionText() const { return nullptr; }

  bool enabled() const { return enabled_; }
  void setEnabled(bool e);
  bool visible() const { return visible_; }
  void setVisible(bool v);

  // Operator events. A control without a handler ignores the event.
  std::function<void(const MouseEvent&)> onMouseDown;
  std::function<void(const MouseEvent&)> onMouseUp;
  std::function<void(const MouseEvent&)> onMouseMove;
  std::function<void()> onClick;
  std::function<void(const MouseEvent&)> onDblClick;
  // Key press with the character code; the handler may swallow it by setting it to 0.
  std::function<void(int& keyAscii)> onKeyPress;
  // A file dropped on the control with the mouse button that carried it.
  std::function<void(const std::string& path, MouseButton)> onDrop;

  void mouseDown(const MouseEvent& e = {});
  void mouseUp(const MouseEvent& e = {});
  void mouseMove(const MouseEvent& e);
  void click();
  void dblClick(const MouseEvent& e = {});
  // Returns the code after the handler: 0 when it swallowed the key.
  int keyPress(int code);
  void drop(const std::string& path, MouseButton b = MouseButton::Left);
  bool takesMouse() const { return onMouseDown || onMouseUp || onClick || onDblClick; }

  // Views: called after the control's visible state changed.
  int addViewListener(ViewListener l) { return changed_.add(std::move(l)); }
  void removeViewListener(int id) { changed_.remove(id); }
  // Called once, as the control is destroyed.
  int addDestroyListener(ViewListener l) { return destroyed_.add(std::move(l)); }
  void removeDestroyListener(int id) { destroyed_.remove(id); }
  // The console gives the control the focus (the keys go to it next).
  void requestFocus() { focus_.notify(); }
  int addFocusListener(ViewListener l) { return focus_.add(std::move(l)); }
  void removeFocusListener(int id) { focus_.remove(id); }

 protected:
  void notifyView() { changed_.notify(); }

 private:
  std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
  Listeners<> changed_;
  Listeners<> destroyed_;
  Listeners<> focus_;
};

}  // namespace q
