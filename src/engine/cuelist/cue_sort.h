#pragma once
// "Sort by Cue number": the cue list ordered by rising number, exactly as
// the console has always sorted it, quirks included:
// - the rows are first copied below the list (rows N+1..2N), then the
//   greatest number left among the copies is taken, pass after pass, and
//   put in the list from its last row upwards;
// - only columns 1..521 move: auto-go, player and chaser settings (522..534)
//   stay on the row position where they were;
// - of equal numbers the first found goes highest, so their order reverses;
// - a number of 0 or below is never taken: its row in the list ends empty
//   and the cue stays behind in the copy rows, which keep whatever wasn't taken;
// - the loops run on the shared counters I and J, which keep their last values.

#include "engine/core/variables.h"

namespace q {

// The longest list the copy rows leave room for.
constexpr int kMaxSortedCues = INT16_MAX / 2;

// False, changing nothing, when the list is longer than kMaxSortedCues.
bool SortCues(Variables& v);

}  // namespace q
