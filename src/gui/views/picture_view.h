#pragma once
// A drawing surface bound to its console picture: it paints the items the
// console drew (texts, boxes, lines) in the picture's own units, stretched
// to the widget, over the picture's back colour, and hands presses, moves
// and releases to the picture at points in those same units (a pad that
// runs from 0 to 255 gets 0 to 255 whatever its size on the screen). A
// button pressed on it keeps the mouse, so a drag past its edges still
// reaches it.

#include <QWidget>

#include "gui/views/control_events.h"
#include "gui/views/view_binding.h"

namespace q {
class Picture;
}

namespace q::gui {

class PictureView : public QWidget {
  Q_OBJECT
 public:
  PictureView(Picture& model, QWidget* parent);

  // Null once the picture is gone.
  Picture* model() const;
  // How many times the console asked it to repaint.
  int refreshes() const { return refreshes_; }

 protected:
  void paintEvent(QPaintEvent*) override;
  void resizeEvent(QResizeEvent*) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;

 private:
  void syncFromModel();
  void takeScale();

  ViewBinding binding_;
  MouseForwarder mouse_;
  int refreshes_ = 0;
};

}  // namespace q::gui
