#include "engine/views/channels_panel.h"

#include "engine/core/console.h"
#include "engine/submasters/submaster_bank.h"
#include "engine/views/edit_column.h"

namespace q {

namespace {
constexpr const char* kLitPage = "led_ON";
// The knob every fader of the panel wears, whatever the strips wear.
constexpr const char* kPanelKnob = "Knob(1)";
}  // namespace

Canals::Canals(Console& c) : Window(c.registry, "Canals"), c_(c) {
  for (int i = 0; i < kFaders; ++i) {
    faders_[i] = &add<Scroller>(indexed("Fader", i), 0, 255, 255);
    levels_[i] = &add<Label>(indexed("SLevel", i));
    numbers_[i] = &add<Label>(indexed("Slabel", i), std::to_string(i + 1));
    flashes_[i] = &add<Lamp>(indexed("Flash", i));
    faders_[i]->onChange = [this, i] { faderChange(i); };
    flashes_[i]->onMouseDown = [this, i](const MouseEvent& e) { flashDown(i, e.button); };
    flashes_[i]->onMouseUp = [this, i](const MouseEvent& e) { flashUp(i, e.button); };
  }
  for (int k = 0; k < kPages; ++k) {
    pages_[k] = &add<Lamp>(indexed("Pagina", k), k == 0 ? kLitPage : "");
    pageCaptions_[k] = &add<Label>(indexed("Label1", k),
                                   std::to_string(32 * k + 1) + "/" + std::to_string(32 * k + 32));
    pages_[k]->onClick = [this, k] { pageClick(k); };
  }
  // The load: first page, fresh faders, pages beyond the channels in use hidden.
  pageBase_ = 0;
  refresh(true);
  for (int k = kPages - 1; k >= 1; --k)
    if (c_.v.MaxChans < 32 * k + 1) {
      Pagina(k).setVisible(false);
      Label1(k).setVisible(false);
    }
  SkinMe();
  onActivate = [this] { Refresca(); };
}

void Canals::Refresca() { refresh(false); }

// The first refresh after the load shows every fader's percentage, also
// where a fader already stood at its level and so did not move.
void Canals::refresh(bool everyFader) {
  Variables& v = c_.v;
  v.ChannelsRefreshing = kTrue;
  for (int i = 0; i < kFaders; ++i) {
    const int position = 255 - editLevel(v, pageBase_ + i + 1);
    if (Fader(i).position() == position) {
      if (everyFader) faderChange(i);
    } else {
      Fader(i).setPosition(position);
    }
  }
  setCaption("Channels " + editColumnTitle(v.EditColumn));
  v.ChannelsRefreshing = kFalse;
}

void Canals::faderChange(int i) {
  const int position = Fader(i).position();
  SLevel(i).setCaption(SubmasterBank::percentText(position));
  Variables& v = c_.v;
  // The panel's own repositioning is not the operator's move.
  if (v.ChannelsRefreshing != kFalse) return;
  storeEditLevel(v, pageBase_ + i + 1, uint8_t(255 - position));
  v.MixDirty = kTrue;
}

void Canals::pageClick(int k) {
  if (k < 0 || k >= kPages) return;
  pageBase_ = int16_t(32 * k);
  for (int p = 0; p < kPages; ++p) Pagina(p).setPicture("");
  Pagina(k).setPicture(kLitPage);
  for (int i = 0; i < kFaders; ++i) Slabel(i).setCaption(std::to_string(pageBase_ + i + 1));
  Refresca();
}

// Left: full while held, back to where it was on release. Right: toggles
// between closed and full. The remembered position is one for the panel.
void Canals::flashDown(int i, MouseButton b) {
  Scroller& f = Fader(i);
  if (b == MouseButton::Left) {
    flashByte_ = uint8_t(f.position());
    f.setPosition(0);
  } else if (b == MouseButton::Right) {
    f.setPosition(f.position() < 255 ? 255 : 0);
  }
  c_.v.MixDirty = kTrue;
}

void Canals::flashUp(int i, MouseButton b) {
  if (b == MouseButton::Left) Fader(i).setPosition(flashByte_);
  c_.v.MixDirty = kTrue;
}

void Canals::SkinMe() {
  for (Scroller* f : faders_) f->knobPicture = kPanelKnob;
  backColor = c_.colors.SkinBackColor;
}

}  // namespace q
