#pragma once
// A text box of the desk bound to its console text box: typing changes the
// console's text at once (the four time boxes are read on every tick), and
// every key press is offered to the console's key handler first, with its
// character code, so Enter runs the direct command or checks a time. A text
// set by the console shows without being fed back. A strip's name box takes
// its font and colours from the console.

#include <QLineEdit>

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"

namespace q {
class TextBox;
}

namespace q::gui {

class TextBoxView : public QLineEdit {
  Q_OBJECT
 public:
  TextBoxView(DeskContext& ctx, TextBox& model, const look::DeskItem& item, QWidget* parent);

  TextBox& model() { return model_; }
  // Re-applies font and colours (after a zoom or a change of the box's style).
  void applyStyle();

 protected:
  void keyPressEvent(QKeyEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void focusInEvent(QFocusEvent* e) override;
  void focusOutEvent(QFocusEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;

 private:
  void syncFromModel();

  DeskContext& ctx_;
  TextBox& model_;
  const look::DeskItem& item_;
  ViewBinding binding_;
};

// The character code a key press gives the console (13 for Enter, 8 for
// Backspace ...); 0 for a key that types nothing.
int keyAscii(const QKeyEvent& e);

}  // namespace q::gui
