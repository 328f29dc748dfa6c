#pragma once
// A button or lamp of the desk: the general picture button over the skin. The
// skin under it is its unlit face, and it shows the picture its control names
// (`imgGo`, `Led_On2`, `led_ON` ...) over it; a long key writes its words on it.

#include "engine/look/desk_layout.h"
#include "gui/desk/desk_context.h"
#include "gui/views/picture_button.h"

namespace q::gui {

class ImageButton : public PictureButton {
  Q_OBJECT
 public:
  // model may be null: the face is then drawn and nothing else happens.
  ImageButton(DeskContext& ctx, Control* model, const look::DeskItem& item, QWidget* parent);

 protected:
  void paintFace(QPainter& p) override;

 private:
  DeskContext& ctx_;
  const look::DeskItem& item_;
};

}  // namespace q::gui
