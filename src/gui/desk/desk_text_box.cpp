#include "gui/desk/desk_text_box.h"

namespace q::gui {

DeskTextBox::DeskTextBox(DeskContext& ctx, TextBox& model, const look::DeskItem& item,
                         QWidget* parent)
    : TextBoxView(model, parent), ctx_(ctx), item_(item) {
  setObjectName(QString::fromStdString(item.control));
  setAlignment(item.align == look::Align::Center ? Qt::AlignCenter : Qt::AlignLeft);
  applyStyle();
}

QFont DeskTextBox::baseFont() const { return ctx_.font(item_.fontPx, false, item_.fontPx <= 9); }

}  // namespace q::gui
