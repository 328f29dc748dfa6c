// Incoming OSC: every address does what its console control does, through
// the socket's own delivery; what is no such message moves nothing and is counted.

#include <cmath>
#include <limits>

#include "../playback/playback_fixture.h"
#include "engine/remote/osc_link.h"
#include "fake_osc_port.h"

namespace q::test {
namespace {

OscMessage msg(std::string address, std::vector<OscArg> args = {}) {
  return {std::move(address), std::move(args)};
}
OscArg f(double x) { return OscArg::real(float(x)); }
OscArg i(int n) { return OscArg::integer(n); }

class OscIn : public PlaybackFixture {
 protected:
  void SetUp() override {
    console().osc.setPort(port);
    ASSERT_TRUE(console().osc.apply({.port = 9000}));
  }
  void send(OscMessage m) { port.deliver(m); }
  int ignored() { return std::stoi(get("OscIgnored")); }

  FakeOscPort port;
};

TEST_F(OscIn, TransportAddressesPressTheDesksKeys) {
  addCue({.number = "1", .u = "1", .d = "1", .levels = {{1, 255}}});
  addCue({.number = "2", .u = "5", .d = "5", .levels = {{2, 255}}});
  send(msg("/quintara/go"));
  EXPECT_EQ(get("Led_GO"), "Led_On2");
  advance(1200);
  EXPECT_EQ(get("STAGEMem"), "1");
  // A surface's button: 1 pressed, 0 let go; only the press acts.
  send(msg("/quintara/go", {f(1)}));
  send(msg("/quintara/go", {f(0)}));
  tick();
  tick();
  EXPECT_TRUE(fading());
  send(msg("/quintara/pause", {i(1)}));
  EXPECT_EQ(get("Paused"), "-1");
  send(msg("/quintara/pause"));
  EXPECT_EQ(get("Paused"), "0");
  send(msg("/quintara/cut"));
  advance(300);
  EXPECT_EQ(get("STAGEMem"), "2");
  send(msg("/quintara/back"));
  EXPECT_EQ(ignored(), 0);
  EXPECT_EQ(get("OscReceived"), "7");
}

TEST_F(OscIn, LevelsTakeIntegersAndFloats) {
  send(msg("/quintara/fader/1", {f(1.0)}));
  EXPECT_EQ(form1().Fader(3).position(), 0);
  send(msg("/quintara/fader/20", {i(1)}));
  EXPECT_EQ(form1().Fader(22).position(), 0);
  send(msg("/quintara/fader/20", {OscArg::precise(0.5)}));
  EXPECT_EQ(form1().Fader(22).position(), 127);
  send(msg("/quintara/grandmaster", {i(0)}));
  EXPECT_EQ(v().GrandMaster, 255);  // position 255: the handler ran
  send(msg("/quintara/xfade", {f(0.25)}));
  EXPECT_EQ(form1().Xfader.position(), 191);
  v().EditColumn = 1;
  send(msg("/quintara/chan/512", {f(1)}));
  EXPECT_EQ(stage(512), 255);
  send(msg("/quintara/blackout", {i(1)}));
  EXPECT_EQ(get("BlackOut"), "-1");
  send(msg("/quintara/blackout", {f(0)}));
  EXPECT_EQ(get("BlackOut"), "0");
  EXPECT_EQ(ignored(), 0);
}

TEST_F(OscIn, DirectAndCueLoadAsTyped) {
  addCue({.number = "7", .levels = {{3, 99}}});
  send(msg("/quintara/direct", {OscArg::string("1/3aff")}));
  EXPECT_EQ(stage(2), 255);
  send(msg("/quintara/cue/7/load"));
  EXPECT_EQ(get("PROGMem"), "7");
  EXPECT_EQ(prog(3), 99);
  send(msg("/quintara/cue/7/load", {i(0)}));  // the button let go
  EXPECT_EQ(ignored(), 0);
}

TEST_F(OscIn, WhatIsNoSuchMessageMovesNothingAndIsCounted) {
  addCue({.number = "7", .levels = {{3, 99}}});
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const std::vector<OscMessage> bad = {
      msg("/quintara/fader/0", {f(1)}),
      msg("/quintara/fader/21", {f(1)}),
      msg("/quintara/fader/1", {f(1.5)}),
      msg("/quintara/fader/1", {f(-0.1)}),
      msg("/quintara/fader/1", {OscArg::precise(nan)}),
      msg("/quintara/fader/1", {OscArg::string("1")}),
      msg("/quintara/fader/1"),
      msg("/quintara/fader/1", {f(1), f(1)}),
      msg("/quintara/fader/1x", {f(1)}),
      msg("/quintara/fader/-1", {f(1)}),
      msg("/quintara/fader/1/2", {f(1)}),
      msg("/quintara/fader/99999999999", {f(1)}),
      msg("/quintara/fader/", {f(1)}),
      msg("/quintara/chan/513", {f(1)}),
      msg("/quintara/chan/1", {OscArg::other()}),
      msg("/quintara/grandmaster", {i(2)}),
      msg("/quintara/xfade"),
      msg("/quintara/blackout", {i(2)}),
      msg("/quintara/blackout"),
      msg("/quintara/direct", {i(1)}),
      msg("/quintara/direct", {OscArg::string(std::string(300, '1'))}),
      msg("/quintara/cue/8/load"),
      msg("/quintara/cue/7.5/load"),
      msg("/quintara/cue/7"),
      msg("/quintara/cue/7/load", {OscArg::string("x")}),
      msg("/quintara/go", {OscArg::string("go")}),
      msg("/quintara/go", {i(1), i(1)}),
      msg("/quintara/GO"),
      msg("/quintara"),
      msg("/other/go"),
      msg(""),
  };
  for (const OscMessage& m : bad) send(m);
  EXPECT_EQ(ignored(), int(bad.size()));
  port.onMalformed();  // a packet that held no message
  EXPECT_EQ(ignored(), int(bad.size()) + 1);
  EXPECT_EQ(form1().Fader(3).position(), 255);
  EXPECT_EQ(form1().SMaster.position(), 0);
  EXPECT_EQ(get("BlackOut"), "0");
  EXPECT_EQ(get("PROGMem"), "");
  EXPECT_EQ(get("Led_GO"), "");
  EXPECT_EQ(get("DirectText"), "");
}

TEST_F(OscIn, SettingsAndFailuresAreTold) {
  EXPECT_EQ(get("OscStatus"), "OSC listens on 127.0.0.1:9000");
  port.refuse = true;
  EXPECT_FALSE(console().osc.apply({.port = 9000}));
  EXPECT_EQ(get("OscStatus"), "OSC can't listen on 127.0.0.1:9000: Address already in use");
  EXPECT_FALSE(port.isOpen());
  port.refuse = false;
  EXPECT_TRUE(console().osc.apply({.port = 0}));
  EXPECT_EQ(get("OscStatus"), "OSC off");

  IniFile ini(path("Quintara.INI"));
  ini.write("OSC", "Port", "70000");
  ini.write("OSC", "FeedbackPort", "9001.5");
  ini.write("OSC", "Address", "0.0.0.0");
  const OscConfig read = OscConfig::read(ini);
  EXPECT_EQ(read.port, 0);
  EXPECT_EQ(read.feedbackPort, 0);
  EXPECT_EQ(read.address, "0.0.0.0");
  EXPECT_EQ(read.feedbackHost, "127.0.0.1");
}

}  // namespace
}  // namespace q::test
