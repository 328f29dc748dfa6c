#include "engine/controls/control.h"

#include <algorithm>

namespace q {

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

void Control::keyPress(int code) {
  if (onKeyPress) onKeyPress(code);
}

int Control::addViewListener(ViewListener l) {
  listeners_.emplace_back(nextListener_, std::move(l));
  return nextListener_++;
}

void Control::removeViewListener(int id) {
  std::erase_if(listeners_, [id](const auto& p) { return p.first == id; });
}

void Control::notifyView() {
  // A listener may remove itself while we walk, so walk a copy of the ids.
  for (size_t i = 0; i < listeners_.size(); ++i) listeners_[i].second();
}

}  // namespace q
