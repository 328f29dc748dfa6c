#pragma once
// The player and chaser actions a cue carries (columns 523..534): start or
// stop a player or chaser, set a player's volume and balance, a chaser's level
// and speed. They run at the wait-up tick of a fade, and at once when a cue is
// recalled straight to Stage.

namespace q {

class Console;

// Runs the actions of the row, each only if its cell asks for it, in the
// console's fixed order: player 1 and 2 actions, chaser 1 and 2 actions,
// the two volumes, the two balances, chaser 1 level and speed, chaser 2
// level and speed.
void runCueActions(Console& c, long row);

}  // namespace q
