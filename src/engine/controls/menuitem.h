#pragma once
// A menu item: caption, check mark, visible and enabled. Choosing it is its click.

#include "engine/controls/control.h"

namespace q {

class MenuItem : public Control {
 public:
  MenuItem(std::string name, std::string caption)
      : Control(std::move(name)), caption_(std::move(caption)) {}

  const std::string& caption() const { return caption_; }
  void setCaption(std::string c) {
    if (c == caption_) return;
    caption_ = std::move(c);
    notifyView();
  }
  bool checked() const { return checked_; }
  void setChecked(bool c) {
    if (c == checked_) return;
    checked_ = c;
    notifyView();
  }
  // The menu this item sits in ("" for a top-level menu), so views can build the bar.
  std::string parent;

  std::string value() const override { return checked_ ? "-1" : "0"; }
  const std::string* captionText() const override { return &caption_; }

 private:
  std::string caption_;
  bool checked_ = false;
};

}  // namespace q
