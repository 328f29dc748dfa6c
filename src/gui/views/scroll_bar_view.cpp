#include "gui/views/scroll_bar_view.h"

#include <QSignalBlocker>

#include "engine/controls/scroller.h"

namespace q::gui {

namespace {
// The desk's dark bars, in either direction.
QString barStyle(Qt::Orientation o) {
  QString s =
      "QScrollBar:horizontal{background:#08090b;border:1px solid #2a2f37;border-radius:2px;"
      "height:10px;margin:0 12px}"
      "QScrollBar::handle:horizontal{background:#3a414c;border-radius:2px;min-width:24px}"
      "QScrollBar::handle:horizontal:hover{background:#56606e}"
      "QScrollBar::add-line:horizontal,QScrollBar::sub-line:horizontal{background:#1f232a;"
      "width:11px;subcontrol-origin:margin}"
      "QScrollBar::add-line:horizontal{subcontrol-position:right}"
      "QScrollBar::sub-line:horizontal{subcontrol-position:left}";
  if (o == Qt::Horizontal) return s;
  return s.replace("horizontal", "vertical")
      .replace("height:10px;margin:0 12px", "width:10px;margin:12px 0")
      .replace("min-width", "min-height")
      .replace("width:11px", "height:11px")
      .replace("position:right", "position:bottom")
      .replace("position:left", "position:top");
}
}  // namespace

ScrollBarView::ScrollBarView(Scroller& model, QWidget* parent, Qt::Orientation o)
    : QScrollBar(o, parent) {
  setObjectName(QString::fromStdString(model.name()));
  setFocusPolicy(Qt::NoFocus);
  setStyleSheet(barStyle(o));
  connect(this, &QScrollBar::valueChanged, this, [this](int v) {
    auto* m = binding_.as<Scroller>();
    if (m && v != m->position()) m->setPosition(v);
  });
  binding_.bind(&model, [this] { syncFromModel(); });
  syncFromModel();
}

void ScrollBarView::syncFromModel() {
  auto* m = binding_.as<Scroller>();
  if (!m) return;
  const QSignalBlocker block(this);
  setRange(m->min(), m->max());
  setPageStep(m->largeChange);
  setSingleStep(m->smallChange);
  setValue(m->position());
  setEnabled(m->enabled());
  setVisible(m->visible());
}

}  // namespace q::gui
