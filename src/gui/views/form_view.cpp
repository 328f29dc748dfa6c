#include "gui/views/form_view.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "engine/controls/window.h"
#include "gui/desk/desk_context.h"
#include "gui/views/cell_grid_view.h"
#include "gui/views/control_events.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// 1440 twips an inch at 96 pixels an inch.
constexpr double kTwipsPerPixel = 15.0;
constexpr QRgb kDefaultBack = 0xFF15171B;
}  // namespace

FormView::FormView(WindowHost& host, Window& model) : host_(host), model_(&model) {
  setObjectName(QString::fromStdString(model.name()));
  setAttribute(Qt::WA_DeleteOnClose, false);
  QPalette pal = palette();
  pal.setColor(QPalette::Window, QColor(kDefaultBack));
  pal.setColor(QPalette::WindowText, QColor(0xD8, 0xDC, 0xE4));
  pal.setColor(QPalette::Base, QColor(0x0B, 0x0D, 0x10));
  pal.setColor(QPalette::Text, QColor(0xE8, 0xEC, 0xF2));
  pal.setColor(QPalette::Button, QColor(0x2A, 0x2F, 0x37));
  pal.setColor(QPalette::ButtonText, QColor(0xE8, 0xEC, 0xF2));
  pal.setColor(QPalette::Highlight, QColor(0xFF, 0xB4, 0x20));
  pal.setColor(QPalette::HighlightedText, Qt::black);
  setPalette(pal);
  setAutoFillBackground(false);
}

double FormView::scale() const { return host_.ctx().zoom() / kTwipsPerPixel; }

int FormView::px(double twips) const { return int(std::lround(twips * scale())); }

QRect FormView::pixels(const Twips& t) const {
  // Edges are rounded, not sizes, so neighbours stay touching at every zoom.
  const int x0 = px(t.left), y0 = px(t.top);
  return QRect(x0, y0, std::max(1, px(t.left + t.width) - x0),
               std::max(1, px(t.top + t.height) - y0));
}

void FormView::setSizeTwips(int width, int height) {
  widthTwips_ = width;
  heightTwips_ = height;
  applySize();
}

void FormView::setResizable(bool resizable) {
  resizable_ = resizable;
  applySize();
}

void FormView::applySize() {
  sizing_ = true;
  if (resizable_) {
    setMinimumSize(px(1200), px(900));
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    resize(px(widthTwips_), px(heightTwips_));
  } else {
    setFixedSize(px(widthTwips_), px(heightTwips_));
  }
  sizing_ = false;
}

void FormView::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  if (!resizable_ || sizing_) return;
  widthTwips_ = int(std::lround(width() / scale()));
  heightTwips_ = int(std::lround(height() / scale()));
  if (onResized) onResized(widthTwips_, heightTwips_);
}

QFont FormView::windowFont(double points, bool bold) const {
  QFont f(QStringLiteral("DejaVu Sans"));
  f.setStyleHint(QFont::SansSerif);
  // A point is 20 twips.
  f.setPixelSize(std::max(6, int(std::lround(points * 20 * scale()))));
  f.setBold(bold);
  return f;
}

void FormView::put(QWidget* view, const Twips& place) {
  view->setGeometry(pixels(place));
  // The window's type, or the size a view asked for (property "fontPoints").
  const QVariant points = view->property("fontPoints");
  view->setFont(
      windowFont(points.isValid() ? points.toDouble() : 8, view->property("fontBold").toBool()));
  // Views that hand points to the console hand them in twips.
  if (auto* b = qobject_cast<PictureButton*>(view)) b->mouse().setUnitsPerPixel(1 / scale());
  if (auto* l = qobject_cast<LabelView*>(view)) l->mouse().setUnitsPerPixel(1 / scale());
  if (auto* g = qobject_cast<CellGridView*>(view)) g->setScale(scale());
}

void FormView::moveTo(QWidget* view, Twips place) {
  for (Placed& p : placed_)
    if (p.view == view) p.place = place;
  put(view, place);
}

void FormView::relayout() {
  applySize();
  std::erase_if(placed_, [](const Placed& p) { return p.view.isNull(); });
  for (const Placed& p : placed_) put(p.view, p.place);
  update();
}

void FormView::closeEvent(QCloseEvent* e) {
  // The console closes the window when its model says so; the Qt window follows.
  e->ignore();
  if (model_) model_->closeBox();
}

void FormView::keyPressEvent(QKeyEvent* e) {
  const int code = model_ ? keyAscii(*e) : 0;
  if (code && model_->form().onKeyPress) {
    model_->form().keyPress(code);
    e->accept();
    return;
  }
  QWidget::keyPressEvent(e);
}

void FormView::changeEvent(QEvent* e) {
  QWidget::changeEvent(e);
  if (e->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  // The operator brought the window to the front: its activation handling runs.
  if (std::exchange(expectActivation_, false)) return;
  if (model_ && model_->isVisible()) model_->activate();
}

void FormView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const int back = model_ ? model_->backColor : -1;
  p.fillRect(rect(), back >= 0 ? DeskContext::colour(back) : QColor(kDefaultBack));
}

}  // namespace q::gui
