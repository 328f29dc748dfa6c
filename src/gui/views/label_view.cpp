#include "gui/views/label_view.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMouseEvent>
#include <QPainter>

#include "engine/controls/label.h"
#include "gui/views/repaint_pacer.h"

namespace q::gui {

namespace {
// Where a line of text of this size starts in the area, as drawText places
// it (to the fraction of a pixel, so the cached text lands where it always did).
QPointF placed(const QRect& area, const QSizeF& size, Qt::Alignment a) {
  double x = area.x(), y = area.y();
  if (a & Qt::AlignRight) x += area.width() - size.width();
  if (a & Qt::AlignHCenter) x += (area.width() - size.width()) / 2;
  if (a & Qt::AlignBottom) y += area.height() - size.height();
  if (a & Qt::AlignVCenter) y += (area.height() - size.height()) / 2;
  return {x, y};
}
}  // namespace

LabelView::LabelView(Label* model, QWidget* parent) : ControlWidget(parent) {
  if (model) setObjectName(QString::fromStdString(model->name()));
  const bool takesMouse = model && model->takesMouse();
  if (!takesMouse) setAttribute(Qt::WA_TransparentForMouseEvents);
  setAcceptDrops(model && model->onDrop);
  binding_.bind(model, [this] { syncFromModel(); });
  syncFromModel();
}

Label* LabelView::model() const { return binding_.as<Label>(); }

QString LabelView::text() const {
  return model() ? QString::fromStdString(model()->caption()) : QString();
}

void LabelView::syncFromModel() {
  Label* m = model();
  if (!m) return;
  setVisible(m->visible());
  setEnabled(m->enabled());
  // A chaser's step label changes 40 times a second; its tip never does,
  // and setting a tip costs an event.
  const QString tip = QString::fromStdString(m->toolTip);
  if (tip != toolTip()) setToolTip(tip);
  pacedUpdate(this);
}

void LabelView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (background.isValid()) p.fillRect(rect(), background);
  QFont f = textFont();
  f.setUnderline(underline);
  p.setFont(f);
  p.setPen(isEnabled() ? textColour() : textColour().darker(170));
  const int pad = padding();
  const QRect area = rect().adjusted(pad, 0, -pad, 0);
  const QString shown = text();
  if (wordWrap || shown.contains(u'\n')) {
    p.drawText(area, int(alignment) | (wordWrap ? int(Qt::TextWordWrap) : 0), shown);
    return;
  }
  const QStaticText& laid = texts_.get(shown, f);
  p.drawStaticText(placed(area, laid.size(), alignment), laid);
}

FrameView::FrameView(Label& model, QWidget* parent) : QGroupBox(parent) {
  setObjectName(QString::fromStdString(model.name()));
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void FrameView::syncFromModel() {
  auto* m = binding_.as<Label>();
  if (!m) return;
  setTitle(QString::fromStdString(m->caption()));
  setVisible(m->visible());
  setEnabled(m->enabled());
}

ButtonView::ButtonView(Label& model, QWidget* parent) : QPushButton(parent) {
  setObjectName(QString::fromStdString(model.name()));
  setAutoDefault(false);
  // A command button gives its control the events of a real press, in order.
  connect(this, &QPushButton::pressed, this, [this] {
    if (auto* m = binding_.as<Label>()) m->mouseDown(MouseButton::Left);
  });
  connect(this, &QPushButton::released, this, [this] {
    if (auto* m = binding_.as<Label>()) m->mouseUp(MouseButton::Left);
  });
  connect(this, &QPushButton::clicked, this, [this] {
    if (auto* m = binding_.as<Label>()) m->click();
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void ButtonView::syncFromModel() {
  auto* m = binding_.as<Label>();
  if (!m) return;
  setText(QString::fromStdString(m->caption()));
  setVisible(m->visible());
  setEnabled(m->enabled());
  setToolTip(QString::fromStdString(m->toolTip));
}

}  // namespace q::gui
