#pragma once
// The console as a show controller, a sound desk's cue software or a
// rigger's phone reaches it: a handful of actions, each done by pressing,
// moving or typing into the console's own control, exactly as the mouse or
// the command language would. So nothing from outside can do what the desk
// cannot, and everything it does looks the same on the desk and in a script.
//
// Levels from outside are 0..1 (OSC floats, a page's slider); anything
// outside that range, a strip or channel that does not exist, or a number
// that is no number is refused: the call returns false and nothing moves.

#include <cstdint>
#include <string>

namespace q {

class Console;

class ShowControl {
 public:
  static constexpr int kStrips = 20;

  explicit ShowControl(Console& c);

  // The transport keys: a whole press of GO, BACK, PAUSE (which also ends a
  // pause) and CUT.
  void go();
  void back();
  void pause();
  void cut();
  // PAUSE only when a fade runs unpaused; the end of a pause only when paused.
  void stop();
  void resume();

  // Strip 1..20 (the desk's Fader(3)..Fader(22)), the grand master and the
  // crossfader, moved as a drag would move them.
  bool fader(int strip, double level);
  bool grandMaster(double level);
  bool crossfade(double level);
  // A channel 1..512 in the column under edit, as the channels window's fader sets it.
  bool channel(int channel, double level);
  // A direct command as typed into Direct and sent with Enter.
  void direct(const std::string& command);
  // The cue with that number into Prog, as ProgMemLoad does once its number
  // is given. False when no row has that number.
  bool loadCue(double number);
  // The first row of the cue list into Prog, so the next GO plays it.
  bool reset();
  // The blackout key, pressed only when the blackout is not already as asked.
  void blackout(bool on);

  // A level in 0..1 as the byte a fader shows (0..255); nothing when the
  // level is out of range or no number.
  static bool levelByte(double level, uint8_t& byte);

 private:
  void press(const std::string& control);
  Console& c_;
};

}  // namespace q
