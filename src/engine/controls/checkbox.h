#pragma once
// A check box. As on the desk, setting its value from code runs its click
// handler when the value changes.

#include "engine/controls/control.h"

namespace q {

class CheckBox : public Control {
 public:
  explicit CheckBox(std::string name, std::string text = {})
      : Control(std::move(name)), caption(std::move(text)) {}

  int checked() const { return value_; }
  void setChecked(int v) {
    v = v ? 1 : 0;
    if (v == value_) return;
    value_ = v;
    notifyView();
    click();
  }
  std::string caption;

  std::string value() const override { return std::to_string(value_); }
  const std::string* captionText() const override { return &caption; }
  bool setValue(int v) override {
    if (v != 0 && v != 1) return false;
    setChecked(v);
    return true;
  }

 private:
  int value_ = 0;
};

}  // namespace q
