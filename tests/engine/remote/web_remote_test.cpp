// The browser remote's messages: what they do on the console, what a client
// must give first, and what it cannot do however it writes.

#include "engine/remote/web_remote.h"
#include "../playback/playback_fixture.h"
#include "engine/core/ini_file.h"
#include "engine/remote/json_message.h"
#include "engine/remote/web_remote_place.h"

namespace q::test {
namespace {

TEST(JsonMessage, ReadsFlatObjectsAndNothingElse) {
  auto o = readJsonObject(
      R"( {"do":"check","channel":12,"level":0.5,"x":true,"n":null,"s":"a\"\u00e9"} )");
  ASSERT_TRUE(o);
  EXPECT_EQ(*jsonText(*o, "do"), "check");
  EXPECT_EQ(*jsonNumber(*o, "channel"), 12);
  EXPECT_EQ(*jsonText(*o, "s"), "a\"\xc3\xa9");
  EXPECT_FALSE(jsonNumber(*o, "do"));  // a string is no number
  EXPECT_EQ(o->count("n"), 0u);
  for (const char* bad : {"", "{", "[1]", R"({"a":{"b":1}})", R"({"a":[1]})", R"({"a":1,})",
                          R"({"a":1} x)", R"({"a":"\q"})", R"({"a":1e999})", R"({"a":"\ud8)",
                          "{\"a\":\"\x01\"}", R"({a:1})", R"({"a":--1})"})
    EXPECT_FALSE(readJsonObject(bad)) << bad;
  EXPECT_FALSE(readJsonObject(std::string(5000, ' ') + "{}"));
  EXPECT_EQ(JsonWriter()
                .text("a", "q\"\n\x01")
                .number("b", 0.25)
                .open("c")
                .flag("d", true)
                .close()
                .done(),
            R"({"a":"q\"\n\u0001","b":0.25,"c":{"d":true}})");
}

TEST(RemotePinRule, WrongTriesWaitLongerAndARightOneStartsAgain) {
  EXPECT_EQ(RemotePin::fromRandom(42).pin(), "0042");
  EXPECT_EQ(RemotePin::fromRandom(123456).pin(), "3456");
  RemotePin pin("4821");
  using A = RemotePin::Answer;
  EXPECT_EQ(pin.attempt("0000", 0), A::Wrong);
  EXPECT_EQ(pin.attempt("0001", 0), A::Wrong);
  EXPECT_EQ(pin.waitMs(0), 0);
  EXPECT_EQ(pin.attempt("0002", 0), A::Wrong);
  EXPECT_EQ(pin.waitMs(0), 1000);
  EXPECT_EQ(pin.attempt("4821", 500), A::TooSoon);  // even the right one waits
  EXPECT_EQ(pin.attempt("0003", 1000), A::Wrong);
  EXPECT_EQ(pin.waitMs(1000), 2000);
  for (int i = 0; i < 20; ++i) pin.attempt("9999", 1000000 * (i + 1));
  EXPECT_EQ(pin.waitMs(20000000), RemotePin::kLongestWaitMs);
  EXPECT_EQ(pin.attempt("4821", 30000000), A::Right);
  EXPECT_EQ(pin.wrongTries(), 0);
}

