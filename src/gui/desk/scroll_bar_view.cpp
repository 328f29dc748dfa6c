#include "gui/desk/scroll_bar_view.h"

#include <QSignalBlocker>

#include "engine/controls/scroller.h"

namespace q::gui {

ScrollBarView::ScrollBarView(Scroller& model, QWidget* parent)
    : QScrollBar(Qt::Horizontal, parent), model_(model) {
  setObjectName(QString::fromStdString(model.name()));
  setFocusPolicy(Qt::NoFocus);
  setStyleSheet(
      "QScrollBar:horizontal{background:#08090b;border:1px solid #2a2f37;border-radius:2px;"
      "height:10px;margin:0 12px}"
      "QScrollBar::handle:horizontal{background:#3a414c;border-radius:2px;min-width:24px}"
      "QScrollBar::handle:horizontal:hover{background:#56606e}"
      "QScrollBar::add-line:horizontal,QScrollBar::sub-line:horizontal{background:#1f232a;"
      "width:11px;subcontrol-origin:margin}"
      "QScrollBar::add-line:horizontal{subcontrol-position:right}"
      "QScrollBar::sub-line:horizontal{subcontrol-position:left}");
  connect(this, &QScrollBar::valueChanged, this, [this](int v) {
    if (v != model_.position()) model_.setPosition(v);
  });
  binding_.bind(&model_, [this] { syncFromModel(); });
  syncFromModel();
}

void ScrollBarView::syncFromModel() {
  const QSignalBlocker block(this);
  setRange(model_.min(), model_.max());
  setPageStep(model_.largeChange);
  setSingleStep(model_.smallChange);
  setValue(model_.position());
  setEnabled(model_.enabled());
  setVisible(model_.visible());
}

}  // namespace q::gui
