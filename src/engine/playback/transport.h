#pragma once
// The crossfade transport: moves the console from the look on Stage to the
// look in Prog by two weights, StageLevel and ProgLevel, that the mixer
// applies to the two scene columns. Three ways move them: a timed fade on
// MemTimer started by GO, the Xfader by hand, and CUT, which jumps to the
// end. GO only starts the timer; everything else happens on its ticks.
//
// Levels that would leave 0..255: a fractional up or down time can put a
// tick between the time and the time plus one, where the side's formula
// overshoots. The transport holds the level at the nearest end (0 or 255)
// and the fade goes on; a wait down that is no number reads as 0, in time
// mode as on the ticks. The light never stops for a time typed in a box.

#include <cstdint>

#include "engine/controls/label.h"
#include "engine/controls/lamp.h"
#include "engine/core/variables.h"
#include "engine/playback/fade_times.h"

namespace q {

class Console;

class Transport {
 public:
  explicit Transport(Console& c);

  // Buttons show their pressed picture from press to release; lamps their
  // lit picture or none.
  Lamp& GOButton;
  Lamp& PauseButton;
  Lamp& BackButton;
  Lamp& CutButton;
  Label& lblPAUSE;
  Label& lblBack;
  Label& lblCut;
  Lamp& Led_GO;
  Lamp& Led_PAUSE;
  Lamp& btnXfaderMode;
  Lamp& btnBlackOut;

  // Ticks since the fade began: the time axis of the times graph.
  int16_t FadeTick = 0;
  VBool Paused = kFalse;
  // False: the Xfader rests at 255 and a manual fade runs towards 0.
  VBool XfaderFromBottom = kFalse;
  // The Xfader has passed through the middle of its travel (101..149).
  VBool XfaderArmed = kFalse;
  // The Xfader scrubs along the time axis instead of setting the weights.
  VBool XfaderTimeMode = kFalse;

  // Release of each button. The space key, with its menu option on, is a
  // release of GO.
  void goRelease();
  void pauseRelease();
  void backRelease();
  void cutRelease();
  void memTimerTick();
  void xfaderChange();
  void xfaderModeClick();
  void blackOutClick();

 private:
  // The two sides of the fade at tick t; untouched where t is outside the side's run.
  void stageSide(double t, const Times& times);
  void progSide(double t, const Times& times);
  void scrubToTime(int val);
  void endOfFade();
  void pressedPicture(Lamp& button, const char* picture);

  Console& c_;
};

}  // namespace q
