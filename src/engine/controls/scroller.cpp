#include "engine/controls/scroller.h"

#include "engine/controls/handler_scope.h"

namespace q {

bool Scroller::setPosition(int v) {
  if (!inRange(v)) return false;
  if (v == position_) return true;
  position_ = v;
  notifyView();
  HandlerScope scope;
  if (onChange) onChange();
  return true;
}

void Scroller::setRange(int min, int max) {
  min_ = min;
  max_ = max;
  notifyView();
  if (position_ < min_) setPosition(min_);
  if (position_ > max_) setPosition(max_);
}

}  // namespace q
