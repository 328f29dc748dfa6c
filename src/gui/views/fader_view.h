#pragma once
// A fader: a vertical scroller whose position 0 is the top. It turns a drag,
// the wheel or an arrow key into a new position of its scroller; a position
// set by the console only repaints it, nothing is fed back. This view paints
// a plain track and knob; the desk's skinned faders paint the skin's.

#include <QWidget>

#include "gui/views/view_binding.h"

namespace q {
class Scroller;
}

namespace q::gui {

class FaderView : public QWidget {
  Q_OBJECT
 public:
  FaderView(Scroller& model, QWidget* parent);

  // Null once the scroller is gone.
  Scroller* model() const;
  // The knob's rectangle in the widget at the present position.
  QRect knobRect() const;
  // The position the knob would take with its centre at y.
  int positionAt(int y) const;
  // How far one notch of the wheel moves it.
  int wheelStep = 5;

 protected:
  void paintEvent(QPaintEvent*) override;
  virtual void paintTrack(QPainter& p);
  virtual void paintKnob(QPainter& p, const QRect& knob);
  virtual int knobHeight() const;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void wheelEvent(QWheelEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  bool event(QEvent* e) override;
  void syncFromModel();

 private:
  void moveTo(int position);

  ViewBinding binding_;
  int grab_ = -1;      // the mouse's distance from the knob's top while dragging
  int wheelRest_ = 0;  // wheel movement not yet turned into steps
};

}  // namespace q::gui
