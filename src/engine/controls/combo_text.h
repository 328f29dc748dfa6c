#pragma once
// An editable list: a text box with a list of items to pick from. Its text
// is its value; picking an item puts the item's text there.

#include <string>
#include <vector>

#include "engine/controls/textbox.h"

namespace q {

class ComboText : public TextBox {
 public:
  using TextBox::TextBox;
  std::vector<std::string> items;
  // `set`: picks the item of that index.
  bool setValue(int index) override {
    if (index < 0 || index >= int(items.size())) return false;
    setText(items[size_t(index)]);
    return true;
  }
};

}  // namespace q
