#include "gui/views/view_binding.h"

#include "engine/controls/control.h"

namespace q::gui {

ViewBinding::ViewBinding(Control* c, std::function<void()> onChange) {
  bind(c, std::move(onChange));
}

ViewBinding::~ViewBinding() { unbind(); }

void ViewBinding::bind(Control* c, std::function<void()> onChange) {
  unbind();
  control_ = c;
  if (!c) return;
  changeId_ = c->addViewListener(std::move(onChange));
  goneId_ = c->addDestroyListener([this] {
    control_ = nullptr;
    changeId_ = goneId_ = focusId_ = 0;
    if (onGone) onGone();
  });
}

void ViewBinding::bindFocus(std::function<void()> onFocus) {
  if (!control_) return;
  if (focusId_) control_->removeFocusListener(focusId_);
  focusId_ = control_->addFocusListener(std::move(onFocus));
}

void ViewBinding::unbind() {
  if (!control_) return;
  control_->removeViewListener(changeId_);
  control_->removeDestroyListener(goneId_);
  if (focusId_) control_->removeFocusListener(focusId_);
  control_ = nullptr;
  changeId_ = goneId_ = focusId_ = 0;
}

}  // namespace q::gui
