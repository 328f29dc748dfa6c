#include "engine/input/midi_control.h"

#include <algorithm>

#include "engine/core/console.h"
#include "engine/core/value.h"
#include "engine/input/midi_setup.h"
#include "engine/remote/msc.h"
#include "engine/remote/show_control.h"

namespace q {

namespace {
// Status bytes are the kind in the high nibble plus the channel - 1, so on
// channel c a control change is c + 175, a note on c + 143, a note off c + 127.
constexpr int kControlChangeBase = 175;
constexpr int kNoteOnBase = 143;
constexpr int kNoteOffBase = 127;
constexpr int kEchoStatus = 176;  // control change on channel 1, whatever is listened to

bool isDataByte(int b) { return b >= 0 && b <= 127; }
}  // namespace

MidiControl::MidiControl(Console& c)
    : c_(c),
      in_(c.host().midiIn ? c.host().midiIn : &noIn_),
      out_(c.host().midiOut ? c.host().midiOut : &noOut_) {
  attach();
  c_.windows.setFactory("MIDISetupForm", [this] { return std::make_unique<MidiSetupForm>(c_); });
  c_.form1.menu("mnuMidiSetup").onClick = [this] { setupForm().show(); };
  c_.names.add("MidiEchoEnabled", [this] { return std::to_string(MidiEchoEnabled); });
  c_.names.add("MasterController", [this] { return std::to_string(MasterController); });
  c_.names.add("CrossfadeController", [this] { return std::to_string(CrossfadeController); });
  c_.names.add("MidiInName", [this] { return MidiInName; });
  c_.names.add("MidiOutName", [this] { return MidiOutName; });
  c_.names.add("MidiInIndex", [this] { return std::to_string(MidiInIndex); });
  c_.names.add("MidiOutIndex", [this] { return std::to_string(MidiOutIndex); });
  c_.names.add("MscDeviceId", [this] { return std::to_string(MscDeviceId); });
  c_.names.add("MscIgnored", [this] { return std::to_string(MscIgnored); });
}

// The ports belong to the host and may be gone already: they are not touched here.
MidiControl::~MidiControl() = default;

void MidiControl::setPorts(MidiInPort& in, MidiOutPort& out) {
  in_->onArrived = nullptr;
  in_->onError = nullptr;
  in_ = &in;
  out_ = &out;
  attach();
}

void MidiControl::attach() {
  in_->onArrived = [this] { messagesArrived(); };
  in_->onError = [this](int code, const std::string& text) {
    // 0 is no error and 8 a dropped message the device reports in passing.
    if (code != 0 && code != 8) c_.dialogs().msgBox("Quintara", text);
  };
}

void MidiControl::messagesArrived() {
  while (in_->waiting() >= 1) {
    const MidiMessage m = in_->oldest();
    in_->removeOldest();
    if (m.sysex.empty())
      messageIn(m.status, m.data1, m.data2);
    else
      sysexIn(m.sysex);
  }
}

void MidiControl::sysexIn(const std::vector<uint8_t>& bytes) {
  const auto command = parseMsc(bytes, MscDeviceId);
  ShowControl control(c_);
  if (!command || !applyMsc(control, *command)) ++MscIgnored;
}

void MidiControl::messageIn(int status, int data1, int data2) {
  MidiEchoEnabled = kFalse;
  // Only real data bytes are acted on: a value beyond 127 cannot come from a
  // port, and the table and faders have no place for it.
  if (isDataByte(data1) && isDataByte(data2)) {
    const int channel = c_.v.MidiChannel;
    if (status == channel + kControlChangeBase)
      controlChange(data1, data2);
    else if (status == channel + kNoteOnBase)
      note(data1, data2 * 2);
    else if (status == channel + kNoteOffBase)
      note(data1, 0);
  }
  MidiEchoEnabled = kTrue;
}

// Controller 0 is no exception: it moves every strip without a controller,
// and the masters while theirs stand at 0, as a desk fresh from start-up does.
void MidiControl::controlChange(int controller, int value) {
  const int position = 255 - value * 2;
  MainWindow& f = c_.form1;
  for (int n = kFirstStrip; n <= kLastStrip; ++n)
    if (c_.v.SubMidi[n - kFirstStrip] == controller) f.Fader(n).setPosition(position);
  if (MasterController == controller) f.SMaster.setPosition(position);
  if (CrossfadeController == controller) f.Xfader.setPosition(position);
}

// Note n lights channel n + 1 in the MIDI column, before the patch.
void MidiControl::note(int number, int level) {
  c_.v.ChanTable.set(number + 1, kMidiColumn, uint8_t(level));
  c_.v.MixDirty = kTrue;
}

void MidiControl::echo(int strip, int position) {
  if (strip < kFirstStrip || strip > kLastStrip) return;
  const int controller = c_.v.SubMidi[strip - kFirstStrip];
  if (controller <= 0 || MidiEchoEnabled != kTrue || !out_->isOpen()) return;
  // Half the level, rounded as the output converts it; a strip at the top
  // would give 127.5, and a data byte stops at 127.
  const long value = std::clamp(roundHalfEven((255 - position) / 2.0), 0L, 127L);
  out_->send(kEchoStatus, controller, int(value));
}

MidiOut* MidiControl::openOutput() { return out_->isOpen() ? out_ : nullptr; }

void MidiControl::closePorts() {
  if (in_->isOpen()) {
    in_->stop();
    in_->close();
  }
  if (out_->isOpen()) out_->close();
}

void MidiControl::openInput(int listPosition) {
  if (in_->isOpen()) in_->close();
  in_->setDevice(listPosition - 1);
  in_->open();
  in_->start();
}

// List position 1 is the system's default destination, device -1.
void MidiControl::openOutputPort(int listPosition) {
  if (out_->isOpen()) out_->close();
  out_->setDevice(listPosition - 2);
  out_->open();
}

int MidiControl::ApplyMidiPorts() {
  if (in_->isOpen()) {
    in_->stop();
    in_->close();
  }
  if (MidiInIndex != 0) {
    openInput(MidiInIndex);
    if (MidiInIndex >= 1 && !in_->isOpen()) return 0;
  }
  if (out_->isOpen()) out_->close();
  if (MidiOutIndex != 0) {
    openOutputPort(MidiOutIndex);
    if (MidiOutIndex >= 1 && !out_->isOpen()) {
      c_.dialogs().msgBox("Open MIDI Output port", "Cannot open MIDI Output port", MsgButtons::OK,
                          MsgIcon::Exclamation);
      return 0;
    }
  }
  if (in_->isOpen()) in_->enableLongMessages();
  return 1;
}

MidiSetupForm& MidiControl::setupForm() { return c_.windows.load<MidiSetupForm>("MIDISetupForm"); }

}  // namespace q
