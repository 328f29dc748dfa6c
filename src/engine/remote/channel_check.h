#pragma once
// Channel check, as a rigger does it during focus: one channel at a time at
// a chosen level in the column under edit, stepping on to the next. The
// channel left behind gets back the level it had before the check touched
// it, and ending the check gives the last one back too, so the check leaves
// the show as it found it.

#include <cstdint>

namespace q {

class Console;

class ChannelCheck {
 public:
  explicit ChannelCheck(Console& c);

  bool on() const { return channel_ > 0; }
  int channel() const { return channel_; }
  double level() const { return level_; }

  // Checks this channel (1..512) at this level (0..1); false, and nothing
  // moves, for a channel or level that is no such thing.
  bool check(int channel, double level);
  // The next or previous channel, within the channels the console has (MaxChans).
  bool step(int delta);
  bool setLevel(double level);
  // Gives the channel under check its level back.
  void off();

 private:
  void giveBack();
  Console& c_;
  int channel_ = 0;
  double level_ = 1.0;
  int column_ = 0;      // where the level under check was put
  uint8_t before_ = 0;  // what that cell held before
};

}  // namespace q
