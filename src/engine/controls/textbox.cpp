#include "engine/controls/textbox.h"

namespace q {

void TextBox::setText(std::string t) {
  if (t == text_) return;
  text_ = std::move(t);
  notifyView();
  if (onChange) onChange();
}

void TextBox::setStyle(const TextStyle& s) {
  style = s;
  notifyView();
}

}  // namespace q
