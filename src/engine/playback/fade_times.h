#pragma once
// The four time boxes of the coming fade: wait up, up time, wait down, down
// time, all in ticks of 100 ms. They belong to the cue in Prog: a load fills
// them, a save stores them. The transport reads them afresh on every tick,
// so a time typed during a fade changes that fade at once; the cue itself
// changes only when it is saved again.

#include <string>

#include "engine/controls/textbox.h"

namespace q {

class Console;

// The four times as numbers, as one tick or one paint reads them.
struct Times {
  double waitUp = 0, up = 0, waitDown = 0, down = 0;
};

class FadeTimes {
 public:
  explicit FadeTimes(Console& c);

  TextBox& WupTime;
  TextBox& UpTime;
  TextBox& WdownTime;
  TextBox& DownTime;

  // A box as a number: an empty or non-numeric text counts as 0.
  static double timeOf(const TextBox& box);
  Times read() const;

  // Enter in a box: a text that is no number, or a negative one, becomes
  // "0"; then the times graph is repainted.
  void enter(TextBox& box);

 private:
  Console& c_;
};

}  // namespace q
