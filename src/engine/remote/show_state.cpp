#include "engine/remote/show_state.h"

#include "engine/core/console.h"

namespace q {

namespace {
// Faders stand upside down: position 0 is full.
double faderLevel(const Scroller& f) { return (255 - f.position()) / 255.0; }
}  // namespace

ShowState readShowState(Console& c) {
  ShowState s;
  const Memories& m = c.memories;
  s.stageCue = m.STAGEMem.text();
  s.stageName = m.STAGEName.text();
  s.progCue = m.PROGMem.text();
  s.progName = m.PROGName.text();
  s.nextCue = m.NextCue.caption();
  s.fading = c.form1.MemTimer.isEnabled();
  s.paused = c.transport.Paused != kFalse;
  // Both sides count: a fade with a long wait on one side still moves.
  s.fadeProgress = ((255 - c.v.StageLevel) + c.v.ProgLevel) / 510.0;
  s.goLamp = !c.transport.Led_GO.picture().empty();
  s.blackout = c.v.BlackOut != kFalse;
  for (int n = 0; n < ShowState::kStrips; ++n)
    s.strips[n] = faderLevel(c.form1.Fader(n + kFirstStrip));
  s.grandMaster = faderLevel(c.form1.SMaster);
  s.crossfade = faderLevel(c.form1.Xfader);
  return s;
}

}  // namespace q
