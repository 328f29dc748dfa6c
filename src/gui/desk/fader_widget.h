#pragma once
// A fader of the desk: the general fader, painted from the skin. Its track is
// the skin under it and its knob the picture its scroller names.

#include "engine/look/skin_pieces.h"
#include "gui/desk/desk_context.h"
#include "gui/views/fader_view.h"

namespace q::gui {

class FaderWidget : public FaderView {
  Q_OBJECT
 public:
  // track: where the fader lies on the skin; defaultKnob: its knob when the
  // scroller names none.
  FaderWidget(DeskContext& ctx, Scroller& model, look::PixelRect track, look::PixelRect defaultKnob,
              QWidget* parent);

 protected:
  void paintTrack(QPainter& p) override;
  void paintKnob(QPainter& p, const QRect& knob) override;
  int knobHeight() const override;

 private:
  DeskContext& ctx_;
  look::PixelRect track_;
  look::PixelRect defaultKnob_;
};

}  // namespace q::gui
