#include "gui/views/picture_button.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMouseEvent>
#include <QPainter>

#include "engine/controls/lamp.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

PictureButton::PictureButton(Control* model, Source source, QWidget* parent)
    : ControlWidget(parent), source_(std::move(source)) {
  if (model) setObjectName(QString::fromStdString(model->name()));
  const bool takesMouse = model && model->takesMouse();
  if (!takesMouse) setAttribute(Qt::WA_TransparentForMouseEvents);
  if (takesMouse) setCursor(Qt::PointingHandCursor);
  setAcceptDrops(model && model->onDrop);
  binding_.bind(model, [this] { syncFromModel(); });
  syncFromModel();
}

void PictureButton::syncFromModel() {
  Control* c = model();
  if (!c) return;
  setVisible(c->visible());
  setEnabled(c->enabled());
  if (auto* lamp = dynamic_cast<Lamp*>(c);
      lamp && QString::fromStdString(lamp->toolTip) != toolTip())
    setToolTip(QString::fromStdString(lamp->toolTip));
  pacedUpdate(this);
}

void PictureButton::paintEvent(QPaintEvent*) {
  QPainter p(this);
  paintFace(p);
  if (auto* lamp = dynamic_cast<Lamp*>(model()); lamp && lamp->border()) {
    p.setPen(QPen(QColor(0xFF, 0xB4, 0x20), 2));
    p.drawRect(rect().adjusted(1, 1, -1, -1));
  }
}

void PictureButton::paintFace(QPainter& p) {
  auto* lamp = dynamic_cast<Lamp*>(model());
  if (!lamp || lamp->picture().empty() || !source_) return;
  const QPixmap pm = source_(lamp->picture(), size());
  if (!pm.isNull()) p.drawPixmap(rect(), pm);
}

MouseButton PictureButton::dropButton(const QDropEvent& e) const {
  const int b = consoleButton(Qt::MouseButton(int(e.buttons())));
  return b ? MouseButton(b) : MouseButton::Left;
}

}  // namespace q::gui
