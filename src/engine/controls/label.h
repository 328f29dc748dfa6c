#pragma once
// A label. Several console values live only in a label's caption (the row in
// Prog, a chaser's step, a strip's function word), so the caption is a store.

#include "engine/controls/control.h"

namespace q {

class Label : public Control {
 public:
  explicit Label(std::string name, std::string caption = {})
      : Control(std::move(name)), caption_(std::move(caption)) {}

  const std::string& caption() const { return caption_; }
  void setCaption(std::string c);
  // Runs after the caption changed, for models that cache what a caption means.
  std::function<void()> onCaptionChange;
  // Tool tip text shown by views.
  std::string toolTip;

  std::string value() const override { return caption_; }
  const std::string* captionText() const override { return &caption_; }

 private:
  std::string caption_;
};

}  // namespace q
