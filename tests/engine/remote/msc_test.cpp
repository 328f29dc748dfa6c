// MIDI Show Control: which SysEx messages are commands to this console, and
// what each command does through MidiControl as the input port delivers it.

#include <string>
#include <vector>

#include "../playback/playback_fixture.h"
#include "engine/remote/msc.h"

namespace q::test {
namespace {

using Bytes = std::vector<uint8_t>;

// F0 7F dev 02 fmt cmd <data> F7
Bytes msc(int device, int format, int command, const std::string& data = {}) {
  Bytes b = {0xF0, 0x7F, uint8_t(device), 0x02, uint8_t(format), uint8_t(command)};
  b.insert(b.end(), data.begin(), data.end());
  b.push_back(0xF7);
  return b;
}

TEST(MscParse, CommandsForThisConsoleOnly) {
  using K = MscCommand::Kind;
  EXPECT_EQ(parseMsc(msc(1, 1, 1), 1), (MscCommand{K::Go, ""}));
  EXPECT_EQ(parseMsc(msc(127, 0x7F, 1, "12.5"), 1), (MscCommand{K::Go, "12.5"}));
  EXPECT_EQ(parseMsc(msc(5, 1, 1,
                         std::string("3\0"
                                     "1\0"
                                     "2",
                                     5)),
                     5),
            (MscCommand{K::Go, "3"}));
  EXPECT_EQ(parseMsc(msc(1, 1, 2, "3"), 1), (MscCommand{K::Stop, ""}));
  EXPECT_EQ(parseMsc(msc(1, 1, 3), 1), (MscCommand{K::Resume, ""}));
  EXPECT_EQ(parseMsc(msc(1, 1, 0x0A), 1), (MscCommand{K::Reset, ""}));

  const std::vector<Bytes> foreign = {
      msc(2, 1, 1),                              // another device
      msc(0x70, 1, 1),                           // a group this console is not in
      msc(1, 0x10, 1),                           // sound
      msc(1, 1, 0x04),                           // TIMED_GO: not done here
      msc(1, 1, 1, "1.2.3"),                     // no cue number
      msc(1, 1, 1, ".5"),                        //
      msc(1, 1, 1, "5a"),                        //
      msc(1, 1, 1, std::string(1, char(0x85))),  // a status byte inside
      {0xF0, 0x7F, 1, 0x02, 1, 1},               // no end
      {0x7F, 1, 0x02, 1, 1, 0xF7},               // no start
      {0xF0, 0x7E, 1, 0x02, 1, 1, 0xF7},         // non-real-time
      {0xF0, 0x7F, 1, 0x01, 1, 1, 0xF7},         // MIDI time code
      {0xF0, 0x7F, 1, 0x02, 1, 0xF7},            // no command
      {0xF0, 0xF7},
      {},
  };
  for (const Bytes& b : foreign) EXPECT_FALSE(parseMsc(b, 1)) << b.size();
}

class Msc : public PlaybackFixture {
 protected:
  void sysex(const Bytes& b) { console().midi.sysexIn(b); }
};

TEST_F(Msc, EachCommandDoesWhatItsKeyDoes) {
  addCue({.number = "1", .u = "1", .d = "1", .levels = {{1, 255}}});
  addCue({.number = "2", .u = "5", .d = "5", .levels = {{2, 255}}});
  addCue({.number = "3", .u = "1", .d = "1", .levels = {{3, 255}}});
  sysex(msc(1, 1, 1));
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  advance(1200);
  EXPECT_EQ(get("STAGEMem"), "1");
  EXPECT_EQ(get("PROGMem"), "2");

  // GO 3: cue 3 into Prog first, then played.
  sysex(msc(127, 0x7F, 1, "3"));
  advance(1200);
  EXPECT_EQ(get("STAGEMem"), "3");
  EXPECT_EQ(stage(3), 255);

  sysex(msc(1, 1, 0x0A));  // RESET
  EXPECT_EQ(get("PROGMem"), "1");
  sysex(msc(1, 1, 1, "2"));  // the long fade
  tick();
  tick();
  ASSERT_TRUE(fading());
  sysex(msc(1, 1, 2));  // STOP pauses the fade
  EXPECT_EQ(get("Paused"), "-1");
  sysex(msc(1, 1, 2));  // and a second STOP keeps it paused
  EXPECT_EQ(get("Paused"), "-1");
  sysex(msc(1, 1, 3));  // RESUME
  EXPECT_EQ(get("Paused"), "0");
  EXPECT_EQ(get("MscIgnored"), "0");
}

TEST_F(Msc, ForeignOrUnknownCuesDoNothingAndAreCounted) {
  addCue({.number = "1", .levels = {{1, 255}}});
  console().midi.MscDeviceId = 9;
  sysex(msc(1, 1, 1));                    // not our device
  sysex(msc(9, 1, 1, "8"));               // no cue 8: no GO at all
  sysex({0xF0, 0x43, 0x10, 0x4C, 0xF7});  // a synthesiser's own message
  EXPECT_EQ(get("Led_GO"), "");
  EXPECT_EQ(get("PROGMem"), "");
  EXPECT_EQ(get("MscIgnored"), "3");
  sysex(msc(9, 1, 1, "1"));
  EXPECT_EQ(get("Led_GO"), "Led_On2");
}

}  // namespace
}  // namespace q::test
