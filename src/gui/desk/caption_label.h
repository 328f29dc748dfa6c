#pragma once
// A label of the desk: the console writes its caption (a strip's level and
// function word, a chaser's step, the row in Prog) and the label paints it on
// the skin in the colour the skin gives its kind. Mouse events and drops go
// to the label's control; a label whose control takes none lets them through
// to what lies under it.

#include <QWidget>

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"

namespace q {
class Label;
}

namespace q::gui {

class CaptionLabel : public QWidget {
  Q_OBJECT
 public:
  CaptionLabel(DeskContext& ctx, Label* model, const look::DeskItem& item, QWidget* parent);

  QString text() const;

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseReleaseEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void dragEnterEvent(QDragEnterEvent* e) override;
  void dropEvent(QDropEvent* e) override;

 private:
  QColor textColour() const;
  void syncFromModel();

  DeskContext& ctx_;
  Label* model_;
  const look::DeskItem& item_;
  ViewBinding binding_;
};

}  // namespace q::gui
