// Start-up, shut-down and reset of the console: the order in which it comes
// up and goes down.

#include <exception>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"

namespace q {

bool Console::hasSwitch(const std::string& sw) const {
  return host_.commandLine.find(sw) != std::string::npos;
}

void Console::start() {
  splashShown_ = !hasSwitch("-nosplash");
  const bool recover = snapshots.endedUncleanly();
  loadForm1();
  {
    // The start's own patch is no change of the show to keep.
    auto replacing = snapshots.replacing();
    auto batch = v.PatchMap.changes.batch();
    for (int n = 1; n <= kChannels; ++n) v.PatchMap.set(n, int16_t(n));
  }
  osc.start(hasSwitch("-default"));
  if (recover) snapshots.offerRecovery();
}

void Console::outputTick() {
  std::exception_ptr mixFailed;
  if (v.MixDirty) {
    try {
      mixer.MixOutput();
    } catch (...) {
      mixFailed = std::current_exception();
    }
  }
  // The frame goes out on every tick: after a failed mix, with whatever the
  // mix got to write, so the stage keeps its light.
  interfaces.sendFrame();
  if (mixFailed) std::rethrow_exception(mixFailed);
}

int64_t Console::outputIdleUntil() const {
  if (v.MixDirty != kFalse) return INT64_MIN;
  return interfaces.frameIdleUntil();
}

void Console::loadForm1() {
  closed_ = false;
  v.EditColumn = 1;
  v.StageLevel = v.FX1Level = v.FX2Level = v.SubMasterLevel = 255;
  v.ProgLevel = 0;
  v.BlackOut = kFalse;
  form1.heightTwips = 11625;
  v.Player1Rate = v.Player2Rate = 1;
  v.SubKnob.fill(1);
  settings.readAtStart(hasSwitch("-default"));
  form1.DMXTimer.setRunning(true);
  interfaces.startDMX();
  settings.readRecentFiles();
  snapshots.markRunning();
  if (loadBackground) loadBackground();
  if (skinMe) skinMe();
}

void Console::dismissSplash() { splashShown_ = false; }

bool Console::queryClose() {
  dismissSplash();
  MsgResult r = dialogs().msgBox("Confirmation", "Are you sure you want to exit this program?",
                                 MsgButtons::YesNo, MsgIcon::Question);
  if (r != MsgResult::Yes) return false;
  unload();
  return true;
}

void Console::unload() {
  settings.writeAtExit();
  interfaces.stopDMX();
  midi.closePorts();
  osc.close();
  snapshots.markClosed();
  windows.unloadAll();
  closed_ = true;
}

void Console::resetDesk() {
  if (dialogs().msgBox("RESET DESK", "Are you sure?", MsgButtons::OKCancel) != MsgResult::OK)
    return;
  v.ChannelsRefreshing = kTrue;
  {
    // What the reset wipes is kept in a snapshot first.
    auto replacing = snapshots.replacing();
    auto levels = v.ChanTable.changes.batch();
    auto cues = v.Cues.changes.batch();
    for (int ch = 1; ch <= kChannels; ++ch) {
      for (int col = 0; col <= 21; ++col) v.ChanTable.set(ch, col, 0);
      for (int row = 1; row <= v.CueCount; ++row)
        v.Cues.setCell(int16_t(row), int16_t(ch), Value{});
    }
    for (int row = 1; row <= v.CueCount; ++row)
      for (int col = cue::kNumber; col <= cue::kVar; ++col)
        v.Cues.setCell(int16_t(row), int16_t(col), Value{});
  }
  for (int n = kFirstStrip; n <= kLastStrip; ++n) {
    form1.Fader(n).setPosition(255);
    form1.Slabel(n).setText("");
    form1.FaderFunc(n).setCaption("SUB");
  }
  WMP(0).setFileName("");
  WMP(1).setFileName("");
  if (auto* next = registry.find<Label>("NextCue")) next->setCaption("0");
  for (const char* box : {"STAGEMem", "STAGEName", "PROGMem", "PROGName"})
    if (auto* t = registry.find<TextBox>(box)) t->setText("");
  v.ChannelsRefreshing = kFalse;
  v.MixDirty = kTrue;
  unload();
  loadForm1();
}

void Console::askMaxChans() {
  std::string answer =
      dialogs().inputBox("Set Maximum channels", "Maximum channels?", std::to_string(v.MaxChans));
  auto n = parseNumber(answer);
  if (!n || *n < 19.5 || *n > 512.5) return;
  const long value = roundHalfEven(*n);
  if (value < 20 || value > 512) return;
  v.MaxChans = int16_t(value);
  v.MixDirty = kTrue;
}

void Console::wireMainMenu() {
  form1.DMXTimer.onTick = [this] { outputTick(); };
  form1.DMXTimer.idleUntil = [this] { return outputIdleUntil(); };
  form1.menu("mnuNew").onClick = [this] { resetDesk(); };
  form1.menu("mnuExit").onClick = [this] { queryClose(); };
  form1.menu("mnuMaxchans").onClick = [this] { askMaxChans(); };
}

}  // namespace q
