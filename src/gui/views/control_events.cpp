#include "gui/views/control_events.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace q::gui {

int consoleButton(Qt::MouseButton b) {
  switch (b) {
    case Qt::LeftButton:
      return int(MouseButton::Left);
    case Qt::RightButton:
      return int(MouseButton::Right);
    default:
      return 0;
  }
}

int consoleShift(Qt::KeyboardModifiers m) {
  return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
         (m & Qt::AltModifier ? 4 : 0);
}

std::string droppedFile(const QMimeData* data) {
  if (!data || !data->hasUrls()) return {};
  for (const QUrl& url : data->urls())
    if (url.isLocalFile()) return url.toLocalFile().toStdString();
  return {};
}

int keyAscii(const QKeyEvent& e) {
  switch (e.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return 13;
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Tab:
      return 9;
    default:
      break;
  }
  const QString t = e.text();
  if (t.size() != 1) return 0;
  const ushort u = t.at(0).unicode();
  return u >= 32 && u < 0x7F ? u : (u >= 0xA0 && u <= 0xFF ? u : 0);
}

MouseEvent MouseForwarder::event(const QMouseEvent& e, MouseButton button) const {
  const QPointF p = e.position();
  return MouseEvent(button, p.x() * unitsPerPixel_, p.y() * unitsPerPixel_,
                    consoleShift(e.modifiers()));
}

bool MouseForwarder::press(Control& c, const QMouseEvent& e) {
  const int b = consoleButton(e.button());
  if (!b) return false;
  c.mouseDown(event(e, MouseButton(b)));
  return true;
}

void MouseForwarder::release(Control& c, const QMouseEvent& e, const QWidget& over) {
  const int b = consoleButton(e.button());
  if (!b) return;
  c.mouseUp(event(e, MouseButton(b)));
  if (e.button() == Qt::LeftButton && over.rect().contains(e.position().toPoint())) c.click();
}

void MouseForwarder::doubleClick(Control& c, const QMouseEvent& e) {
  const int b = consoleButton(e.button());
  if (!b) return;
  c.dblClick(event(e, MouseButton(b)));
  c.mouseDown(event(e, MouseButton(b)));
}

void MouseForwarder::move(Control& c, const QMouseEvent& e) {
  const Qt::MouseButtons held = e.buttons();
  const MouseButton b = held & Qt::LeftButton    ? MouseButton::Left
                        : held & Qt::RightButton ? MouseButton::Right
                                                 : MouseButton::None;
  c.mouseMove(event(e, b));
}

}  // namespace q::gui
