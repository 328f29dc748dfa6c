#pragma once
// A list or combo box: items and the selected index (-1 for none). Selecting
// from code runs the click handler when the index changes, as on the desk.

#include "engine/controls/control.h"

namespace q {

class ListBox : public Control {
 public:
  explicit ListBox(std::string name) : Control(std::move(name)) {}

  const std::vector<std::string>& items() const { return items_; }
  void addItem(std::string item);
  void clear();
  int count() const { return static_cast<int>(items_.size()); }

  int listIndex() const { return index_; }
  // False for an index outside -1..count-1.
  bool setListIndex(int i);
  std::string text() const;

  std::string value() const override { return std::to_string(index_); }
  bool setValue(int v) override { return setListIndex(v); }

 private:
  std::vector<std::string> items_;
  int index_ = -1;
};

}  // namespace q
