// The machine's MIDI ports: messages handed over from RtMidi's thread reach
// the console's handler, all of them, and only on the console thread's pump;
// a machine without MIDI leaves the console without ports but running.

#include <gtest/gtest.h>
#include <poll.h>

#include <thread>

#include "platform/midi/rtmidi_ports.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class RtMidiPorts : public ConsoleFixture {
 protected:
  void SetUp() override { console().midi.setPorts(in, out); }
  bool wakeReadable() {
    pollfd p{in.wakeFd(), POLLIN, 0};
    return poll(&p, 1, 0) == 1;
  }
  void cc(int controller, int value) {
    const unsigned char m[3] = {176, uint8_t(controller), uint8_t(value)};
    in.received(m, 3);
  }

  RtMidiInPort in;
  RtMidiOutPort out;
};

TEST_F(RtMidiPorts, ABurstFromTheMidiThreadArrivesWhole) {
  v().SubMidi[0] = 3;
  in.start();
  int moves = 0;
  form1().Fader(3).addViewListener([&] { ++moves; });
  std::thread wire([&] {
    for (int i = 0; i < 10000; ++i) cc(3, i % 2 ? 0 : 127);
  });
  wire.join();
  EXPECT_EQ(moves, 0) << "nothing is handled off the console thread";
  ASSERT_TRUE(wakeReadable());
  in.pump();
  EXPECT_EQ(moves, 10000);
  EXPECT_EQ(in.waiting(), 0);
  EXPECT_FALSE(wakeReadable());
}

TEST_F(RtMidiPorts, OnlyAStartedPortTakesMessagesAndItsQueueIsBounded) {
  cc(0, 64);
  EXPECT_EQ(in.waiting(), 0);
  in.start();
  const unsigned char note[2] = {144, 60};  // a short message reads its missing byte as 0
  in.received(note, 2);
  for (size_t i = 0; i < RtMidiInPort::kQueueLimit + 10; ++i) cc(0, 1);
  EXPECT_EQ(size_t(in.waiting()), RtMidiInPort::kQueueLimit);
  EXPECT_EQ(in.oldest().status, 144);
  EXPECT_EQ(in.oldest().data2, 0);
  in.stop();
  in.pump();
  EXPECT_EQ(in.waiting(), 0);
}

TEST_F(RtMidiPorts, FailuresAreShownOnThePumpWarningsAreNot) {
  in.reportError(0, "a warning");
  in.reportError(109, "the sequencer went away");
  EXPECT_TRUE(dialogs.shown.empty());
  in.pump();
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_NE(dialogs.shown[0].find("the sequencer went away"), std::string::npos);
}

TEST_F(RtMidiPorts, AMissingDeviceStaysClosedAndSendsNowhere) {
  in.setDevice(in.deviceCount());
  in.open();
  EXPECT_FALSE(in.isOpen());
  out.setDevice(out.deviceCount() + 1);
  out.open();
  EXPECT_FALSE(out.isOpen());
  out.send(176, 300, -4);
  console().midi.MidiInIndex = int16_t(in.deviceCount() + 1);
  EXPECT_EQ(console().midi.ApplyMidiPorts(), 0);
  EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
}  // namespace q::test
