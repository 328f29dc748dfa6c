#include "gui/desk/desk_context.h"

#include <QWidget>
#include <cmath>

#include "engine/look/desk_layout.h"

namespace q::gui {

void DeskContext::setZoom(double z) {
  if (z == zoom_) return;
  zoom_ = z;
  sheet.clearCache();
}

QRect DeskContext::place(const look::PixelRect& r) const {
  // Edges are rounded, not sizes, so neighbours stay touching at every zoom.
  const int x0 = int(std::lround(r.left * zoom_));
  const int y0 = int(std::lround(r.top * zoom_));
  const int x1 = int(std::lround(r.right() * zoom_));
  const int y1 = int(std::lround(r.bottom() * zoom_));
  return QRect(x0, y0, std::max(1, x1 - x0), std::max(1, y1 - y0));
}

QSize DeskContext::scaled(int w, int h) const {
  return QSize(std::max(1, int(std::lround(w * zoom_))), std::max(1, int(std::lround(h * zoom_))));
}

QPixmap DeskContext::deskPicture() const {
  return sheet.cut({0, 0, look::kDeskWidth, look::kDeskHeight},
                   scaled(look::kDeskWidth, look::kDeskHeight));
}

void DeskContext::paintBackground(QPainter& p, const look::PixelRect& r) const {
  const QRect source = place(r);
  p.drawPixmap(QRect(QPoint(0, 0), source.size()), deskPicture(), source);
}

void DeskContext::paintBackground(QPainter& p, const look::PixelRect& r, const QRect& part) const {
  const QRect source = place(r);
  const QRect within = part.intersected(QRect(QPoint(0, 0), source.size()));
  p.drawPixmap(within, deskPicture(), within.translated(source.topLeft()));
}

QFont DeskContext::font(double px, bool bold, bool condensed) const {
  QFont f(condensed ? QStringLiteral("DejaVu Sans Condensed") : QStringLiteral("DejaVu Sans"));
  f.setStyleHint(QFont::SansSerif);
  f.setPixelSize(std::max(6, int(std::lround(px * zoom_))));
  f.setBold(bold);
  return f;
}

void DeskContext::fillBack(QWidget* w, int rgb) {
  if (rgb < 0) return;
  QPalette pal = w->palette();
  pal.setColor(QPalette::Window, colour(rgb));
  w->setPalette(pal);
  w->setAutoFillBackground(true);
}

}  // namespace q::gui
