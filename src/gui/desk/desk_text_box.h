#pragma once
// A text box of the desk: the general text box in the desk's type, at the
// size its place on the layout gives, scaled with the desk.

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"
#include "gui/views/text_box_view.h"

namespace q::gui {

class DeskTextBox : public TextBoxView {
  Q_OBJECT
 public:
  DeskTextBox(DeskContext& ctx, TextBox& model, const look::DeskItem& item, QWidget* parent);

 protected:
  QFont baseFont() const override;
  double pixelsPerPoint() const override { return 4.0 / 3.0 * ctx_.zoom(); }

 private:
  DeskContext& ctx_;
  const look::DeskItem& item_;
};

}  // namespace q::gui
