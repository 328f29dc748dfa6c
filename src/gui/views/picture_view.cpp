#include "gui/views/picture_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "engine/controls/picture.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

namespace {
QColor colour(int rgb) { return QColor::fromRgb(QRgb(0xFF000000u | unsigned(rgb))); }
}  // namespace

PictureView::PictureView(Picture& model, QWidget* parent) : QWidget(parent) {
  setObjectName(QString::fromStdString(model.name()));
  setAttribute(Qt::WA_OpaquePaintEvent);
  binding_.bind(&model, [this] {
    ++refreshes_;
    syncFromModel();
  });
  syncFromModel();
}

Picture* PictureView::model() const { return binding_.as<Picture>(); }

void PictureView::syncFromModel() {
  Picture* m = model();
  if (!m) return;
  setVisible(m->visible());
  setEnabled(m->enabled());
  pacedUpdate(this);
}

// The picture's units per pixel; the picture is drawn to keep its proportions.
void PictureView::takeScale() {
  Picture* m = model();
  if (m && m->width > 0 && width() > 0) mouse_.setUnitsPerPixel(double(m->width) / width());
}

void PictureView::resizeEvent(QResizeEvent*) { takeScale(); }

void PictureView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  Picture* m = model();
  p.fillRect(rect(), m ? colour(m->backColor) : QColor(Qt::black));
  if (!m || m->width <= 0 || m->height <= 0) return;
  p.setRenderHint(QPainter::Antialiasing);
  const double sx = double(width()) / m->width;
  const double sy = double(height()) / m->height;
  for (const DrawItem& it : m->items()) {
    switch (it.kind) {
      case DrawItem::Kind::Text:
        p.setPen(colour(it.color));
        p.drawText(QPointF(it.x * sx, it.y * sy + p.fontMetrics().ascent()),
                   QString::fromStdString(it.text));
        break;
      case DrawItem::Kind::Box: {
        const QRectF box = QRectF(it.x * sx, it.y * sy, it.w * sx, it.h * sy).normalized();
        if (it.filled)
          p.fillRect(box, colour(it.color));
        else {
          p.setPen(colour(it.color));
          p.drawRect(box);
        }
        break;
      }
      case DrawItem::Kind::Line:
        p.setPen(QPen(colour(it.color), std::max(1.0, sx)));
        p.drawLine(QPointF(it.x * sx, it.y * sy), QPointF((it.x + it.w) * sx, (it.y + it.h) * sy));
        break;
    }
  }
}

void PictureView::mousePressEvent(QMouseEvent* e) {
  if (Picture* m = model()) mouse_.press(*m, *e);
}

void PictureView::mouseReleaseEvent(QMouseEvent* e) {
  if (Picture* m = model()) mouse_.release(*m, *e, *this);
}

void PictureView::mouseMoveEvent(QMouseEvent* e) {
  if (Picture* m = model()) mouse_.move(*m, *e);
}

}  // namespace q::gui
