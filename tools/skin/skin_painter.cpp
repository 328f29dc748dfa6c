#include "skin_painter.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

namespace skin {

using q::look::Align;

QRectF toRect(const q::look::PixelRect& r) { return QRectF(r.left, r.top, r.width, r.height); }

namespace {

QColor mix(const QColor& a, const QColor& b, double t) {
  return QColor::fromRgbF(float(a.redF() * (1 - t) + b.redF() * t),
                          float(a.greenF() * (1 - t) + b.greenF() * t),
                          float(a.blueF() * (1 - t) + b.blueF() * t));
}

void roundedFill(QPainter& p, const QRectF& r, double radius, const QBrush& fill,
                 const QColor& edge) {
  p.setPen(edge.isValid() ? QPen(edge, 1) : Qt::NoPen);
  p.setBrush(fill);
  p.drawRoundedRect(r.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

QLinearGradient vertical(const QRectF& r, const QColor& top, const QColor& bottom) {
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  g.setColorAt(0, top);
  g.setColorAt(1, bottom);
  return g;
}

// A soft glow around a lamp, so a lit lamp reads from the back of the room.
void glow(QPainter& p, const QPointF& c, double radius, const QColor& colour) {
  QRadialGradient g(c, radius);
  QColor inner = colour;
  inner.setAlphaF(0.55f);
  QColor outer = colour;
  outer.setAlphaF(0);
  g.setColorAt(0, inner);
  g.setColorAt(1, outer);
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawEllipse(c, radius, radius);
}

}  // namespace

void fillPanel(QPainter& p, const QRectF& r) {
  roundedFill(p, r, 4, vertical(r, palette::panelLight, palette::panel), palette::panelEdge);
  p.setPen(QPen(mix(palette::panelLight, Qt::white, 0.08), 1));
  p.drawLine(QPointF(r.left() + 4, r.top() + 1.5), QPointF(r.right() - 4, r.top() + 1.5));
}

void drawText(QPainter& p, const QRectF& r, const QString& text, int px, bool bold, Align align,
              const QColor& colour) {
  QFont f("DejaVu Sans");
  f.setPixelSize(px);
  f.setBold(bold);
  f.setLetterSpacing(QFont::AbsoluteSpacing, px <= 9 && bold ? 0.8 : 0.2);
  p.setFont(f);
  p.setPen(colour);
  int flags = Qt::AlignVCenter | Qt::TextDontClip;
  flags |= align == Align::Left    ? Qt::AlignLeft
           : align == Align::Right ? Qt::AlignRight
                                   : Qt::AlignHCenter;
  p.drawText(r, flags, text);
}

void drawWell(QPainter& p, const QRectF& r) {
  roundedFill(p, r, 2, palette::well, palette::wellEdge);
}

void drawLongKey(QPainter& p, const QRectF& r, KeyState s) {
  const QRectF body = r.adjusted(1, 1, -1, -1);
  switch (s) {
    case KeyState::Unlit:
      roundedFill(p, body, 3, vertical(body, palette::keyTop, palette::keyBottom),
                  palette::keyEdge);
      p.setPen(QPen(mix(palette::keyTop, Qt::white, 0.15), 1));
      p.drawLine(QPointF(body.left() + 3, body.top() + 1.5),
                 QPointF(body.right() - 3, body.top() + 1.5));
      break;
    case KeyState::Pressed:
      roundedFill(p, body, 3, vertical(body, palette::keyBottom, palette::keyTop),
                  mix(palette::keyEdge, Qt::white, 0.35));
      break;
    case KeyState::Held:
    case KeyState::Lit: {
      const QColor lamp = s == KeyState::Lit ? palette::green : palette::amber;
      roundedFill(
          p, body, 3,
          vertical(body, mix(palette::keyTop, lamp, 0.28), mix(palette::keyBottom, lamp, 0.12)),
          mix(palette::keyEdge, lamp, 0.7));
      const QRectF strip(body.left() + 6, body.top() + 3, body.width() - 12, 3);
      p.setPen(Qt::NoPen);
      p.setBrush(lamp);
      p.drawRoundedRect(strip, 1.5, 1.5);
      break;
    }
  }
}

void drawGoKey(QPainter& p, const QRectF& r, bool lit) {
  const QRectF body = r.adjusted(1, 1, -1, -1);
  const QColor text = lit ? QColor(0x04, 0x2A, 0x10) : QColor(0x6C, 0xE6, 0x96);
  if (lit)
    roundedFill(p, body, 4, vertical(body, QColor(0x6B, 0xF5, 0x9A), QColor(0x1F, 0xB8, 0x52)),
                QColor(0xA8, 0xFF, 0xC4));
  else
    roundedFill(p, body, 4, vertical(body, QColor(0x16, 0x4A, 0x2A), QColor(0x0C, 0x2E, 0x19)),
                QColor(0x2C, 0x8A, 0x4E));
  drawText(p, body, "GO", 17, true, Align::Center, text);
}

void drawSquareKey(QPainter& p, const QRectF& r, const QString& text, const QColor& hue, bool lit) {
  const QRectF body = r.adjusted(1, 1, -1, -1);
  if (lit)
    roundedFill(p, body, 3, vertical(body, mix(hue, Qt::white, 0.25), hue),
                mix(hue, Qt::white, 0.5));
  else
    roundedFill(p, body, 3,
                vertical(body, mix(palette::keyTop, hue, 0.22), mix(palette::keyBottom, hue, 0.12)),
                mix(palette::keyEdge, hue, 0.45));
  drawText(p, body, text, 8, true, Align::Center, lit ? Qt::white : mix(hue, Qt::white, 0.2));
}

void drawSelector(QPainter& p, const QRectF& r, bool lit) {
  const QRectF body = r.adjusted(2, 2, -2, -2);
  roundedFill(p, body, 3, vertical(body, palette::keyTop, palette::keyBottom), palette::keyEdge);
  const QPointF c = body.center();
  if (lit) glow(p, c, 10, palette::amber);
  p.setPen(QPen(lit ? palette::amber.lighter(130) : QColor(0x15, 0x10, 0x06), 1));
  p.setBrush(lit ? palette::amber : QColor(0x3A, 0x2A, 0x0C));
  p.drawEllipse(c, 4.5, 4.5);
}

void drawFlashKey(QPainter& p, const QRectF& r, bool pressed) {
  const QRectF body = r.adjusted(1, 1, -1, -1);
  if (pressed)
    roundedFill(p, body, 3, vertical(body, QColor(0xFF, 0xFF, 0xFF), QColor(0xC8, 0xD6, 0xEC)),
                QColor(0xFF, 0xFF, 0xFF));
  else
    roundedFill(p, body, 3, vertical(body, QColor(0x4A, 0x51, 0x5C), QColor(0x30, 0x35, 0x3D)),
                QColor(0x5C, 0x64, 0x70));
}

void drawLedBar(QPainter& p, const QRectF& r, bool lit) {
  const QRectF bar = r.adjusted(3, 2, -3, -2);
  if (lit) glow(p, bar.center(), 16, palette::green);
  p.setPen(Qt::NoPen);
  p.setBrush(lit ? palette::green : QColor(0x12, 0x2A, 0x19));
  p.drawRoundedRect(bar, 2, 2);
}

void drawSlot(QPainter& p, const QRectF& r, int knobHeight) {
  const double w = r.width() > 25 ? 5 : 4;
  const QRectF groove(r.center().x() - w / 2, r.top() + knobHeight / 2.0 - 4, w,
                      r.height() - knobHeight + 8);
  roundedFill(p, groove, w / 2, palette::groove, QColor(0x30, 0x35, 0x3D));
}

void drawScale(QPainter& p, const QRectF& slot, int knobHeight, int side, bool numbers) {
  const double travel = slot.height() - knobHeight;
  for (int i = 0; i <= 10; ++i) {
    const double y = slot.top() + knobHeight / 2.0 + travel * i / 10.0;
    const bool major = i % 5 == 0;
    const double len = major ? 4 : 2.5;
    const double x0 = side < 0 ? slot.left() - 1 - len : slot.right() + 1;
    p.setPen(QPen(major ? palette::tickMajor : palette::tick, 1));
    p.drawLine(QPointF(x0, y + 0.5), QPointF(x0 + len, y + 0.5));
    if (numbers && major) {
      const QString t = QString::number(10 - i);
      const QRectF box(side < 0 ? x0 - 14 : x0 + len + 1, y - 5, 13, 10);
      drawText(p, box, t, 7, false, side < 0 ? Align::Right : Align::Left, palette::caption);
    }
  }
}

void drawStripKnob(QPainter& p, const QRectF& r, int colour, int shape) {
  static const QColor hues[] = {QColor(0xA8, 0xAF, 0xBA), palette::red, palette::blue,
                                palette::green, palette::amber};
  const QColor hue = hues[colour % 5];
  p.save();
  p.setClipRect(r);
  // The knob sits on the slot: panel colour with the groove running through.
  p.fillRect(r, palette::panel);
  drawSlot(p, QRectF(r.left(), r.top() - 200, r.width(), r.height() + 400), 0);
  const double inset = shape == 4 ? 3 : 0.5;
  const QRectF cap = r.adjusted(inset, 4, -inset, -4);
  const QColor body = mix(QColor(0x24, 0x28, 0x2E), hue, shape == 2 ? 0.5 : 0.18);
  roundedFill(p, cap, 2.5, vertical(cap, mix(body, Qt::white, 0.22), mix(body, Qt::black, 0.35)),
              mix(body, Qt::white, 0.3));
  p.setPen(Qt::NoPen);
  if (shape == 3) {  // ribbed: grip lines above and below the mark
    p.setBrush(mix(body, Qt::black, 0.45));
    for (int i = 0; i < 4; ++i) {
      p.drawRect(QRectF(cap.left() + 3, cap.top() + 4 + 3 * i, cap.width() - 6, 1));
      p.drawRect(QRectF(cap.left() + 3, cap.bottom() - 5 - 3 * i, cap.width() - 6, 1));
    }
  }
  // The mark: where the level is read.
  const QColor mark = shape == 1 || shape == 3 ? hue.lighter(115) : QColor(0xF4, 0xF6, 0xFA);
  p.setBrush(mark);
  p.drawRect(QRectF(cap.left() + 1.5, r.center().y() - 1, cap.width() - 3, 2));
  p.restore();
}

void drawMasterKnob(QPainter& p, const QRectF& r, const QColor& cap, const QColor& line) {
  p.save();
  p.setClipRect(r);
  p.fillRect(r, palette::panel);
  drawSlot(p, QRectF(r.left(), r.top() - 200, r.width(), r.height() + 400), 0);
  const QRectF c = r.adjusted(0.5, 3, -0.5, -3);
  roundedFill(p, c, 3, vertical(c, mix(cap, Qt::white, 0.3), mix(cap, Qt::black, 0.35)),
              mix(cap, Qt::white, 0.4));
  p.setPen(Qt::NoPen);
  p.setBrush(mix(cap, Qt::black, 0.3));
  for (int i = 0; i < 3; ++i) {
    p.drawRect(QRectF(c.left() + 4, c.top() + 5 + 3 * i, c.width() - 8, 1));
    p.drawRect(QRectF(c.left() + 4, c.bottom() - 6 - 3 * i, c.width() - 8, 1));
  }
  p.setBrush(line);
  p.drawRect(QRectF(c.left() + 1.5, r.center().y() - 1, c.width() - 3, 2));
  p.restore();
}

}  // namespace skin
