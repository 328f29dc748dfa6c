#include "engine/controls/label.h"

namespace q {

void Label::setCaption(std::string c) {
  if (c == caption_) return;
  caption_ = std::move(c);
  notifyView();
  if (onCaptionChange) onCaptionChange();
}

}  // namespace q
