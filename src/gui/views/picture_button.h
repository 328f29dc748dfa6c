#pragma once
// A picture box, lamp or image button bound to its control: it shows the
// picture the control names (cut by the window's picture source) or nothing,
// and a border when the control is marked as chosen. Presses, releases,
// clicks, double clicks and drops go to the control; what they mean is the
// console's business. The desk's skinned buttons are a variant of it.

#include <QPixmap>
#include <QWidget>
#include <functional>

#include "gui/views/control_widget.h"

namespace q::gui {

class PictureButton : public ControlWidget {
  Q_OBJECT
 public:
  // The picture of a name at a size; a null pixmap draws nothing.
  using Source = std::function<QPixmap(const std::string& picture, QSize size)>;

  // model may be null: the face is then drawn and nothing else happens.
  PictureButton(Control* model, Source source, QWidget* parent);

  Control* model() const { return control(); }

 protected:
  void paintEvent(QPaintEvent*) override;
  // The picture the control names; a variant may draw more over it.
  virtual void paintFace(QPainter& p);
  virtual void syncFromModel();
  // The button held as the file is let go, else the left.
  MouseButton dropButton(const QDropEvent& e) const override;

  Source source_;
};

}  // namespace q::gui
