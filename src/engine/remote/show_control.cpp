#include "engine/remote/show_control.h"

#include <cmath>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"
#include "engine/views/edit_column.h"

namespace q {

ShowControl::ShowControl(Console& c) : c_(c) {}

bool ShowControl::levelByte(double level, uint8_t& byte) {
  if (!std::isfinite(level) || level < 0.0 || level > 1.0) return false;
  byte = uint8_t(std::lround(level * 255.0));
  return true;
}

// Down, up and the click, as a real mouse delivers them; a control that is
// disabled, or that a handler took away, gets no more of it.
void ShowControl::press(const std::string& name) {
  Control* ctl = c_.registry.find(name);
  if (!ctl || !ctl->enabled()) return;
  ctl->mouseDown();
  if (c_.registry.peek(name) != ctl || !ctl->enabled()) return;
  ctl->mouseUp();
  if (c_.registry.peek(name) == ctl) ctl->click();
}

void ShowControl::go() { press("GOButton"); }
void ShowControl::back() { press("BackButton"); }
void ShowControl::pause() { press("PauseButton"); }
void ShowControl::cut() { press("CutButton"); }

void ShowControl::stop() {
  if (c_.transport.Paused == kFalse && c_.form1.MemTimer.isEnabled()) pause();
}

void ShowControl::resume() {
  if (c_.transport.Paused != kFalse) pause();
}

// Faders stand upside down: position 0 is the top of the travel, full.
bool ShowControl::fader(int strip, double level) {
  uint8_t byte = 0;
  if (strip < 1 || strip > kStrips || !levelByte(level, byte)) return false;
  Scroller& f = c_.form1.Fader(strip - 1 + kFirstStrip);
  if (f.enabled()) f.setPosition(255 - byte);
  return true;
}

bool ShowControl::grandMaster(double level) {
  uint8_t byte = 0;
  if (!levelByte(level, byte)) return false;
  if (c_.form1.SMaster.enabled()) c_.form1.SMaster.setPosition(255 - byte);
  return true;
}

bool ShowControl::crossfade(double level) {
  uint8_t byte = 0;
  if (!levelByte(level, byte)) return false;
  if (c_.form1.Xfader.enabled()) c_.form1.Xfader.setPosition(255 - byte);
  return true;
}

bool ShowControl::channel(int channel, double level) {
  uint8_t byte = 0;
  if (channel < 1 || channel > kChannels || !levelByte(level, byte)) return false;
  storeEditLevel(c_.v, channel, byte);
  c_.v.MixDirty = kTrue;
  return true;
}

void ShowControl::direct(const std::string& command) {
  TextBox& box = c_.direct.Direct;
  if (!box.enabled()) return;
  box.setText(command);
  box.keyPress(13);
}

bool ShowControl::loadCue(double number) {
  if (!std::isfinite(number) || number < INT16_MIN || number > INT16_MAX) return false;
  const double whole = std::nearbyint(number);
  if (whole != number) return false;
  const Variables& v = c_.v;
  bool found = false;
  for (int j = 1; j <= v.CueCount && !found; ++j)
    found = cellEquals(cueCell(v, j, cue::kNumber), whole);
  if (found) c_.memories.progLoadNumber(int16_t(whole));
  return found;
}

bool ShowControl::reset() {
  if (c_.v.CueCount < 1) return false;
  // As the pass brings in the next row: it becomes the one GO plays.
  c_.memories.setNextCue(1);
  c_.memories.LoadCueinProg(1);
  return true;
}

void ShowControl::blackout(bool on) {
  if ((c_.v.BlackOut != kFalse) != on) c_.transport.btnBlackOut.click();
}

}  // namespace q