TEST_F(ConsoleFixture, WebRemotePlaceFromTheSettingsOrTheCommandLine) {
  IniFile ini(console().homeDir() + "/web.ini");
  EXPECT_FALSE(readWebRemotePlace(ini, false).on());  // off unless asked for
  ini.write("Remote", "WebPort", "8080");
  WebRemotePlace p = readWebRemotePlace(ini, false);
  EXPECT_EQ(p.port, 8080);
  EXPECT_EQ(p.address, "127.0.0.1");
  EXPECT_FALSE(readWebRemotePlace(ini, true).on());  // -default: the built-in values
  ini.write("Remote", "WebAddress", "0.0.0.0");
  EXPECT_EQ(readWebRemotePlace(ini, false).address, "0.0.0.0");
  for (const char* bad : {"0", "70000", "80a", "-1", ""}) {
    ini.write("Remote", "WebPort", bad);
    EXPECT_FALSE(readWebRemotePlace(ini, false).on()) << bad;
  }
  ASSERT_TRUE(parseWebRemotePlace("[::1]:9000", p));
  EXPECT_EQ(p.address, "::1");
  EXPECT_EQ(p.port, 9000);
  ASSERT_TRUE(parseWebRemotePlace("9001", p));
  EXPECT_EQ(p.address, "127.0.0.1");
  for (const char* bad : {"", ":80", "desk:", "desk:0", "99999"})
    EXPECT_FALSE(parseWebRemotePlace(bad, p)) << bad;
}

class WebRemoteTest : public PlaybackFixture {
 protected:
  WebRemote& remote() {
    if (!remote_) remote_ = std::make_unique<WebRemote>(console());
    return *remote_;
  }
  std::string send(WebRemote::Client& c, const std::string& m, bool busy = false) {
    now_ += 100;
    return remote().receive(c, m, now_, busy);
  }
  int64_t now_ = 0;

 private:
  std::unique_ptr<WebRemote> remote_;
};

TEST_F(WebRemoteTest, APinIsWantedBeforeAnyActionWhenLocked) {
  addCue({.number = "1", .levels = {{1, 255}}});
  remote().lock(RemotePin("4821"));
  EXPECT_EQ(get("WebPin"), "4821");  // the desk and the command language read it here
  WebRemote::Client c = remote().newClient();
  EXPECT_EQ(remote().greeting(c, 0), R"({"t":"pin","wrong":false,"waitMs":0})");
  EXPECT_EQ(send(c, R"({"do":"go"})"), R"({"t":"pin","wrong":false,"waitMs":0})");
  EXPECT_EQ(get("Led_GO"), "");
  EXPECT_EQ(send(c, R"({"pin":"1111"})"), R"({"t":"pin","wrong":true,"waitMs":0})");
  EXPECT_EQ(send(c, R"({"pin":4821})"), R"({"t":"pin","wrong":false,"waitMs":0})");  // no text
  EXPECT_EQ(send(c, R"({"pin":"4821"})"), R"({"t":"admitted"})");
  EXPECT_EQ(send(c, R"({"do":"go"})"), "");
  EXPECT_EQ(get("Led_GO"), "Led_On2");
}

TEST_F(WebRemoteTest, ActionsDriveTheDeskAndTheStateShowsIt) {
  addCue({.number = "1", .u = "1", .levels = {{1, 255}}, .name = "Dawn"});
  addCue({.number = "2", .u = "10", .d = "10", .levels = {{2, 255}}, .name = "Storm"});
  WebRemote::Client c = remote().newClient();
  ASSERT_TRUE(c.admitted);
  // Nothing in Prog yet: GO passes the empty row and plays row 1.
  EXPECT_NE(remote().stateText().find(R"("next":{"row":1,"cue":"1","name":"Dawn"})"),
            std::string::npos);
  send(c, R"({"do":"go"})");
  advance(1500);
  std::string s = remote().stateText();
  EXPECT_NE(s.find(R"("stage":{"cue":"1","name":"Dawn"})"), std::string::npos) << s;
  EXPECT_NE(s.find(R"("next":{"row":2,"cue":"2","name":"Storm"})"), std::string::npos) << s;
  send(c, R"({"do":"go"})");
  advance(200);
  s = remote().stateText();
  EXPECT_NE(s.find(R"("fading":true)"), std::string::npos) << s;
  EXPECT_EQ(s.find(R"("progress":0,)"), std::string::npos) << s;
  send(c, R"({"do":"pause"})");
  EXPECT_NE(remote().stateText().find(R"("paused":true)"), std::string::npos);

  EXPECT_EQ(send(c, R"({"do":"gm","level":0.5})"), "");
  EXPECT_EQ(form1().SMaster.position(), 127);
  EXPECT_EQ(send(c, R"({"do":"gm","level":2})"), R"({"t":"refused","why":"out of range"})");
  EXPECT_EQ(send(c, R"({"do":"direct","text":"5a50"})"), R"({"t":"direct","text":""})");
  EXPECT_EQ(stage(5), 127);
  EXPECT_EQ(send(c, R"({"do":"direct","text":"0a50"})"), R"({"t":"direct","text":"0a50"})");
  EXPECT_EQ(send(c, R"({"do":"fly"})"), R"({"t":"refused","why":"unknown action"})");
  EXPECT_EQ(send(c, R"({"do":"go"})", true),
            R"({"t":"refused","why":"a dialog is open on the desk"})");
}

