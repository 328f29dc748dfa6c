#include "gui/desk/live_display_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "gui/views/control_events.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

namespace {
// The live display's units: slots of 25 across, texts 16 high, bars rising
// from 14 by a tenth of the level.
constexpr double kTextHeight = 16;
constexpr double kBarBase = 14;
constexpr double kFullBar = 25.5;
constexpr double kSlotWidth = 25;

bool isNumber(const DrawItem& it) { return it.y < kTextHeight; }
}  // namespace

LiveDisplayView::LiveDisplayView(DeskContext& ctx, Picture& model, const look::DeskItem& item,
                                 QWidget* parent)
    : QWidget(parent), ctx_(ctx), model_(model), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setAttribute(Qt::WA_OpaquePaintEvent);
  binding_.bind(&model_, [this] { modelChanged(); });
  shown_ = model_.items();
}

const LiveDisplayView::Scale& LiveDisplayView::scale() {
  // Made again only when the strip's size or the desk's zoom changed: the
  // mixer asks for it at every mix.
  if (scale_.size == size() && scale_.zoom == ctx_.zoom()) return scale_;
  Scale& s = scale_;
  s.size = size();
  s.zoom = ctx_.zoom();
  s.sx = double(width()) / item_.rect.width;
  s.sy = double(height()) / item_.rect.height;
  // Bars are drawn on the whole height of the strip: the base at the bottom, full at the top.
  s.bar = (height() - 2) / kFullBar;
  // Channel numbers (the upper line) bold, levels plain: three digits fit a slot with room between.
  s.number = ctx_.font(11, true, true);
  s.level = ctx_.font(11, false, true);
  return s;
}

const QStaticText& LiveDisplayView::laidOut(const DrawItem& it, const Scale& s) {
  return isNumber(it) ? numbers_.get(it.text, s.number) : levels_.get(it.text, s.level);
}

QRect LiveDisplayView::areaOf(const DrawItem& it, const Scale& s) {
  QRectF r;
  switch (it.kind) {
    case DrawItem::Kind::Text: {
      // Three digits fit a slot: their cell is the slot. A longer text is
      // measured where paintItem places it, left-aligned, centred in the
      // slot's height.
      if (it.text.size() <= 3) {
        r = QRectF(it.x * s.sx, it.y * s.sy, kSlotWidth * s.sx, kTextHeight * s.sy);
        break;
      }
      const QSizeF size = laidOut(it, s).size();
      r = QRectF(QPointF(it.x * s.sx, it.y * s.sy + (kTextHeight * s.sy - size.height()) / 2),
                 size);
      break;
    }
    case DrawItem::Kind::Box:
    case DrawItem::Kind::Line:
      // A bar spans its slot from its base to its top; a line its two ends.
      r = QRectF(it.x * s.sx, 0, std::abs(it.w) * s.sx, height()).normalized();
      if (it.w < 0) r.moveLeft((it.x + it.w) * s.sx);
      break;
  }
  // Glyphs and pens reach a pixel beyond the box they are placed in.
  return r.toAlignedRect().adjusted(-2, -2, 2, 2);
}

void LiveDisplayView::modelChanged() {
  ++refreshes_;
  const std::vector<DrawItem>& now = model_.items();
  const Scale& s = scale();
  QRegion dirty;
  const size_t n = std::max(now.size(), shown_.size());
  for (size_t i = 0; i < n; ++i) {
    const bool had = i < shown_.size(), has = i < now.size();
    if (had && has && shown_[i] == now[i]) continue;
    if (had) dirty += areaOf(shown_[i], s);
    if (has) dirty += areaOf(now[i], s);
  }
  shown_ = now;
  pacedUpdate(this, dirty);
}

void LiveDisplayView::paintItem(QPainter& p, const DrawItem& it, const Scale& s) {
  const QColor colour = DeskContext::colour(it.color);
  switch (it.kind) {
    case DrawItem::Kind::Text: {
      const QStaticText& text = laidOut(it, s);
      // Left-aligned and centred in its slot's height.
      const double top = it.y * s.sy + (kTextHeight * s.sy - text.size().height()) / 2;
      p.setFont(isNumber(it) ? s.number : s.level);
      p.setPen(colour);
      p.drawStaticText(QPointF(it.x * s.sx, top), text);
      break;
    }
    case DrawItem::Kind::Box: {
      auto barY = [&](double u) { return height() - 1 - (kBarBase - u) * s.bar; };
      const double y0 = barY(it.y), y1 = barY(it.y + it.h);
      p.fillRect(
          QRectF(it.x * s.sx, std::min(y0, y1), std::max(1.0, it.w * s.sx - 1), std::abs(y1 - y0)),
          colour);
      break;
    }
    case DrawItem::Kind::Line:
      p.setPen(colour);
      p.drawLine(QPointF(it.x * s.sx, it.y * s.sy),
                 QPointF((it.x + it.w) * s.sx, (it.y + it.h) * s.sy));
      break;
  }
}

void LiveDisplayView::paintEvent(QPaintEvent* e) {
  QPainter p(this);
  ctx_.paintBackground(p, item_.rect, e->rect());
  const Scale& s = scale();
  // Only the items over the changed cells are drawn; the painter's clip keeps
  // the rest of the strip as it was.
  const QRect clip = e->rect();
  for (const DrawItem& it : model_.items())
    if (areaOf(it, s).intersects(clip)) paintItem(p, it, s);
}

void LiveDisplayView::mousePressEvent(QMouseEvent* e) {
  if (int b = consoleButton(e->button())) model_.mouseDown(MouseButton(b));
}

void LiveDisplayView::mouseReleaseEvent(QMouseEvent* e) {
  if (int b = consoleButton(e->button())) model_.mouseUp(MouseButton(b));
}

}  // namespace q::gui
