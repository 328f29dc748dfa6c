#include "gui/desk/image_button.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QUrl>

#include "engine/controls/lamp.h"
#include "engine/core/console.h"

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

std::string droppedFile(const QMimeData* data) {
  if (!data || !data->hasUrls()) return {};
  for (const QUrl& u : data->urls())
    if (u.isLocalFile()) return u.toLocalFile().toStdString();
  return {};
}

ImageButton::ImageButton(DeskContext& ctx, Control* model, const look::DeskItem& item,
                         QWidget* parent)
    : QWidget(parent), ctx_(ctx), model_(model), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  const bool takesMouse =
      model && (model->onMouseDown || model->onMouseUp || model->onClick || model->onDblClick);
  if (item.kind == look::ItemKind::Lamp || !takesMouse)
    setAttribute(Qt::WA_TransparentForMouseEvents);
  setAcceptDrops(model && model->onDrop);
  if (takesMouse) setCursor(Qt::PointingHandCursor);
  binding_.bind(model_, [this] { syncFromModel(); });
  syncFromModel();
}

void ImageButton::syncFromModel() {
  if (!model_) return;
  setVisible(model_->visible());
  setEnabled(model_->enabled());
  if (auto* lamp = dynamic_cast<Lamp*>(model_)) setToolTip(QString::fromStdString(lamp->toolTip));
  update();
}

void ImageButton::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (auto* lamp = dynamic_cast<Lamp*>(model_); lamp && !lamp->picture().empty()) {
    const QPixmap pm = ctx_.sheet.picture(lamp->picture(), size());
    if (!pm.isNull()) p.drawPixmap(0, 0, pm);
  }
  // Long keys are one picture for many keys: their words are written over it.
  if (item_.face == look::Face::LongKey && !item_.caption.empty()) {
    p.setFont(ctx_.font(item_.fontPx, item_.bold));
    p.setPen(DeskContext::colour(ctx_.console.look.buttonTextColor));
    p.drawText(rect().adjusted(0, 2, 0, 0), Qt::AlignCenter, QString::fromStdString(item_.caption));
  }
}

void ImageButton::mousePressEvent(QMouseEvent* e) {
  if (int b = consoleButton(e->button())) model_->mouseDown(MouseButton(b));
}

void ImageButton::mouseReleaseEvent(QMouseEvent* e) {
  const int b = consoleButton(e->button());
  if (!b) return;
  model_->mouseUp(MouseButton(b));
  if (e->button() == Qt::LeftButton && rect().contains(e->position().toPoint())) model_->click();
}

void ImageButton::mouseDoubleClickEvent(QMouseEvent* e) {
  const int b = consoleButton(e->button());
  if (!b) return;
  model_->dblClick();
  // The second press of a double click still goes down, so every release has its press.
  model_->mouseDown(MouseButton(b));
}

void ImageButton::dragEnterEvent(QDragEnterEvent* e) {
  if (!droppedFile(e->mimeData()).empty()) e->acceptProposedAction();
}

void ImageButton::dropEvent(QDropEvent* e) {
  const std::string path = droppedFile(e->mimeData());
  if (path.empty()) return;
  const int b = consoleButton(Qt::MouseButton(int(e->buttons())));
  model_->drop(path, b ? MouseButton(b) : MouseButton::Left);
  e->acceptProposedAction();
}

}  // namespace q::gui
