#include "gui/desk/fader_widget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "engine/controls/scroller.h"

namespace q::gui {

namespace {
constexpr int kWheelStep = 5;  // one notch moves as far as one key step of the keyboard desk
}

FaderWidget::FaderWidget(DeskContext& ctx, Scroller& model, look::PixelRect track,
                         look::PixelRect defaultKnob, QWidget* parent)
    : QWidget(parent), ctx_(ctx), model_(model), track_(track), defaultKnob_(defaultKnob) {
  setObjectName(QString::fromStdString(model.name()));
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  binding_.bind(&model_, [this] { syncFromModel(); });
  syncFromModel();
}

void FaderWidget::syncFromModel() {
  setVisible(model_.visible());
  setEnabled(model_.enabled());
  update();
}

int FaderWidget::knobHeight() const {
  return std::max(1, int(std::lround(look::kKnobHeight * double(height()) / track_.height)));
}

QRect FaderWidget::knobRect() const {
  const int kh = knobHeight();
  const int span = model_.max() - model_.min();
  const int travel = height() - kh;
  const int top =
      span > 0 ? int(std::lround(double(model_.position() - model_.min()) * travel / span)) : 0;
  return QRect(0, top, width(), kh);
}

int FaderWidget::positionAt(int y) const {
  const int kh = knobHeight();
  const int travel = std::max(1, height() - kh);
  const double t = double(y - kh / 2) / travel;
  const int span = model_.max() - model_.min();
  return std::clamp(model_.min() + int(std::lround(t * span)), model_.min(), model_.max());
}

void FaderWidget::moveTo(int position) {
  position = std::clamp(position, model_.min(), model_.max());
  // The scroller runs the console's change handling; the repaint comes back through the view.
  model_.setPosition(position);
}

void FaderWidget::paintEvent(QPaintEvent*) {
  QPainter p(this);
  ctx_.paintBackground(p, track_);
  const QRect k = knobRect();
  look::PixelRect knob = SkinSheet::pictureRect(model_.knobPicture);
  if (knob.width == 0) knob = defaultKnob_;
  p.drawPixmap(k.topLeft(), ctx_.sheet.cut(knob, k.size()));
  if (hasFocus()) {
    p.setPen(QPen(QColor(255, 180, 32, 160), 1));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

void FaderWidget::mousePressEvent(QMouseEvent* e) {
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

void FaderWidget::mouseMoveEvent(QMouseEvent* e) {
  if (grab_ < 0) return;
  const int y = int(e->position().y());
  moveTo(positionAt(y - grab_ + knobHeight() / 2));
}

void FaderWidget::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() == Qt::LeftButton) grab_ = -1;
}

void FaderWidget::wheelEvent(QWheelEvent* e) {
  wheelRest_ += e->angleDelta().y();
  const int notches = wheelRest_ / 120;
  wheelRest_ %= 120;
  // Wheel away from the operator raises the level, which is towards position 0.
  if (notches) moveTo(model_.position() - notches * kWheelStep);
  e->accept();
}

void FaderWidget::keyPressEvent(QKeyEvent* e) {
  const int step = e->modifiers() & Qt::ShiftModifier ? 10 : 1;
  switch (e->key()) {
    case Qt::Key_Up:
      moveTo(model_.position() - step);
      break;
    case Qt::Key_Down:
      moveTo(model_.position() + step);
      break;
    default:
      QWidget::keyPressEvent(e);
      return;
  }
  e->accept();
}

bool FaderWidget::event(QEvent* e) {
  if (e->type() == QEvent::ToolTip) {
    auto* help = static_cast<QHelpEvent*>(e);
    if (model_.toolTip.empty())
      QToolTip::hideText();
    else
      QToolTip::showText(help->globalPos(), QString::fromStdString(model_.toolTip), this);
    return true;
  }
  return QWidget::event(e);
}

}  // namespace q::gui
