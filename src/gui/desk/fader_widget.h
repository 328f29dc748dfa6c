#pragma once
// A fader: a vertical scroller with range 0..255 whose position 0 is the top.
// It paints its track (the skin under it) and its knob picture, and turns a
// drag, the wheel or an arrow key into a new position of its scroller. A
// position set by the console only repaints it: nothing is fed back.

#include <QWidget>

#include "engine/look/skin_pieces.h"
#include "gui/desk/desk_context.h"

namespace q {
class Scroller;
}

namespace q::gui {

class FaderWidget : public QWidget {
  Q_OBJECT
 public:
  // track: where the fader lies on the skin; defaultKnob: its knob when the
  // scroller names none.
  FaderWidget(DeskContext& ctx, Scroller& model, look::PixelRect track, look::PixelRect defaultKnob,
              QWidget* parent);

  Scroller& model() { return model_; }
  // The knob's rectangle in the widget at the present position.
  QRect knobRect() const;
  // The position the knob would take with its centre at y.
  int positionAt(int y) const;

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void wheelEvent(QWheelEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  bool event(QEvent* e) override;

 private:
  int knobHeight() const;
  void moveTo(int position);
  void syncFromModel();

  DeskContext& ctx_;
  Scroller& model_;
  look::PixelRect track_;
  look::PixelRect defaultKnob_;
  ViewBinding binding_;
  int grab_ = -1;      // the mouse's distance from the knob's top while dragging
  int wheelRest_ = 0;  // wheel movement not yet turned into steps
};

}  // namespace q::gui
