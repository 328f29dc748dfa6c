#pragma once
// The text and bar colours cut from the skin's colour strip. Until a skin is
// loaded they hold the colours of the default skin: amber channel numbers and
// white levels on a dark strip, green bars, red and blue for the times graph.

namespace q {

struct SkinColors {
  int SkinBackColor = 0x303030;   // background of the secondary windows
  int LabelColor = 0xFFC040;      // channel numbers of the live display
  int ValueColor = 0xFFFFFF;      // level texts of the live display
  int BarColor = 0x40E040;        // bars of the live display
  int TimesUpColor = 0xE04040;    // up bar of the times graph
  int TimesDownColor = 0x4080FF;  // down bar of the times graph
};

}  // namespace q
