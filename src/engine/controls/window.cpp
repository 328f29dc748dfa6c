#include "engine/controls/window.h"

namespace q {

Window::~Window() {
  for (auto& c : controls_) registry_.remove(*c);
}

void Window::setVisible(bool v) {
  if (v == visible_) return;
  visible_ = v;
  if (onVisibleChange) onVisibleChange();
}

}  // namespace q
