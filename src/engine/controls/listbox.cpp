#include "engine/controls/listbox.h"

namespace q {

void ListBox::addItem(std::string item) {
  items_.push_back(std::move(item));
  notifyView();
}

void ListBox::clear() {
  items_.clear();
  index_ = -1;
  notifyView();
}

bool ListBox::setListIndex(int i) {
  if (i < -1 || i >= count()) return false;
  if (i == index_) return true;
  index_ = i;
  notifyView();
  click();
  return true;
}

std::string ListBox::text() const {
  return index_ >= 0 && index_ < count() ? items_[index_] : std::string();
}

}  // namespace q
