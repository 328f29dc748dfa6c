#pragma once
// A widget that stands for one control: it keeps the binding that lets go
// of the control when the control is gone, and hands the control its
// presses, releases, clicks, double clicks, moves and file drops. What they
// mean is the console's business. Labels, picture buttons and cell grids
// are made on it.

#include <QWidget>

#include "engine/controls/control.h"
#include "gui/views/control_events.h"
#include "gui/views/view_binding.h"

namespace q::gui {

class ControlWidget : public QWidget {
  Q_OBJECT
 public:
  explicit ControlWidget(QWidget* parent, double unitsPerPixel = 1)
      : QWidget(parent), mouse_(unitsPerPixel) {}

  // The control, or null once it is gone.
  Control* control() const { return binding_.control(); }
  MouseForwarder& mouse() { return mouse_; }

 protected:
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;
  // The button a drop reports to the control.
  virtual MouseButton dropButton(const QDropEvent&) const { return MouseButton::Left; }

  ViewBinding binding_;
  MouseForwarder mouse_;
};

}  // namespace q::gui
