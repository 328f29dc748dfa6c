#include "gui/views/label_view.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMouseEvent>
#include <QPainter>

#include "engine/controls/label.h"

namespace q::gui {

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
  setToolTip(QString::fromStdString(m->toolTip));
  update();
}

void LabelView::paintEvent(QPaintEvent*) {
  QPainter p(this);
  if (background.isValid()) p.fillRect(rect(), background);
  QFont f = textFont();
  f.setUnderline(underline);
  p.setFont(f);
  p.setPen(isEnabled() ? textColour() : textColour().darker(170));
  const int pad = padding();
  const int wrap = wordWrap ? int(Qt::TextWordWrap) : 0;
  p.drawText(rect().adjusted(pad, 0, -pad, 0), int(alignment) | wrap, text());
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
