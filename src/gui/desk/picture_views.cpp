#include "gui/desk/picture_views.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "engine/controls/picture.h"
#include "engine/core/console.h"
#include "gui/desk/image_button.h"
#include "gui/views/control_events.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

namespace {
QColor itemColour(const DrawItem& it) { return DeskContext::colour(it.color); }
}  // namespace

TimesGraphView::TimesGraphView(DeskContext& ctx, Picture& model, LineShape* posLine,
                               const look::DeskItem& item, QWidget* parent)
    : QWidget(parent), ctx_(ctx), model_(model), posLine_(posLine), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  binding_.bind(&model_, [this] { pacedUpdate(this); });
  lineBinding_.bind(posLine_, [this] { pacedUpdate(this); });
}

void TimesGraphView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  ctx_.paintBackground(p, item_.rect);
  const double scaleWidth = std::max(1e-6, double(ctx_.console.timesGraph.scaleWidth()));
  const double sx = width() / scaleWidth;
  const double sy = double(height()) / TimesGraph::kScaleHeight;
  for (const DrawItem& it : model_.items()) {
    if (it.kind != DrawItem::Kind::Box) continue;
    QRectF r(it.x * sx, it.y * sy, it.w * sx, it.h * sy);
    r = r.normalized();
    // A fade of no time is a step: it shows as a hairline at its moment.
    if (r.width() < 1) r.setWidth(1);
    p.fillRect(r, itemColour(it));
  }
  if (posLine_) {
    const double x = posLine_->x1 * sx;
    p.setPen(QPen(QColor(255, 255, 255, 220), std::max(1.0, ctx_.zoom())));
    p.drawLine(QPointF(x, posLine_->y1 * sy), QPointF(x, height()));
  }
}

}  // namespace q::gui
