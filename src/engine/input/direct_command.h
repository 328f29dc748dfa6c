#pragma once
// The direct command line: the text box `Direct` on the main window. The
// operator types a channel list, a letter and a two-character level, and
// presses Enter; the levels go into the column of ChanTable that is selected
// (EditColumn): Stage, Prog or a submaster's recorded levels.
//
//   1a50        channel 1 at 50 %  (127)
//   1+3+5a99    channels 1, 3, 5 at 99 %
//   1/10aff     channels 1 to 10 at full ("ff", "FF" or "aa"; "a0" is 0)
//   7s10  7d10  channel 7 up / down by 10 %, stopping at full / zero
//   a25  sff    a capital or leading letter repeats the last "a" list
//
// A command that fails stops where it stands: what it wrote stays written,
// but the output is not told (MixDirty stays as it was). A level that is no
// number empties the box; any other fault (a channel of 0 or above 512, a
// number above 32767, an empty list) keeps the text there to be corrected.

#include <functional>

namespace q {

class Console;
class Lamp;
class TextBox;

class DirectCommand {
 public:
  explicit DirectCommand(Console& c);

  // Enter pressed in Direct: runs the text as a command.
  void enter();

  TextBox& Direct;
  // The key beside the box that opens the on-screen keypad.
  Lamp& CmdDirect;

 private:
  void run();
  Console& c_;
};

}  // namespace q
