#include "engine/playback/transport.h"

#include <algorithm>
#include <cmath>

#include "engine/core/console.h"
#include "engine/playback/cue_actions.h"
#include "engine/playback/cue_function_table.h"
#include "engine/playback/cue_record.h"

namespace q {

namespace {

constexpr const char* kLit = "Led_On2";

// A side's level from its formula, held within 0..255 (see the header).
uint8_t sideLevel(double x) { return uint8_t(std::clamp(x, 0.0, 255.0)); }

int16_t toTick(double x) {
  return int16_t(
      std::clamp(roundHalfEven(std::clamp(x, -1e9, 1e9)), long(INT16_MIN), long(INT16_MAX)));
}

}  // namespace

Transport::Transport(Console& c)
    : GOButton(c.form1.add<Lamp>("GOButton")),
      PauseButton(c.form1.add<Lamp>("PauseButton")),
      BackButton(c.form1.add<Lamp>("BackButton")),
      CutButton(c.form1.add<Lamp>("CutButton")),
      lblPAUSE(c.form1.add<Label>("lblPAUSE", "PAUSE")),
      lblBack(c.form1.add<Label>("lblBack", "BACK")),
      lblCut(c.form1.add<Label>("lblCut", "CUT")),
      Led_GO(c.form1.add<Lamp>("Led_GO")),
      Led_PAUSE(c.form1.add<Lamp>("Led_PAUSE")),
      btnXfaderMode(c.form1.add<Lamp>("btnXfaderMode")),
      btnBlackOut(c.form1.add<Lamp>("btnBlackOut")),
      c_(c) {
  pressedPicture(GOButton, "imgGo");
  pressedPicture(PauseButton, "Llarg2");
  pressedPicture(BackButton, "Llarg2");
  pressedPicture(CutButton, "Llarg2");
  GOButton.onMouseUp = [this](MouseButton) { goRelease(); };
  PauseButton.onMouseUp = [this](MouseButton) { pauseRelease(); };
  BackButton.onMouseUp = [this](MouseButton) { backRelease(); };
  CutButton.onMouseUp = [this](MouseButton) { cutRelease(); };
  // The captions lie on their buttons and hand the mouse on to them.
  auto forward = [](Label& label, Lamp& button) {
    label.onMouseDown = [&button](MouseButton b) { button.mouseDown(b); };
    label.onMouseUp = [&button](MouseButton b) { button.mouseUp(b); };
  };
  forward(lblPAUSE, PauseButton);
  forward(lblBack, BackButton);
  forward(lblCut, CutButton);
  btnXfaderMode.onClick = [this] { xfaderModeClick(); };
  btnBlackOut.onClick = [this] { blackOutClick(); };
  c.form1.MemTimer.onTick = [this] { memTimerTick(); };
  c.form1.Xfader.onChange = [this] { xfaderChange(); };
  auto num = [](long x) { return std::to_string(x); };
  c.names.add("FadeTick", [this, num] { return num(FadeTick); });
  c.names.add("Paused", [this, num] { return num(Paused); });
  c.names.add("XfaderFromBottom", [this, num] { return num(XfaderFromBottom); });
  c.names.add("XfaderArmed", [this, num] { return num(XfaderArmed); });
  c.names.add("XfaderTimeMode", [this, num] { return num(XfaderTimeMode); });
}

void Transport::pressedPicture(Lamp& button, const char* picture) {
  button.onMouseDown = [&button, picture](MouseButton) { button.setPicture(picture); };
}

// GO starts the clock and nothing else: the first tick comes 100 ms later.
void Transport::goRelease() {
  GOButton.setPicture("");
  Led_GO.setPicture(kLit);
  c_.form1.MemTimer.setRunning(true);
}

void Transport::pauseRelease() {
  Timer& timer = c_.form1.MemTimer;
  if (Paused == kFalse) {
    if (timer.isEnabled()) {
      Paused = kTrue;
      timer.setRunning(false);
      Led_PAUSE.setPicture(kLit);
    }
  } else {
    // Leaving a pause restarts the clock whatever happened in between.
    Paused = kFalse;
    timer.setRunning(true);
    Led_PAUSE.setPicture("");
  }
  PauseButton.setPicture("");
}

// BACK fades, in its own times, to the cue before the one on Stage.
void Transport::backRelease() {
  const long next = c_.memories.nextCue();
  if (next > 2) {
    c_.memories.LoadCueinProg(next - 2);
    c_.form1.MemTimer.setRunning(true);
    c_.memories.setNextCue(next - 2);
    c_.v.MixDirty = kTrue;
  }
  BackButton.setPicture("");
}

// CUT ends a running fade at once; without one it does nothing.
void Transport::cutRelease() {
  if (c_.form1.MemTimer.isEnabled()) {
    c_.form1.MemTimer.setRunning(false);
    c_.v.StageLevel = 0;
    c_.v.ProgLevel = 0;
    c_.memories.PassaPrograma();
    Led_GO.setPicture("");
    FadeTick = 0;
    c_.v.MixDirty = kTrue;
  }
  CutButton.setPicture("");
}

void Transport::stageSide(double t, const Times& times) {
  if (!(times.waitDown < t)) return;
  if (times.down == 0)
    c_.v.StageLevel = 0;
  else if (t - times.waitDown < times.down + 1)
    c_.v.StageLevel = sideLevel(std::floor(255 - (t - times.waitDown) * 255 / times.down));
}

void Transport::progSide(double t, const Times& times) {
  if (!(times.waitUp < t)) return;
  if (times.up == 0)
    c_.v.ProgLevel = 255;
  else if (t - times.waitUp < times.up + 1)
    c_.v.ProgLevel = sideLevel(std::floor((t - times.waitUp) * 255 / times.up));
}

// One tick of the fade clock. A row that is no memory cue (a function cue,
// or an empty row past the end of the list) is passed on a tick of its own
// and the clock runs on, so one GO plays through to the next memory cue.
void Transport::memTimerTick() {
  const long row = c_.memories.nextCue();
  if (!cellIsFunction(cueCell(c_.v, row, cue::kFunction), CueFunction::MemoryCue)) {
    c_.memories.PassaPrograma();
    return;
  }
  // Waits longer than the 16-bit counter can reach hold it at its top.
  if (FadeTick < INT16_MAX) ++FadeTick;
  const double t = FadeTick;
  const Times times = c_.fadeTimes.read();
  stageSide(t, times);
  // The cue's players and chasers act at the wait-up tick, so a cue with a
  // wait up of 0 never fires them in a fade.
  if (times.waitUp == t) runCueActions(c_, row);
  progSide(t, times);
  c_.v.MixDirty = kTrue;
  if (c_.v.ProgLevel == 255 && c_.v.StageLevel == 0) endOfFade();
  c_.timesGraph.movePosLine(FadeTick);
}

void Transport::endOfFade() {
  c_.memories.PassaPrograma();
  c_.form1.MemTimer.setRunning(false);
  Led_GO.setPicture("");
  FadeTick = 0;
}

void Transport::scrubToTime(int val) {
  const float w = c_.timesGraph.scaleWidth();
  const float along = std::floor(float(val) * w / 255.0f);
  FadeTick = toTick(XfaderFromBottom == kFalse ? w - along : along);
  c_.timesGraph.movePosLine(FadeTick);
  const Times times = c_.fadeTimes.read();
  stageSide(FadeTick, times);
  progSide(FadeTick, times);
}

// The Xfader takes over from a running fade at once. At either end it may
// pass Prog to Stage; the end at 0 only once the fader has been through the
// middle, so a fader brushed at its resting end fires nothing.
void Transport::xfaderChange() {
  Variables& v = c_.v;
  const int val = c_.form1.Xfader.position();
  if (c_.form1.MemTimer.isEnabled()) {
    c_.form1.MemTimer.setRunning(false);
    Led_GO.setPicture("");
  }
  if (val == 0) {
    if (XfaderFromBottom == kFalse && XfaderArmed == kTrue) {
      c_.memories.PassaPrograma();
      XfaderFromBottom = kTrue;
      XfaderArmed = kFalse;
    }
  } else if (val == 255) {
    if (XfaderFromBottom == kTrue) {
      c_.memories.PassaPrograma();
      XfaderFromBottom = kFalse;
      XfaderArmed = kFalse;
    }
  } else {
    if (XfaderTimeMode == kFalse) {
      const bool fromBottom = XfaderFromBottom == kTrue;
      v.StageLevel = uint8_t(fromBottom ? 255 - val : val);
      v.ProgLevel = uint8_t(fromBottom ? val : 255 - val);
    } else {
      scrubToTime(val);
    }
    if (val > 100 && val < 150) XfaderArmed = kTrue;
  }
  v.MixDirty = kTrue;
}

void Transport::xfaderModeClick() {
  XfaderTimeMode = vbool(XfaderTimeMode == kFalse);
  btnXfaderMode.setPicture(XfaderTimeMode == kTrue ? "imgXfaderMode" : "");
}

void Transport::blackOutClick() {
  c_.v.BlackOut = vbool(c_.v.BlackOut == kFalse);
  btnBlackOut.setPicture(c_.v.BlackOut == kTrue ? "imgBO" : "");
  c_.v.MixDirty = kTrue;
}

}  // namespace q
