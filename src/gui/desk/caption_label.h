#pragma once
// A label of the desk: the console writes its caption (a strip's level and
// function word, a chaser's step, the row in Prog) and the label paints it on
// the skin in the colour the skin gives its kind. Mouse events and drops go
// to the label's control; a label whose control takes none lets them through
// to what lies under it.

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"
#include "gui/views/label_view.h"

namespace q::gui {

class CaptionLabel : public LabelView {
  Q_OBJECT
 public:
  CaptionLabel(DeskContext& ctx, Label* model, const look::DeskItem& item, QWidget* parent);

  // A label the layout names without a control shows the layout's own words.
  QString text() const override;

 protected:
  QColor textColour() const override;
  QFont textFont() const override;
  int padding() const override;

 private:
  DeskContext& ctx_;
  const look::DeskItem& item_;
};

}  // namespace q::gui
