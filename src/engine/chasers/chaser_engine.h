#pragma once
// The two chasers. A chaser is a table of steps (FX1Data, FX2Data) and a timer
// that moves a step pointer through it, in order or at random. Its run state
// is its timer's enabled flag and its step pointer is the caption of FxStep:
// the mixer reads both straight from the controls, so the chaser never writes
// a level anywhere.

#include <functional>

#include "engine/chasers/random_stream.h"

namespace q {

class Console;

class ChaserEngine {
 public:
  explicit ChaserEngine(Console& c);

  // One tick of FXTimer(index): the pointer moves on one step.
  void step(int index);
  // FXbutton released: starts a stopped chaser, stops a running one.
  void runToggle(int index);
  // A cue starts or stops a chaser directly, lamp included.
  void setRunning(int index, bool on);
  bool running(int index) const;
  // The step the pointer stands on, as the mixer reads it.
  int currentStep(int index) const;

  // Speed law: a fader or scroller at position p ticks every p x 5 + 1 ms,
  // so the top of a fader is the fastest.
  static int intervalFor(int position) { return position * 5 + 1; }
  void setSpeed(int index, int position);

  // A whole number from low to high out of the console's random stream.
  int32_t RandomBetween(int32_t low, int32_t high) { return random_.between(low, high); }

  // btnFXConfig clicked: the chaser's editor opens beside the desk, not modal.
  void openEditor(int index);

 private:
  void wire(int index);
  Console& c_;
  RandomStream random_;
};

}  // namespace q
