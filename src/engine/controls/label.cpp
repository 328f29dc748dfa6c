#include "engine/controls/label.h"

namespace q {

void Label::setCaption(std::string c) {
  if (c == caption_) return;
  caption_ = std::move(c);
  // What the model keeps beside the caption is brought up to date before
  // any view hears of the change.
  if (onCaptionChange) onCaptionChange();
  notifyView();
}

}  // namespace q
