// Canals, the channels panel: 32 faders in a row, each with its channel
// number above, its level in percent and a flash key below, and the sixteen
// page keys along the bottom. The faders wear the track of the desk's first
// strip and its first knob, so the panel reads as a wing of the desk.

#include "gui/windows/window_builders.h"

#include <QMouseEvent>
#include <QPainter>

#include "engine/core/console.h"
#include "engine/look/desk_layout.h"
#include "engine/views/channels_panel.h"
#include "gui/desk/desk_context.h"
#include "gui/desk/fader_widget.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// Places in twips.
constexpr int kMargin = 120;
constexpr int kPitch = 420;  // from one fader to the next
constexpr int kFaderWidth = look::kStripTrackWidth * 15;
constexpr int kFaderHeight = look::kStripTrackHeight * 15;
constexpr int kNumberTop = 90;
constexpr int kLevelTop = 330;
constexpr int kFaderTop = 600;
constexpr int kFlashTop = kFaderTop + kFaderHeight + 90;
constexpr int kPageTop = kFlashTop + 480;
constexpr int kWidth = 2 * kMargin + (Canals::kFaders - 1) * kPitch + kFaderWidth;
constexpr int kPagePitch = (kWidth - 2 * kMargin) / Canals::kPages;
constexpr int kHeight = kPageTop + 375 + 300 + kMargin;

// A flash key: dark at rest, the skin's pressed flash picture while held.
class FlashKey : public PictureButton {
 public:
  FlashKey(Lamp& model, Source source) : PictureButton(&model, std::move(source), nullptr) {}

 protected:
  void paintFace(QPainter& p) override {
    const QPixmap held = held_ ? source_("imgFLASH", size()) : QPixmap();
    if (!held.isNull()) return p.drawPixmap(rect(), held);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(held_ ? QColor(0xFF, 0xB4, 0x20) : QColor(0x2A, 0x2F, 0x37));
    p.setPen(QColor(0x55, 0x5D, 0x6A));
    p.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
  }
  void mousePressEvent(QMouseEvent* e) override {
    held_ = true;
    update();
    PictureButton::mousePressEvent(e);
  }
  void mouseReleaseEvent(QMouseEvent* e) override {
    held_ = false;
    update();
    PictureButton::mouseReleaseEvent(e);
  }

 private:
  bool held_ = false;
};

// A page key: an unlit well, or the skin's lit selector.
class PageKey : public PictureButton {
 public:
  PageKey(Lamp& model, Source source) : PictureButton(&model, std::move(source), nullptr) {}

 protected:
  void paintFace(QPainter& p) override {
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(0x1A, 0x1D, 0x22));
    p.setPen(QColor(0x55, 0x5D, 0x6A));
    p.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), 4, 4);
    PictureButton::paintFace(p);
  }
};

LabelView* caption(Label& model, QColor colour, bool bold = false) {
  auto* l = new LabelView(&model, nullptr);
  l->foreground = colour;
  l->alignment = Qt::AlignCenter;
  l->setProperty("fontBold", bold);
  return l;
}
}  // namespace

FormView* buildChannelsWindow(WindowHost& host, Window& model) {
  auto& panel = dynamic_cast<Canals&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(kWidth, kHeight);
  DeskContext& ctx = host.ctx();
  Console& c = host.console();
  PictureButton::Source skin = [&ctx](const std::string& name, QSize size) {
    return ctx.sheet.picture(name, size);
  };
  // Every fader takes the track under the desk's first strip.
  const look::DeskItem* strip = look::findItem(indexed("Fader", 3));
  const look::PixelRect track =
      strip ? strip->rect : look::PixelRect{0, 0, look::kStripTrackWidth, look::kStripTrackHeight};
  const QColor numbers = DeskContext::colour(c.colors.LabelColor);
  const QColor levels = DeskContext::colour(c.look.levelTextColor);

  for (int i = 0; i < Canals::kFaders; ++i) {
    const int left = kMargin + i * kPitch;
    const int around = left - (kPitch - kFaderWidth) / 2;
    view->at(caption(panel.Slabel(i), numbers, true), {around, kNumberTop, kPitch, 240});
    view->at(caption(panel.SLevel(i), levels), {around, kLevelTop, kPitch, 240});
    view->at(new FaderWidget(ctx, panel.Fader(i), track, look::knobRect(1), nullptr),
             {left, kFaderTop, kFaderWidth, kFaderHeight});
    view->at(new FlashKey(panel.Flash(i), skin), {left + 15, kFlashTop, 300, 315});
  }
  for (int k = 0; k < Canals::kPages; ++k) {
    const int left = kMargin + k * kPagePitch;
    view->at(new PageKey(panel.Pagina(k), skin),
             {left + (kPagePitch - 390) / 2, kPageTop, 390, 375});
    view->at(caption(panel.Label1(k), QColor(0xB8, 0xBE, 0xC8)),
             {left, kPageTop + 405, kPagePitch, 240});
  }
  return view;
}

}  // namespace q::gui
