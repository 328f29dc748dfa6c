#include "gui/desk/desk_surface.h"

#include <QPaintEvent>
#include <QPainter>

#include "engine/core/console.h"
#include "gui/desk/caption_label.h"
#include "gui/desk/desk_player.h"
#include "gui/desk/desk_text_box.h"
#include "gui/desk/fader_widget.h"
#include "gui/desk/image_button.h"
#include "gui/desk/live_display_view.h"
#include "gui/desk/picture_views.h"
#include "gui/views/scroll_bar_view.h"

namespace q::gui {

namespace {
look::PixelRect defaultKnob(const std::string& control) {
  if (control == "SMaster") return look::kSMasterKnob;
  if (control == "Xfader") return look::kXfaderKnob;
  return look::knobRect(1);
}

// "WMP(1)" gives 1.
int indexOf(const std::string& name) {
  const size_t open = name.find('(');
  return open == std::string::npos ? 0 : std::atoi(name.c_str() + open + 1);
}
}  // namespace

DeskSurface::DeskSurface(DeskContext& ctx, QWidget* parent) : QWidget(parent), ctx_(ctx) {
  setObjectName("Desk");
  setAttribute(Qt::WA_OpaquePaintEvent);
  for (const look::DeskItem& item : look::deskLayout()) {
    if (item.control.empty()) continue;
    if (QWidget* w = build(item)) parts_.emplace_back(w, &item);
  }
  relayout();
}

QWidget* DeskSurface::build(const look::DeskItem& item) {
  Console& c = ctx_.console;
  Control* control = c.registry.find(item.control);
  switch (item.kind) {
    case look::ItemKind::StripFader:
    case look::ItemKind::MasterFader:
      if (auto* s = dynamic_cast<Scroller*>(control))
        return new FaderWidget(ctx_, *s, item.rect, defaultKnob(item.control), this);
      return nullptr;
    case look::ItemKind::Button:
    case look::ItemKind::Lamp:
      return new ImageButton(ctx_, control, item, this);
    case look::ItemKind::Label:
      return new CaptionLabel(ctx_, dynamic_cast<Label*>(control), item, this);
    case look::ItemKind::TextBox:
      if (auto* t = dynamic_cast<TextBox*>(control)) return new DeskTextBox(ctx_, *t, item, this);
      return nullptr;
    case look::ItemKind::Picture:
      if (auto* pic = dynamic_cast<Picture*>(control)) {
        if (item.control == "Picture1") return new LiveDisplayView(ctx_, *pic, item, this);
        return new TimesGraphView(ctx_, *pic, c.registry.find<LineShape>("PosLine"), item, this);
      }
      return nullptr;
    case look::ItemKind::ScrollBar:
      if (auto* s = dynamic_cast<Scroller*>(control)) return new ScrollBarView(*s, this);
      return nullptr;
    case look::ItemKind::Player: {
      const int k = indexOf(item.control) & 1;
      return new PlayerView(ctx_, c.WMP(k), item, this);
    }
    default:
      return nullptr;
  }
}

QWidget* DeskSurface::widgetFor(const std::string& control) const {
  for (const auto& [w, item] : parts_)
    if (item->control == control) return w;
  return nullptr;
}

void DeskSurface::relayout() {
  setFixedSize(ctx_.scaled(look::kDeskWidth, look::kDeskHeight));
  for (const auto& [w, item] : parts_) {
    w->setGeometry(ctx_.place(item->rect));
    if (auto* t = qobject_cast<TextBoxView*>(w)) t->applyStyle();
    w->update();
  }
  update();
}

void DeskSurface::repaintAll() {
  for (const auto& [w, item] : parts_) w->update();
}

void DeskSurface::paintEvent(QPaintEvent* e) {
  QPainter p(this);
  const QPixmap bg = ctx_.deskPicture();
  p.drawPixmap(e->rect(), bg, e->rect());
}

}  // namespace q::gui