TEST_F(WebRemoteTest, ChannelCheckGivesEveryChannelBackItsLevel) {
  console();
  v().EditColumn = 1;
  WebRemote::Client c = remote().newClient();
  send(c, R"({"do":"direct","text":"3a20"})");
  ASSERT_EQ(stage(3), 51);
  send(c, R"({"do":"check","channel":2,"level":1})");
  EXPECT_EQ(stage(2), 255);
  send(c, R"({"do":"checkStep","delta":1})");
  EXPECT_EQ(stage(2), 0);
  EXPECT_EQ(stage(3), 255);
  send(c, R"({"do":"checkLevel","level":0.5})");
  EXPECT_EQ(stage(3), 128);
  v().EditColumn = 2;  // the operator turns to Prog meanwhile
  send(c, R"({"do":"checkStep","delta":1})");
  EXPECT_EQ(stage(3), 51);  // back where it was taken from
  EXPECT_EQ(prog(4), 128);
  EXPECT_EQ(send(c, R"({"do":"check","channel":513,"level":1})"),
            R"({"t":"refused","why":"out of range"})");
  EXPECT_EQ(send(c, R"({"do":"check","channel":4.5,"level":1})"),
            R"({"t":"refused","why":"out of range"})");
  EXPECT_EQ(send(c, R"({"do":"checkStep","delta":7})"), R"({"t":"refused","why":"out of range"})");
  EXPECT_NE(remote().stateText().find(R"("check":{"on":true,"channel":4,"level":0.5})"),
            std::string::npos);
  send(c, R"({"do":"checkOff"})");
  EXPECT_EQ(prog(4), 0);
  v().MaxChans = 4;
  send(c, R"({"do":"check","channel":4,"level":1})");
  send(c, R"({"do":"checkStep","delta":1})");  // no channel 5 on this console
  EXPECT_EQ(remote().channelCheck().channel(), 4);
}

TEST_F(WebRemoteTest, FloodsAndGarbageAreDroppedQuietly) {
  addCue({.number = "1"});
  WebRemote::Client c = remote().newClient();
  for (const char* junk : {"", "go", "{\"do\":", "{\"do\":[\"go\"]}", "\xff\xfe", "{\"do\":null}"})
    EXPECT_EQ(remote().receive(c, junk, 0, false), "");
  EXPECT_EQ(remote().receive(c, std::string(100000, '{'), 0, false), "");
  EXPECT_EQ(get("Led_GO"), "");
  // A flood within one moment: a burst is taken, the rest is not looked at.
  WebRemote::Client f = remote().newClient();
  int taken = 0;
  for (int i = 0; i < 100000; ++i)
    taken += remote().receive(f, R"({"do":"nothing"})", 1000, false).empty() ? 0 : 1;
  EXPECT_EQ(taken, int(WebRemote::kBurst));
  EXPECT_EQ(f.dropped, 100000 - long(WebRemote::kBurst));
  EXPECT_FALSE(remote().receive(f, R"({"do":"nothing"})", 1100, false).empty());  // refilled
}

}  // namespace
}  // namespace q::test
