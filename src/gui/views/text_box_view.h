#pragma once
// A text box bound to its console text box: typing changes the console's
// text at once (the desk's four time boxes are read on every tick), and every
// key press is offered to the console's key handler first, with its character
// code, so Enter runs the direct command or checks a value. A text set by the
// console shows without being fed back. Font and colours come from the box's
// style over the view's own; the desk's boxes are a variant with its type.

#include <QLineEdit>

#include "gui/views/control_events.h"
#include "gui/views/view_binding.h"

namespace q {
class TextBox;
}

namespace q::gui {

class TextBoxView : public QLineEdit {
  Q_OBJECT
 public:
  TextBoxView(TextBox& model, QWidget* parent);

  // Null once the text box is gone.
  TextBox* model() const;
  // Re-applies font and colours (after a zoom or a change of the box's style).
  void applyStyle();

 protected:
  // The type before the box's own style: the window's, or the desk's.
  virtual QFont baseFont() const { return font(); }
  // The size of a point of a chosen font, in pixels.
  virtual double pixelsPerPoint() const { return 4.0 / 3.0; }
  void keyPressEvent(QKeyEvent* e) override;
  void paintEvent(QPaintEvent* e) override;
  void focusInEvent(QFocusEvent* e) override;
  void focusOutEvent(QFocusEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void syncFromModel();

 private:
  ViewBinding binding_;
  QFont base_;
  bool baseTaken_ = false;
};

}  // namespace q::gui
