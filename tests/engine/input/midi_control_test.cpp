// Incoming MIDI: which messages are heard, what they move, when moves echo,
// and how the ports are opened and closed.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "fake_midi_ports.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class Midi : public ConsoleFixture {
 protected:
  void SetUp() override { midi().setPorts(in, out); }
  MidiControl& midi() { return console().midi; }
  int fader(int n) { return form1().Fader(n).position(); }
  // Opens both ports through the console's own opening sequence.
  void openPorts(int inPos = 1, int outPos = 2) {
    midi().MidiInIndex = int16_t(inPos);
    midi().MidiOutIndex = int16_t(outPos);
    ASSERT_EQ(midi().ApplyMidiPorts(), 1);
  }

  FakeMidiIn in;
  FakeMidiOut out;
};

TEST_F(Midi, ListensOnlyToTheChosenChannel) {
  struct Case {
    int channel, cc, noteOn, noteOff;
  };
  for (Case k : {Case{1, 176, 144, 128}, Case{16, 191, 159, 143}}) {
    v().MidiChannel = k.channel;
    for (int n = 3; n <= 22; ++n) form1().Fader(n).setPosition(255);
    midi().messageIn(k.cc, 0, 100);
    EXPECT_EQ(fader(3), 55) << "channel " << k.channel;
    midi().messageIn(k.noteOn, 4, 100);
    EXPECT_EQ(v().chan(5, kMidiColumn), 200);
    midi().messageIn(k.noteOff, 4, 100);
    EXPECT_EQ(v().chan(5, kMidiColumn), 0);
  }
  // Channel 16 listened to: channel 1's control change and note are not heard.
  midi().messageIn(176, 0, 10);
  midi().messageIn(144, 9, 10);
  EXPECT_EQ(fader(3), 55);
  EXPECT_EQ(v().chan(10, kMidiColumn), 0);
}

TEST_F(Midi, ControllerZeroMovesEverythingWithoutAController) {
  midi().messageIn(176, 0, 64);
  for (int n = 3; n <= 22; ++n) EXPECT_EQ(fader(n), 127) << n;
  EXPECT_EQ(form1().SMaster.position(), 127);
  EXPECT_EQ(form1().Xfader.position(), 127);

  // Once strips have controllers, controller 0 leaves them alone.
  v().SubMidi[0] = 7;
  v().SubMidi[1] = 7;
  midi().MasterController = 7;
  midi().messageIn(176, 0, 0);
  EXPECT_EQ(fader(3), 127);
  EXPECT_EQ(fader(4), 127);
  EXPECT_EQ(form1().SMaster.position(), 127);
  EXPECT_EQ(fader(5), 255);
  EXPECT_EQ(form1().Xfader.position(), 255);

  // Strips sharing a controller move together, with the master on it.
  midi().messageIn(176, 7, 127);
  EXPECT_EQ(fader(3), 1);  // the top of a MIDI fader is level 254, not 255
  EXPECT_EQ(fader(4), 1);
  EXPECT_EQ(form1().SMaster.position(), 1);
  EXPECT_EQ(fader(5), 255);
}

TEST_F(Midi, NotesLightTheChannelOfTheirNumberInTheMidiColumn) {
  midi().messageIn(144, 0, 127);
  EXPECT_EQ(v().chan(1, kMidiColumn), 254);
  EXPECT_EQ(v().MixDirty, kTrue);
  midi().messageIn(144, 127, 1);
  EXPECT_EQ(v().chan(128, kMidiColumn), 2);
  midi().messageIn(144, 127, 0);  // velocity 0 is a note off in effect
  EXPECT_EQ(v().chan(128, kMidiColumn), 0);
  EXPECT_EQ(v().chan(1, kMidiColumn), 254);
  for (int col = 0; col < kMidiColumn; ++col) EXPECT_EQ(v().chan(1, col), 0);
}

TEST_F(Midi, NonsenseMessagesAreHarmless) {
  for (auto [s, a, b] : {std::array{176, 0, 128},
                         {144, 500, 1},
                         {144, -1, 1},
                         {128, 1000, 0},
                         {240, 1, 2},
                         {-5, 0, 0},
                         {100000, 0, 0}})
    midi().messageIn(s, a, b);
  EXPECT_EQ(fader(3), 255);
  EXPECT_EQ(v().MixDirty, kFalse);
  EXPECT_EQ(midi().MidiEchoEnabled, kTrue);
}

