#include "gui/desk/picture_views.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "engine/controls/picture.h"
#include "engine/core/console.h"
#include "gui/desk/image_button.h"
#include "gui/views/control_events.h"

namespace q::gui {

namespace {
// The live display's units: slots of 25 across, texts 16 high, bars rising
// from 14 by a tenth of the level.
constexpr double kTextHeight = 16;
constexpr double kBarBase = 14;
constexpr double kFullBar = 25.5;

QColor itemColour(const DrawItem& it) { return DeskContext::colour(it.color); }
}  // namespace

LiveDisplayView::LiveDisplayView(DeskContext& ctx, Picture& model, const look::DeskItem& item,
                                 QWidget* parent)
    : QWidget(parent), ctx_(ctx), model_(model), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setAttribute(Qt::WA_OpaquePaintEvent);
  binding_.bind(&model_, [this] {
    ++refreshes_;
    update();
  });
}

void LiveDisplayView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  ctx_.paintBackground(p, item_.rect);
  const double sx = double(width()) / item_.rect.width;
  const double sy = double(height()) / item_.rect.height;
  // Bars are drawn on the whole height of the strip: the base at the bottom, full at the top.
  const double barScale = (height() - 2) / kFullBar;
  auto barY = [&](double u) { return height() - 1 - (kBarBase - u) * barScale; };
  // Channel numbers (the upper line) bold, levels plain: three digits fit a slot with room between.
  const QFont number = ctx_.font(11, true, true);
  const QFont level = ctx_.font(11, false, true);
  if (number != textsFont_[0] || level != textsFont_[1]) {
    texts_.clear();
    textsFont_[0] = number;
    textsFont_[1] = level;
  }
  for (const DrawItem& it : model_.items()) {
    switch (it.kind) {
      case DrawItem::Kind::Text: {
        const bool isNumber = it.y < kTextHeight;
        const QStaticText& text = laidOut(it.text, isNumber ? number : level);
        // Left-aligned and centred in its slot's height.
        const double top = it.y * sy + (kTextHeight * sy - text.size().height()) / 2;
        p.setFont(isNumber ? number : level);
        p.setPen(itemColour(it));
        p.drawStaticText(QPointF(it.x * sx, top), text);
        break;
      }
      case DrawItem::Kind::Box: {
        const double y0 = barY(it.y), y1 = barY(it.y + it.h);
        p.fillRect(
            QRectF(it.x * sx, std::min(y0, y1), std::max(1.0, it.w * sx - 1), std::abs(y1 - y0)),
            itemColour(it));
        break;
      }
      case DrawItem::Kind::Line:
        p.setPen(itemColour(it));
        p.drawLine(QPointF(it.x * sx, it.y * sy), QPointF((it.x + it.w) * sx, (it.y + it.h) * sy));
        break;
    }
  }
}

const QStaticText& LiveDisplayView::laidOut(const std::string& text, const QFont& font) {
  const QString key = QString::fromStdString(text) + (font.bold() ? u'\x1' : u'\x0');
  auto found = texts_.find(key);
  if (found != texts_.end()) return *found;
  QStaticText laid(QString::fromStdString(text));
  laid.setTextFormat(Qt::PlainText);
  laid.setPerformanceHint(QStaticText::AggressiveCaching);
  laid.prepare(QTransform(), font);
  return *texts_.insert(key, laid);
}

void LiveDisplayView::mousePressEvent(QMouseEvent* e) {
  if (int b = consoleButton(e->button())) model_.mouseDown(MouseButton(b));
}

void LiveDisplayView::mouseReleaseEvent(QMouseEvent* e) {
  if (int b = consoleButton(e->button())) model_.mouseUp(MouseButton(b));
}

TimesGraphView::TimesGraphView(DeskContext& ctx, Picture& model, LineShape* posLine,
                               const look::DeskItem& item, QWidget* parent)
    : QWidget(parent), ctx_(ctx), model_(model), posLine_(posLine), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  binding_.bind(&model_, [this] { update(); });
  lineBinding_.bind(posLine_, [this] { update(); });
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
