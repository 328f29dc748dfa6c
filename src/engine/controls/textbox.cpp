#include "engine/controls/textbox.h"

#include "engine/controls/handler_scope.h"

namespace q {

void TextBox::setText(std::string t) {
  if (t == text_) return;
  text_ = std::move(t);
  notifyView();
  HandlerScope scope;
  if (onChange) onChange();
}

void TextBox::setStyle(const TextStyle& s) {
  style = s;
  notifyView();
}

}  // namespace q
