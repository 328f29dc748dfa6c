#include "engine/controls/control.h"

#include "engine/controls/handler_scope.h"

namespace q {

Control::~Control() { destroyed_.notify(); }

void Control::setEnabled(bool e) {
  if (enabled_ == e) return;
  enabled_ = e;
  notifyView();
}

void Control::setVisible(bool v) {
  if (visible_ == v) return;
  visible_ = v;
  notifyView();
}

void Control::mouseDown(const MouseEvent& e) {
  HandlerScope scope;
  if (onMouseDown) onMouseDown(e);
}

void Control::mouseUp(const MouseEvent& e) {
  HandlerScope scope;
  if (onMouseUp) onMouseUp(e);
}

void Control::mouseMove(const MouseEvent& e) {
  HandlerScope scope;
  if (onMouseMove) onMouseMove(e);
}

void Control::click() {
  HandlerScope scope;
  if (onClick) onClick();
}

void Control::dblClick(const MouseEvent& e) {
  HandlerScope scope;
  if (onDblClick) onDblClick(e);
}

int Control::keyPress(int code) {
  HandlerScope scope;
  if (onKeyPress) onKeyPress(code);
  return code;
}

void Control::drop(const std::string& path, MouseButton b) {
  HandlerScope scope;
  if (onDrop) onDrop(path, b);
}

}  // namespace q
