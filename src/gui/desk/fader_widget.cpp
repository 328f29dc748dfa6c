#include "gui/desk/fader_widget.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "engine/controls/scroller.h"

namespace q::gui {

FaderWidget::FaderWidget(DeskContext& ctx, Scroller& model, look::PixelRect track,
                         look::PixelRect defaultKnob, QWidget* parent)
    : FaderView(model, parent), ctx_(ctx), track_(track), defaultKnob_(defaultKnob) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

int FaderWidget::knobHeight() const {
  return std::max(1, int(std::lround(look::kKnobHeight * double(height()) / track_.height)));
}

void FaderWidget::paintTrack(QPainter& p) { ctx_.paintBackground(p, track_); }

void FaderWidget::paintKnob(QPainter& p, const QRect& k) {
  look::PixelRect knob = model() ? SkinSheet::pictureRect(model()->knobPicture) : look::PixelRect{};
  if (knob.width == 0) knob = defaultKnob_;
  p.drawPixmap(k.topLeft(), ctx_.sheet.cut(knob, k.size()));
}

}  // namespace q::gui
