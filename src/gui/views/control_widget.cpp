#include "gui/views/control_widget.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMouseEvent>

namespace q::gui {

void ControlWidget::mousePressEvent(QMouseEvent* e) {
  if (Control* c = control()) mouse_.press(*c, *e);
}

void ControlWidget::mouseReleaseEvent(QMouseEvent* e) {
  if (Control* c = control()) mouse_.release(*c, *e, *this);
}

void ControlWidget::mouseDoubleClickEvent(QMouseEvent* e) {
  if (Control* c = control()) mouse_.doubleClick(*c, *e);
}

void ControlWidget::mouseMoveEvent(QMouseEvent* e) {
  if (Control* c = control(); c && c->onMouseMove) mouse_.move(*c, *e);
}

void ControlWidget::dragEnterEvent(QDragEnterEvent* e) {
  if (!droppedFile(e->mimeData()).empty()) e->acceptProposedAction();
}

void ControlWidget::dropEvent(QDropEvent* e) {
  const std::string path = droppedFile(e->mimeData());
  Control* c = control();
  if (path.empty() || !c) return;
  c->drop(path, dropButton(*e));
  e->acceptProposedAction();
}

}  // namespace q::gui