TEST_F(Midi, EchoWaitsForTheFirstMessageAndNeedsAControllerAndAnOpenOutput) {
  v().SubMidi[0] = 9;
  midi().echo(3, 0);
  openPorts();
  midi().echo(3, 0);
  EXPECT_TRUE(out.sent.empty()) << "no echo before the first message";

  midi().messageIn(254, 0, 0);  // any message, even one not listened to
  EXPECT_EQ(midi().MidiEchoEnabled, kTrue);
  midi().echo(4, 0);  // strip 2 has no controller
  midi().echo(3, 0);
  midi().echo(3, 128);
  midi().echo(3, 255);
  ASSERT_EQ(out.sent.size(), 3u);
  // Always channel 1; half the level, 127.5 at the top stopping at 127.
  EXPECT_EQ(out.sent[0].status, 176);
  EXPECT_EQ(out.sent[0].data1, 9);
  EXPECT_EQ(out.sent[0].data2, 127);
  EXPECT_EQ(out.sent[1].data2, 64);  // 63.5, half to even
  EXPECT_EQ(out.sent[2].data2, 0);

  midi().closePorts();
  midi().echo(3, 0);
  EXPECT_EQ(out.sent.size(), 3u);
  EXPECT_EQ(midi().openOutput(), nullptr);
}

TEST_F(Midi, AFaderMovedByMidiIsNotEchoedButTheSameFaderByMouseIs) {
  if (!form1().Fader(3).onChange) GTEST_SKIP() << "strips have no fader handler yet";
  v().SubMidi[0] = 12;
  openPorts();
  in.arrive({{176, 12, 64}});
  EXPECT_EQ(fader(3), 127);
  EXPECT_TRUE(out.sent.empty());
  form1().Fader(3).setPosition(0);
  ASSERT_EQ(out.sent.size(), 1u);
  EXPECT_EQ(out.sent[0].data1, 12);
  EXPECT_EQ(out.sent[0].data2, 127);
}

TEST_F(Midi, ABurstIsHandledToTheLastMessage) {
  v().SubMidi[0] = 5;
  openPorts();
  int moves = 0;
  form1().Fader(3).addViewListener([&] { ++moves; });
  std::vector<MidiMessage> burst;
  for (int i = 0; i < 10000; ++i) burst.push_back({176, 5, i % 2 ? 0 : 127});
  burst.push_back({144, 41, 50});
  in.arrive(burst);
  EXPECT_EQ(moves, 10000);
  EXPECT_EQ(in.waiting(), 0);
  EXPECT_EQ(v().chan(42, kMidiColumn), 100);
}

// Show control rides the same input, between the controllers' messages.
TEST_F(Midi, SysExFromThePortReachesShowControl) {
  v().SubMidi[0] = 5;
  openPorts();
  MidiMessage go;
  go.status = 0xF0;
  go.sysex = {0xF0, 0x7F, 0x01, 0x02, 0x01, 0x01, 0xF7};
  MidiMessage foreign = go;
  foreign.sysex[2] = 0x09;
  in.arrive({{176, 5, 0}, foreign, go, {176, 5, 127}});
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  EXPECT_EQ(get("MscIgnored"), "1");
  EXPECT_EQ(fader(3), 1);
}

TEST_F(Midi, PortErrorsAreShownUnlessHarmless) {
  in.onError(0, "fine");
  in.onError(8, "dropped");
  in.onError(3, "device unplugged");
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_NE(dialogs.shown[0].find("device unplugged"), std::string::npos);
}

TEST_F(Midi, OpeningSelectsDevicesByListPosition) {
  openPorts(2, 1);
  EXPECT_EQ(in.log, (std::vector<std::string>{"device 1", "open", "start", "long"}));
  EXPECT_EQ(out.log, (std::vector<std::string>{"device -1", "open"}));  // the default destination

  // Applying again closes what is open first.
  in.log.clear();
  out.log.clear();
  openPorts(0, 0);
  EXPECT_EQ(in.log, (std::vector<std::string>{"stop", "close"}));
  EXPECT_EQ(out.log, (std::vector<std::string>{"close"}));
  EXPECT_FALSE(in.isOpen());
  EXPECT_FALSE(out.isOpen());
}

TEST_F(Midi, AFailedOutputIsReportedAndLeavesTheInputOpen) {
  out.failOpen = true;
  midi().MidiInIndex = 1;
  midi().MidiOutIndex = 3;
  EXPECT_EQ(midi().ApplyMidiPorts(), 0);
  EXPECT_TRUE(in.isOpen());
  EXPECT_EQ(out.device, 1);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0], "MSGBOX Open MIDI Output port | Cannot open MIDI Output port");
  EXPECT_EQ(std::count(in.log.begin(), in.log.end(), "long"), 0);
}

TEST_F(Midi, AFailedInputStopsSilentlyBeforeTheOutput) {
  in.failOpen = true;
  midi().MidiInIndex = 1;
  midi().MidiOutIndex = 2;
  EXPECT_EQ(midi().ApplyMidiPorts(), 0);
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_TRUE(out.log.empty());
}

TEST_F(Midi, UnloadClosesOpenPorts) {
  openPorts();
  in.log.clear();
  midi().closePorts();
  EXPECT_EQ(in.log, (std::vector<std::string>{"stop", "close"}));
  EXPECT_FALSE(out.isOpen());
  in.log.clear();
  midi().closePorts();
  EXPECT_TRUE(in.log.empty());
}

}  // namespace
}  // namespace q::test
