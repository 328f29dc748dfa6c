#include "gui/desk/image_button.h"

#include <QPainter>

#include "engine/core/console.h"

namespace q::gui {

ImageButton::ImageButton(DeskContext& ctx, Control* model, const look::DeskItem& item,
                         QWidget* parent)
    : PictureButton(
          model,
          [&ctx](const std::string& picture, QSize size) {
            return ctx.sheet.picture(picture, size);
          },
          parent),
      ctx_(ctx),
      item_(item) {
  setObjectName(QString::fromStdString(item.control));
  // A lamp only shows; what lies under it takes the mouse.
  if (item.kind == look::ItemKind::Lamp) setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageButton::paintFace(QPainter& p) {
  PictureButton::paintFace(p);
  // Long keys are one picture for many keys: their words are written over it.
  if (item_.face == look::Face::LongKey && !item_.caption.empty()) {
    p.setFont(ctx_.font(item_.fontPx, item_.bold));
    p.setPen(DeskContext::colour(ctx_.console.look.buttonTextColor));
    p.drawText(rect().adjusted(0, 2, 0, 0), Qt::AlignCenter, QString::fromStdString(item_.caption));
  }
}

}  // namespace q::gui
