#include "gui/views/fader_view.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "engine/controls/scroller.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

FaderView::FaderView(Scroller& model, QWidget* parent) : QWidget(parent) {
  setObjectName(QString::fromStdString(model.name()));
  setFocusPolicy(Qt::StrongFocus);
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

Scroller* FaderView::model() const { return binding_.as<Scroller>(); }

void FaderView::syncFromModel() {
  Scroller* m = model();
  if (!m) return;
  setVisible(m->visible());
  setEnabled(m->enabled());
  pacedUpdate(this);
}

int FaderView::knobHeight() const { return std::max(8, height() / 8); }

QRect FaderView::knobRect() const {
  Scroller* m = model();
  const int kh = knobHeight();
  if (!m) return QRect(0, 0, width(), kh);
  const int span = m->max() - m->min();
  const int travel = height() - kh;
  const int top = span > 0 ? int(std::lround(double(m->position() - m->min()) * travel / span)) : 0;
  return QRect(0, top, width(), kh);
}

int FaderView::positionAt(int y) const {
  Scroller* m = model();
  if (!m) return 0;
  const int kh = knobHeight();
  const int travel = std::max(1, height() - kh);
  const double t = double(y - kh / 2) / travel;
  const int span = m->max() - m->min();
  return std::clamp(m->min() + int(std::lround(t * span)), m->min(), m->max());
}

void FaderView::moveTo(int position) {
  Scroller* m = model();
  if (!m) return;
  // The scroller runs the console's change handling; the repaint comes back through the view.
  m->setPosition(std::clamp(position, m->min(), m->max()));
}

void FaderView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  paintTrack(p);
  paintKnob(p, knobRect());
  if (hasFocus()) {
    p.setPen(QPen(QColor(255, 180, 32, 160), 1));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

void FaderView::paintTrack(QPainter& p) {
  p.fillRect(rect(), QColor(0x0B, 0x0C, 0x0F));
  const int x = width() / 2;
  p.fillRect(QRect(x - 2, 4, 4, height() - 8), QColor(0x2A, 0x2F, 0x37));
}

void FaderView::paintKnob(QPainter& p, const QRect& knob) {
  p.setRenderHint(QPainter::Antialiasing);
  p.setBrush(QColor(0x56, 0x60, 0x6E));
  p.setPen(QColor(0x8A, 0x93, 0xA0));
  p.drawRoundedRect(knob.adjusted(1, 1, -1, -1), 3, 3);
  p.setPen(QColor(0xFF, 0xB4, 0x20));
  p.drawLine(knob.left() + 3, knob.center().y(), knob.right() - 3, knob.center().y());
}

void FaderView::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return QWidget::mousePressEvent(e);
  const int y = int(e->position().y());
  const QRect k = knobRect();
  if (k.contains(0, y)) {
    grab_ = y - k.top();
  } else {
    // A press on the track takes the knob there at once, as a hand would.
    grab_ = k.height() / 2;
    moveTo(positionAt(y));
  }
}

void FaderView::mouseMoveEvent(QMouseEvent* e) {
  if (grab_ < 0) return;
  const int y = int(e->position().y());
  moveTo(positionAt(y - grab_ + knobHeight() / 2));
}

void FaderView::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() == Qt::LeftButton) grab_ = -1;
}

void FaderView::wheelEvent(QWheelEvent* e) {
  wheelRest_ += e->angleDelta().y();
  const int notches = wheelRest_ / 120;
  wheelRest_ %= 120;
  // Wheel away from the operator raises the level, which is towards position 0.
  if (notches && model()) moveTo(model()->position() - notches * wheelStep);
  e->accept();
}

void FaderView::keyPressEvent(QKeyEvent* e) {
  Scroller* m = model();
  const int step = e->modifiers() & Qt::ShiftModifier ? 10 : 1;
  if (!m || (e->key() != Qt::Key_Up && e->key() != Qt::Key_Down)) {
    QWidget::keyPressEvent(e);
    return;
  }
  moveTo(m->position() + (e->key() == Qt::Key_Up ? -step : step));
  e->accept();
}

bool FaderView::event(QEvent* e) {
  if (e->type() == QEvent::ToolTip) {
    auto* help = static_cast<QHelpEvent*>(e);
    Scroller* m = model();
    if (!m || m->toolTip.empty())
      QToolTip::hideText();
    else
      QToolTip::showText(help->globalPos(), QString::fromStdString(m->toolTip), this);
    return true;
  }
  return QWidget::event(e);
}

}  // namespace q::gui
