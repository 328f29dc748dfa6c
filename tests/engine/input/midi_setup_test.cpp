// The "MIDI Devices" dialog: what it shows, its presets, and what OK and
// Cancel leave behind.

#include <gtest/gtest.h>

#include "engine/input/midi_setup.h"
#include "fake_midi_ports.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class MidiSetup : public ConsoleFixture {
 protected:
  void SetUp() override { console().midi.setPorts(in, out); }
  MidiControl& midi() { return console().midi; }
  MidiSetupForm& open() {
    form1().menu("mnuMidiSetup").click();
    return midi().setupForm();
  }
  std::vector<int> boxes(MidiSetupForm& f) {
    std::vector<int> r;
    for (int i = 1; i <= 22; ++i) r.push_back(std::stoi(f.txtMIDI(i).text()));
    return r;
  }

  FakeMidiIn in;
  FakeMidiOut out;
};

TEST_F(MidiSetup, ShowsTheDevicesAndTheConfirmedChoice) {
  midi().MidiOutName = "Desk Out";
  midi().MidiInName = "Gone away";
  midi().MasterController = 14;
  v().SubMidi[19] = 33;
  v().MidiChannel = 10;
  MidiSetupForm& f = open();
  EXPECT_TRUE(f.isVisible());
  EXPECT_EQ(f.ComboMidiOut.items(),
            (std::vector<std::string>{"Not Enabled", "Quintara MIDI Out", "Desk Out"}));
  EXPECT_EQ(f.ComboMidiIn.items(), (std::vector<std::string>{"Not Enabled", "Desk In", "Keys In"}));
  EXPECT_EQ(f.ComboMidiOut.listIndex(), 2);
  EXPECT_EQ(f.ComboMidiIn.listIndex(), 0);  // a device no longer there
  EXPECT_EQ(f.ComboChannel.text(), "10");
  EXPECT_EQ(f.txtMIDI(1).text(), "14");
  EXPECT_EQ(f.txtMIDI(22).text(), "33");
}

TEST_F(MidiSetup, NothingConfirmedIsNotEnabledEvenBesideANamelessPort) {
  out.mapper = "";
  MidiSetupForm& f = open();
  EXPECT_EQ(f.ComboMidiOut.listIndex(), 0);
  f.CmdOk.click();
  EXPECT_TRUE(out.log.empty());
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(MidiSetup, PresetsFillTheControllerBoxesOnly) {
  MidiSetupForm& f = open();
  auto expect = [&](int preset, std::vector<int> want) {
    f.txtMIDI(20).setText("99");
    f.Combo1.setListIndex(preset);
    EXPECT_EQ(boxes(f), want) << "preset " << preset;
  };
  std::vector<int> yamaha1(22, 0), yamaha2(22, 0), oneToOne(22, 0);
  for (int i = 3; i <= 14; ++i) yamaha1[i - 1] = i - 2;
  yamaha1[0] = 14, yamaha1[1] = 13;
  for (int i = 3; i <= 15; ++i) yamaha2[i - 1] = i - 2;
  yamaha2[0] = 27, yamaha2[1] = 14;
  for (int i = 1; i <= 22; ++i) oneToOne[i - 1] = i;
  expect(2, yamaha1);
  expect(3, yamaha2);
  expect(4, oneToOne);
  expect(1, std::vector<int>(22, 0));
  f.txtMIDI(20).setText("99");
  f.Combo1.setListIndex(0);
  EXPECT_EQ(f.txtMIDI(20).text(), "99");
  EXPECT_EQ(v().SubMidi, decltype(v().SubMidi){});
}

TEST_F(MidiSetup, OkOpensThePortsAndTakesTheTable) {
  MidiSetupForm& f = open();
  f.ComboMidiIn.setListIndex(2);
  f.ComboMidiOut.setListIndex(1);
  f.Combo1.setListIndex(2);
  f.ComboChannel.setListIndex(15);
  f.CmdOk.click();
  EXPECT_EQ(console().windows.find("MIDISetupForm"), nullptr);
  EXPECT_EQ(midi().MidiInName, "Keys In");
  EXPECT_EQ(midi().MidiInIndex, 2);
  EXPECT_EQ(midi().MidiOutName, "Quintara MIDI Out");
  EXPECT_EQ(midi().MidiOutIndex, 1);
  EXPECT_TRUE(in.isOpen());
  EXPECT_EQ(in.device, 1);
  EXPECT_EQ(out.device, -1);
  EXPECT_EQ(v().SubMidi[0], 1);
  EXPECT_EQ(v().SubMidi[11], 12);
  EXPECT_EQ(v().SubMidi[12], 0);
  EXPECT_EQ(midi().MasterController, 14);
  EXPECT_EQ(midi().CrossfadeController, 13);
  EXPECT_EQ(v().MidiChannel, 16);
}

TEST_F(MidiSetup, CancelKeepsEverythingAndForgetsTheTyping) {
  MidiSetupForm& f = open();
  f.ComboMidiIn.setListIndex(1);
  f.Combo1.setListIndex(4);
  f.ComboChannel.setListIndex(3);
  f.CmdCancel.click();
  EXPECT_EQ(console().windows.find("MIDISetupForm"), nullptr);
  EXPECT_FALSE(in.isOpen());
  EXPECT_EQ(v().SubMidi[0], 0);
  EXPECT_EQ(v().MidiChannel, 1);
  MidiSetupForm& again = open();
  EXPECT_EQ(again.txtMIDI(3).text(), "0");
  EXPECT_EQ(again.ComboMidiIn.listIndex(), 0);
  EXPECT_EQ(again.ComboChannel.listIndex(), 0);
}

TEST_F(MidiSetup, ABadControllerStopsOkWithAMessage) {
  MidiSetupForm& f = open();
  f.ComboMidiIn.setListIndex(1);
  f.txtMIDI(3).setText("4");
  f.txtMIDI(4).setText(" 5 ");
  f.txtMIDI(5).setText("256");
  f.txtMIDI(6).setText("8");
  f.ComboChannel.setListIndex(4);
  f.CmdOk.click();
  // What came before the bad box is in force, the rest is not, and the dialog stays.
  EXPECT_TRUE(in.isOpen());
  EXPECT_EQ(v().SubMidi[0], 4);
  EXPECT_EQ(v().SubMidi[1], 5);
  EXPECT_EQ(v().SubMidi[2], 0);
  EXPECT_EQ(v().SubMidi[3], 0);
  EXPECT_EQ(v().MidiChannel, 1);
  EXPECT_TRUE(f.isVisible());
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_NE(dialogs.shown[0].find("SubMaster 3:"), std::string::npos);

  f.txtMIDI(5).setText("abc");
  f.CmdOk.click();
  EXPECT_EQ(dialogs.shown.size(), 2u);
  f.txtMIDI(5).setText("");
  f.CmdOk.click();
  EXPECT_EQ(dialogs.shown.size(), 3u);
}

TEST_F(MidiSetup, IsCreatedByNameAndForgottenAtUnload) {
  ASSERT_NE(console().registry.find("MIDISetupForm.txtMIDI(7)"), nullptr);
  EXPECT_FALSE(midi().setupForm().isVisible());
  midi().setupForm().unload();
  EXPECT_FALSE(console().registry.has("MIDISetupForm.txtMIDI(7)"));
}

}  // namespace
}  // namespace q::test
