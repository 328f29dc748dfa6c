#pragma once
// An option button: one of a group of which at most one is on. Choosing one
// (by the mouse or from code) turns the others of its group off and runs its
// click handler, as on the desk.

#include <memory>
#include <vector>

#include "engine/controls/control.h"

namespace q {

class OptionButton;
using OptionGroup = std::vector<OptionButton*>;

class OptionButton : public Control {
 public:
  OptionButton(std::string name, std::string text, std::shared_ptr<OptionGroup> group)
      : Control(std::move(name)), caption(std::move(text)), group_(std::move(group)) {
    group_->push_back(this);
  }
  ~OptionButton() override { std::erase(*group_, this); }

  bool checked() const { return on_; }
  // Turning one on turns its group's others off; only that runs a click.
  void setChecked(bool on) {
    if (on == on_) return;
    on_ = on;
    if (on)
      for (OptionButton* other : *group_)
        if (other != this) other->turnOff();
    notifyView();
    if (on) click();
  }
  std::string caption;

  std::string value() const override { return on_ ? "-1" : "0"; }
  bool setValue(int v) override {
    if (v != 0 && v != 1 && v != -1) return false;
    setChecked(v != 0);
    return true;
  }
  const std::string* captionText() const override { return &caption; }

 private:
  void turnOff() {
    if (!on_) return;
    on_ = false;
    notifyView();
  }
  bool on_ = false;
  std::shared_ptr<OptionGroup> group_;
};

}  // namespace q
