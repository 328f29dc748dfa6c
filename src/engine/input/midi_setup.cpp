#include "engine/input/midi_setup.h"

#include <optional>

#include "engine/core/console.h"
#include "engine/core/value.h"

namespace q {

namespace {
constexpr int kBoxes = 22;  // 1 SMaster, 2 Xfader, 3..22 the strips

std::string boxLabel(int i) {
  if (i == 1) return "Master:";
  if (i == 2) return "Crossfade:";
  return "SubMaster " + std::to_string(i - 2) + ":";
}

// A controller typed in a box, as the console reads it: a number rounded
// half to even, 0 to 255; nullopt for anything else.
std::optional<uint8_t> controllerOf(const std::string& text) {
  auto n = parseNumber(text);
  if (!n) return std::nullopt;
  const long r = roundHalfEven(*n);
  if (r < 0 || r > 255) return std::nullopt;
  return uint8_t(r);
}
}  // namespace

MidiSetupForm::MidiSetupForm(Console& c)
    : Window(c.registry, "MIDISetupForm"),
      ComboMidiOut(add<ListBox>("ComboMidiOut")),
      ComboMidiIn(add<ListBox>("ComboMidiIn")),
      ComboChannel(add<ListBox>("ComboChannel")),
      Combo1(add<ListBox>("Combo1")),
      CmdOk(add<Label>("CmdOk", "OK")),
      CmdCancel(add<Label>("CmdCancel", "Cancel")),
      c_(c) {
  for (int i = 1; i <= kBoxes; ++i) {
    txt_[i - 1] = &add<TextBox>(indexed("txtMIDI", i), "0");
    labels_[i - 1] = &add<Label>(indexed("lblMIDI", i), boxLabel(i));
  }
  for (int ch = 1; ch <= 16; ++ch) ComboChannel.addItem(std::to_string(ch));
  for (const char* p : {"-none-", "All to zero", "Yamaha 01v (1)", "Yamaha 01v (2)", "1 to 1"})
    Combo1.addItem(p);
  setCaption("MIDI Devices");
  Combo1.setListIndex(0);
  Combo1.onClick = [this] { applyPreset(Combo1.listIndex()); };
  CmdOk.onClick = [this] { ok(); };
  CmdCancel.onClick = [this] { cancel(); };
  load();
}

void MidiSetupForm::load() {
  MidiControl& m = c_.midi;
  auto fill = [](ListBox& list, const std::string& chosen, auto&& names) {
    list.clear();
    list.addItem("Not Enabled");
    names(list);
    // Nothing confirmed yet is "Not Enabled", even beside a port without a name.
    int pos = 0;
    for (int i = 0; i < list.count() && !chosen.empty(); ++i)
      if (list.items()[i] == chosen) {
        pos = i;
        break;
      }
    list.setListIndex(pos);
  };
  fill(ComboMidiOut, m.MidiOutName, [&m](ListBox& l) {
    for (int d = -1; d < m.output().deviceCount(); ++d) l.addItem(m.output().deviceName(d));
  });
  fill(ComboMidiIn, m.MidiInName, [&m](ListBox& l) {
    for (int d = 0; d < m.input().deviceCount(); ++d) l.addItem(m.input().deviceName(d));
  });
  const int ch = c_.v.MidiChannel;
  ComboChannel.setListIndex(ch >= 1 && ch <= 16 ? ch - 1 : -1);
  txtMIDI(1).setText(std::to_string(m.MasterController));
  txtMIDI(2).setText(std::to_string(m.CrossfadeController));
  for (int i = 3; i <= kBoxes; ++i) txtMIDI(i).setText(std::to_string(c_.v.SubMidi[i - 3]));
}

void MidiSetupForm::applyPreset(int position) {
  auto set = [this](int i, int value) { txtMIDI(i).setText(std::to_string(value)); };
  auto allZero = [&] {
    for (int i = 1; i <= kBoxes; ++i) set(i, 0);
  };
  switch (MidiPreset(position)) {
    case MidiPreset::AllZero:
      allZero();
      break;
    case MidiPreset::Yamaha01v1:
      allZero();
      for (int i = 3; i <= 14; ++i) set(i, i - 2);
      set(1, 14);
      set(2, 13);
      break;
    case MidiPreset::Yamaha01v2:
      allZero();
      for (int i = 3; i <= 15; ++i) set(i, i - 2);
      set(1, 27);
      set(2, 14);
      break;
    case MidiPreset::OneToOne:
      for (int i = 1; i <= kBoxes; ++i) set(i, i);
      break;
    case MidiPreset::None:
      break;
  }
}

void MidiSetupForm::ok() {
  MidiControl& m = c_.midi;
  m.MidiInName = ComboMidiIn.text();
  m.MidiInIndex = int16_t(ComboMidiIn.listIndex());
  m.MidiOutName = ComboMidiOut.text();
  m.MidiOutIndex = int16_t(ComboMidiOut.listIndex());
  m.ApplyMidiPorts();
  // The boxes are taken in order; a box that holds no controller stops here,
  // with what was taken before it in force, and the dialog stays open.
  auto take = [this](int i) -> std::optional<uint8_t> {
    auto value = controllerOf(txtMIDI(i).text());
    if (!value)
      c_.dialogs().msgBox(
          caption(),
          boxLabel(i) + " \"" + txtMIDI(i).text() + "\" is not a controller number from 0 to 255",
          MsgButtons::OK, MsgIcon::Exclamation);
    return value;
  };
  for (int i = 3; i <= kBoxes; ++i) {
    auto value = take(i);
    if (!value) return;
    c_.v.SubMidi[i - 3] = *value;
  }
  for (int i = 1; i <= 2; ++i) {
    auto value = take(i);
    if (!value) return;
    (i == 1 ? m.MasterController : m.CrossfadeController) = *value;
  }
  if (ComboChannel.listIndex() >= 0) c_.v.MidiChannel = ComboChannel.listIndex() + 1;
  unload();
}

// Leaving forgets what was typed: the next opening loads the console's choice afresh.
void MidiSetupForm::cancel() { unload(); }

}  // namespace q
