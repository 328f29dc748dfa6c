#pragma once
// A text box. The console reads some boxes afresh on every tick (the four
// time boxes), so the text is the value. The change handler runs whenever the
// text really changes, from the operator or from code.

#include "engine/controls/control.h"

namespace q {

struct TextStyle {
  std::string fontName;  // empty: the view's default
  double fontSize = 0;
  bool bold = false, italic = false, underline = false, strikeout = false;
  int foreColor = -1;  // 0xRRGGBB, -1 for the default
  int backColor = -1;
};

class TextBox : public Control {
 public:
  explicit TextBox(std::string name, std::string text = {})
      : Control(std::move(name)), text_(std::move(text)) {}

  const std::string& text() const { return text_; }
  void setText(std::string t);

  std::function<void()> onChange;
  // Focus events, used by the keyboard control to know when typing goes to a box.
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;

  TextStyle style;
  void setStyle(const TextStyle& s);
  std::string toolTip;

  std::string value() const override { return text_; }

 private:
  std::string text_;
};

}  // namespace q
