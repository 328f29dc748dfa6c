#pragma once
// A big cue list for the measurements: every cue with all 512 channels set
// (levels that differ from cue to cue and channel to channel), its four
// times at 2.5 s and a name. In order the cues are numbered 1, 2, 3 ...;
// shuffled, their numbers come in a mixed order with a few equal, so a sort
// has work to do.

#include <string>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"

inline void fillFullList(q::Console& c, int cues, bool shuffled) {
  q::Variables& v = c.v;
  v.MaxChans = 512;
  for (int row = 1; row <= cues; ++row) {
    const auto r = int16_t(row);
    const int number = shuffled ? (row * 389) % cues + 1 : row;
    v.Cues.setCell(r, q::cue::kNumber, std::to_string(number));
    v.Cues.setCell(r, q::cue::kFunction, std::string("1"));
    for (int col = q::cue::kWaitUp; col <= q::cue::kDownTime; ++col)
      v.Cues.setCell(r, int16_t(col), std::string("25"));
    v.Cues.setCell(r, q::cue::kName, "Cue number " + std::to_string(row));
    for (int ch = 1; ch <= q::kChannels; ++ch)
      v.Cues.setCell(r, int16_t(ch), uint8_t((row * 7 + ch * 13) % 255 + 1));
  }
  v.CueCount = int16_t(cues);
}
