// OSC feedback: what changed goes out, each address at most 25 times a
// second with only its latest value kept, and the console's own look at
// itself reaches the destination.

#include <algorithm>

#include "../playback/playback_fixture.h"
#include "engine/remote/osc_feedback.h"
#include "engine/remote/osc_link.h"
#include "fake_osc_port.h"

namespace q::test {
namespace {

const OscMessage* find(const std::vector<OscMessage>& out, const std::string& address) {
  auto it = std::find_if(out.begin(), out.end(),
                         [&](const OscMessage& m) { return m.address == address; });
  return it == out.end() ? nullptr : &*it;
}

TEST(OscFeedbackRate, ChangesQueueAndEachAddressWaitsItsTurn) {
  OscFeedback fb;
  ShowState s;
  fb.update(s);
  std::vector<OscMessage> first = fb.take(0);
  EXPECT_EQ(first.size(), feedbackMessages(s).size());  // a new destination hears everything
  EXPECT_EQ(find(first, "/quintara/fade"), nullptr);    // no fade runs
  fb.update(s);
  EXPECT_TRUE(fb.take(100).empty());  // nothing changed, nothing sent

  // A fader swept within one turn: only its last value goes, when its turn comes.
  for (int k = 1; k <= 100; ++k) {
    s.strips[0] = k / 100.0;
    fb.update(s);
  }
  EXPECT_EQ(fb.waiting(), 1u);
  std::vector<OscMessage> out = fb.take(120);
  ASSERT_EQ(out.size(), 1u);
  EXPECT_EQ(out[0], (OscMessage{"/quintara/fader/1", {OscArg::real(1.0f)}}));
  s.strips[0] = 0.5;
  fb.update(s);
  EXPECT_TRUE(fb.take(159).empty());  // 39 ms after the last one
  EXPECT_EQ(fb.take(160).size(), 1u);

  s.fading = true;
  s.fadeProgress = 0.25;
  s.stageCue = "3";
  fb.update(s);
  out = fb.take(200);
  ASSERT_NE(find(out, "/quintara/fade"), nullptr);
  EXPECT_EQ(find(out, "/quintara/fading")->args[0], OscArg::integer(1));
  EXPECT_EQ(find(out, "/quintara/stage/cue")->args[0], OscArg::string("3"));
}

class OscOut : public PlaybackFixture {
 protected:
  void SetUp() override { console().osc.setPort(port); }
  FakeOscPort port;
};

TEST_F(OscOut, TheConsoleSendsWhatItShowsWhileADestinationIsSet) {
  addCue({.number = "4", .u = "1", .d = "1", .levels = {{1, 255}}, .name = "Sunrise"});
  ASSERT_TRUE(console().osc.apply({.port = 0}));
  advance(200);
  EXPECT_TRUE(port.sent.empty());  // no OSC, no feedback

  ASSERT_TRUE(console().osc.apply({.port = 9000, .feedbackPort = 9001}));
  EXPECT_EQ(port.destination, "127.0.0.1:9001");
  EXPECT_EQ(get("OscStatus"), "OSC listens on 127.0.0.1:9000, feedback to 127.0.0.1:9001");
  advance(40);
  EXPECT_EQ(port.sent.size(), feedbackMessages(ShowState{}).size());
  port.sent.clear();

  go();
  advance(40);
  EXPECT_EQ(find(port.sent, "/quintara/golamp")->args[0], OscArg::integer(1));
  advance(1200);
  EXPECT_EQ(find(port.sent, "/quintara/stage/cue")->args[0], OscArg::string("4"));
  EXPECT_EQ(find(port.sent, "/quintara/stage/name")->args[0], OscArg::string("Sunrise"));
  EXPECT_NE(find(port.sent, "/quintara/fade"), nullptr);
  port.sent.clear();

  // A second of a fader moved every millisecond: at most 25 messages on its address.
  for (int ms = 0; ms < 1000; ++ms) {
    form1().Fader(3).setPosition(ms % 256);
    advance(1);
  }
  const auto n = std::count_if(port.sent.begin(), port.sent.end(), [](const OscMessage& m) {
    return m.address == "/quintara/fader/1";
  });
  EXPECT_LE(n, 25);
  EXPECT_GE(n, 24);
}

}  // namespace
}  // namespace q::test
