#pragma once
// A lamp, button image or picture holder: it shows one named picture cut from
// the skin (`Led_On2`, `imgFLASH` ...) or nothing.

#include "engine/controls/control.h"

namespace q {

class Lamp : public Control {
 public:
  explicit Lamp(std::string name, std::string picture = {})
      : Control(std::move(name)), picture_(std::move(picture)) {}

  const std::string& picture() const { return picture_; }
  void setPicture(std::string p) {
    if (p == picture_) return;
    picture_ = std::move(p);
    notifyView();
  }
  std::string toolTip;
  // A picture box of a dialog may carry a border that marks it as chosen.
  bool border() const { return border_; }
  void setBorder(bool b) {
    if (b == border_) return;
    border_ = b;
    notifyView();
  }

  std::string value() const override { return picture_; }

 private:
  std::string picture_;
  bool border_ = false;
};

}  // namespace q
