#pragma once
// Canals, the channels panel: 32 faders over the column under edit, 32
// channels a page, sixteen pages for the 512 channels. The panel shows what
// the table held when it last came to the front or changed page; it does not
// follow changes made elsewhere meanwhile, but a fader moved in between
// writes at once to whatever column is under edit then.

#include <array>
#include <cstdint>

#include "engine/controls/window.h"

namespace q {

class Console;

class Canals : public Window {
 public:
  static constexpr int kFaders = 32;
  static constexpr int kPages = 16;

  explicit Canals(Console& c);

  Scroller& Fader(int i) { return *faders_.at(i); }
  Label& SLevel(int i) { return *levels_.at(i); }
  Label& Slabel(int i) { return *numbers_.at(i); }
  Lamp& Flash(int i) { return *flashes_.at(i); }
  Lamp& Pagina(int k) { return *pages_.at(k); }
  Label& Label1(int k) { return *pageCaptions_.at(k); }

  // Takes the faders and the title from the table, writing nothing back.
  void Refresca();
  // Fader i moved to the position it now has.
  void faderChange(int i);
  // A page button pressed: page k shows channels 32k+1 .. 32k+32.
  void pageClick(int k);
  void flashDown(int i, MouseButton b);
  void flashUp(int i, MouseButton b);
  // Takes the skin's looks: the strips' track and first knob, the secondary windows' background.
  void SkinMe();

  // Channel number of the first fader less one: 0, 32 .. 480.
  int16_t pageBase() const { return pageBase_; }
  // The one position a left flash press remembers, for all faders of the panel.
  uint8_t flashByte() const { return flashByte_; }

 private:
  void refresh(bool everyFader);

  Console& c_;
  int16_t pageBase_ = 0;
  uint8_t flashByte_ = 0;
  std::array<Scroller*, kFaders> faders_{};
  std::array<Label*, kFaders> levels_{};
  std::array<Label*, kFaders> numbers_{};
  std::array<Lamp*, kFaders> flashes_{};
  std::array<Lamp*, kPages> pages_{};
  std::array<Label*, kPages> pageCaptions_{};
};

}  // namespace q
