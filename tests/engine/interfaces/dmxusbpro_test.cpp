// The DMX USB PRO driver against a fake FTDI link: the answer it waits for at
// Init and its one retry, the quiet link while levels stand, the packets it
// takes in and the ones it drops, and the configuration ranges.

#include <cstdio>
#include <fstream>

#include "engine/interfaces/dmxusbpro_driver.h"
#include "fake_devices.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class ProDriverTest : public ::testing::Test {
 protected:
  DMXUSBPRO_Driver::Host host() {
    DMXUSBPRO_Driver::Host h;
    h.message = [this](const std::string& t) { messages.push_back(t); };
    h.trace = [this](const std::string& t) { traces.push_back(t); };
    return h;
  }
  int labelCount(uint8_t label) const {
    int n = 0;
    for (const auto& w : link.writes) n += w.size() > 1 && w[1] == label;
    return n;
  }
  // Opens the driver against a widget that answers at once.
  void open() {
    answerLikeAWidget(link);
    ASSERT_TRUE(pro.Init(0, 6, false));
    link.writes.clear();
  }
  FakeFtdi link;
  std::vector<std::string> messages, traces;
  DMXUSBPRO_Driver pro{link, host()};
};

TEST_F(ProDriverTest, InitWithAProperReplyOpensAndSendsAnAllZeroFrame) {
  answerLikeAWidget(link);
  EXPECT_TRUE(pro.Init(0, 6, false));
  EXPECT_TRUE(pro.IsOpen());
  EXPECT_EQ(
      link.setupCalls(),
      (std::vector<std::string>{"countDevices", "open 0", "purge 1", "purge 2", "setLatencyTimer 1",
                                "setTimeouts 40 0", "write 7", "setTimeouts 40 0", "write 518"}));
  EXPECT_EQ(link.writes[0], packet(3, {0, 0}));
  const std::vector<uint8_t>& frame = link.writes[1];
  EXPECT_EQ(std::vector<uint8_t>(frame.begin(), frame.begin() + 4),
            (std::vector<uint8_t>{0x7E, 6, 0x01, 0x02}));
  EXPECT_EQ(frame.back(), 0xE7);
  EXPECT_EQ(pro.Get_FirmwareVersion(), "1.44");
  EXPECT_EQ(pro.Get_FPS(), 40);
  EXPECT_EQ(pro.Get_BreakTime(), 9);
  EXPECT_EQ(pro.Get_MABTime(), 1);
  EXPECT_EQ(pro.InitTries, 1);
  EXPECT_EQ(labelCount(8), 0) << "receive mode is asked only with output label 7";
}

TEST_F(ProDriverTest, ASilentWidgetGetsExactlyOneMoreTryInTheDriversLife) {
  EXPECT_FALSE(pro.Init(0, 6, false));
  EXPECT_FALSE(pro.IsOpen());
  EXPECT_EQ(pro.InitTries, 2);
  EXPECT_EQ(labelCount(3), 2);
  EXPECT_EQ(pro.Handle, 0u);
  // A third call fails on the silence at once; the count is never reset.
  EXPECT_FALSE(pro.Init(0, 6, false));
  EXPECT_EQ(labelCount(3), 3);
  EXPECT_EQ(pro.InitTries, 3);
}

TEST_F(ProDriverTest, AReplyThatComesOnlyToTheRetryOpensButTheFirstCallSaysFalse) {
  answerLikeAWidget(link, 1);
  EXPECT_FALSE(pro.Init(0, 6, false));
  EXPECT_TRUE(pro.IsOpen());
  EXPECT_EQ(pro.InitTries, 2);
}

TEST_F(ProDriverTest, InitRefusesWhatItCannotReach) {
  EXPECT_FALSE(pro.Init(0, 5, false)) << "only output labels 6 and 7";
  EXPECT_TRUE(link.calls.empty());
  link.devices = 1;
  EXPECT_FALSE(pro.Init(1, 6, false)) << "no second device";
  EXPECT_EQ(link.calls, std::vector<std::string>{"countDevices"});
  link.failures["open"] = FT_DEVICE_NOT_FOUND;
  EXPECT_FALSE(pro.Init(0, 6, false));
  EXPECT_EQ(pro.Handle, 0u);
}

TEST_F(ProDriverTest, AnAnswerOfAnotherKindLeavesTheWidgetClosed) {
  link.onWrite = [this](const std::vector<uint8_t>& w) {
    if (w[1] == 3) link.queue(packet(5, {0, 0, 1, 2}));
  };
  EXPECT_FALSE(pro.Init(0, 6, false));
  EXPECT_FALSE(pro.IsOpen());
  pro.Set_DMX_OUT(std::vector<uint8_t>(512, 9).data());
  EXPECT_EQ(labelCount(6), 0) << "nothing goes to a widget that has not answered";
}

TEST_F(ProDriverTest, OutputLabel7AlsoAsksForChangesOnly) {
  answerLikeAWidget(link);
  ASSERT_TRUE(pro.Init(0, 7, false));
  EXPECT_EQ(link.writes.back(), packet(8, {1}));
  EXPECT_EQ(link.writes[link.writes.size() - 2][1], 7);
}

TEST_F(ProDriverTest, FlashModeOpensWithoutAskingAnything) {
  EXPECT_TRUE(pro.Init(0, 6, true));
  EXPECT_TRUE(pro.IsOpen());
  EXPECT_TRUE(link.writes.empty());
}

TEST_F(ProDriverTest, TheLinkIsWrittenOnlyWhenALevelChanged) {
  open();
  std::vector<uint8_t> frame(512, 0);
  frame[0] = 200;
  frame[511] = 17;
  pro.Set_DMX_OUT(frame.data());
  pro.Set_DMX_OUT(frame.data());
  ASSERT_EQ(link.writes.size(), 1u);
  EXPECT_EQ(link.writes[0].size(), 518u);
  EXPECT_EQ(link.writes[0][5], 200);
  EXPECT_EQ(link.writes[0][516], 17);
  EXPECT_EQ(pro.Get_DMX_OUT(0), 200);
  EXPECT_EQ(pro.Get_DMX_OUT(511), 17);
  frame[100] = 1;
  pro.Set_DMX_OUT(frame.data());
  EXPECT_EQ(link.writes.size(), 2u);
}

TEST_F(ProDriverTest, AFailedWriteClosesAndTheOutputStaysQuietUntilInit) {
  open();
  link.failures["write"] = FT_IO_ERROR;
  std::vector<uint8_t> frame(512, 3);
  pro.Set_DMX_OUT(frame.data());
  EXPECT_FALSE(pro.IsOpen());
  EXPECT_EQ(pro.Handle, 0u);
  EXPECT_EQ(traces.back(), "TX-> Write Failed to Index: 0");
  link.failures.clear();
  frame[0] = 4;
  pro.Set_DMX_OUT(frame.data());
  EXPECT_TRUE(link.writes.empty());
}

TEST_F(ProDriverTest, ReceivedDmxAndChangeOfStateReachTheInputImage) {
  open();
  link.queue(packet(5, {0, 0, 10, 20, 30}));
  EXPECT_EQ(pro.parsePacket(pro.receivePacket()), 0);
  EXPECT_EQ(pro.Get_DMX_IN(0), 10);
  EXPECT_EQ(pro.Get_DMX_IN(2), 30);
  // Block 1 starts at position 8; bits 0 and 2 of the first byte and bit 7 of
  // the last: positions 8, 10 and 8 + 39 = 47 (channel indices 7, 9, 46).
  link.queue(packet(9, {1, 0b101, 0, 0, 0, 0b10000000, 111, 122, 133}));
  EXPECT_EQ(pro.parsePacket(pro.receivePacket()), 0);
  EXPECT_EQ(pro.Get_DMX_IN(7), 111);
  EXPECT_EQ(pro.Get_DMX_IN(8), 0);
  EXPECT_EQ(pro.Get_DMX_IN(9), 122);
  EXPECT_EQ(pro.Get_DMX_IN(46), 133);
  EXPECT_EQ(pro.Get_DMX_IN(0), 10) << "unchanged channels keep their level";
}

TEST_F(ProDriverTest, BrokenPacketsAreDroppedWhole) {
  open();
  // A wrong first byte costs the four header bytes, and no more.
  link.queue({0x00, 5, 3, 0});
  link.queue(packet(5, {0, 0, 55}));
  EXPECT_TRUE(pro.receivePacket().empty());
  EXPECT_EQ(traces.back(), "RX-> not start of message!!!");
  EXPECT_EQ(pro.parsePacket(pro.receivePacket()), 0);
  EXPECT_EQ(pro.Get_DMX_IN(0), 55);
  // A wrong end byte drops the packet.
  std::vector<uint8_t> bad = packet(5, {0, 0, 66});
  bad.back() = 0x00;
  link.queue(bad);
  EXPECT_TRUE(pro.receivePacket().empty());
  EXPECT_EQ(traces.back(), "RX-> EOM is not valid");
  EXPECT_EQ(pro.Get_DMX_IN(0), 55);
  // A body that never comes whole times out.
  link.queue({0x7E, 5, 10, 0, 1, 2});
  EXPECT_TRUE(pro.receivePacket().empty());
  EXPECT_EQ(traces.back(), "RX-> timeout! expected body length 10");
  EXPECT_TRUE(pro.IsOpen());
}

TEST_F(ProDriverTest, AFailedQueueQueryClosesThePort) {
  open();
  link.failures["getQueueStatus"] = FT_IO_ERROR;
  EXPECT_TRUE(pro.receivePacket().empty());
  EXPECT_FALSE(pro.IsOpen());
  EXPECT_EQ(traces.back(), "Usbread()-> Failed GetQueueStatus on Index: 0");
}

TEST_F(ProDriverTest, ConfigurationTakesOnlyItsRangesAndShowsAfterTheWidgetReplies) {
  for (int fps : {0, 41}) pro.Set_FPS(uint8_t(fps));
  for (int t : {8, 128}) pro.Set_BreakTime(uint8_t(t));
  for (int t : {0, 128}) pro.Set_MABTime(uint8_t(t));
  EXPECT_EQ(pro.FPS, 40);
  EXPECT_EQ(pro.BreakTime, 9);
  EXPECT_EQ(pro.MABTime, 1);
  pro.Set_FPS(1);
  pro.Set_BreakTime(127);
  pro.Set_MABTime(127);
  EXPECT_EQ(pro.Get_FPS(), 0) << "nothing to report before the widget answered";
  pro.Set_ApplyConfig();
  EXPECT_TRUE(link.writes.empty()) << "apply needs an open widget";
  open();
  pro.Set_ApplyConfig();
  EXPECT_EQ(link.writes.back(), packet(4, {0, 0, 127, 127, 1}));
  EXPECT_EQ(pro.Get_FPS(), 40) << "a setter shows only after the widget reports it";
  link.onWrite = nullptr;
  pro.RequestConfig();
  EXPECT_EQ(link.writes.back(), packet(3, {0xFC, 0x01})) << "508 user bytes at most";
  link.queue(packet(3, {44, 1, 127, 127, 1}));
  pro.parsePacket(pro.receivePacket());
  EXPECT_EQ(pro.Get_FPS(), 1);
  EXPECT_EQ(pro.Get_BreakTime(), 127);
}

TEST_F(ProDriverTest, FirmwareGoesOutPageByPageAndStopsAtARefusal) {
  const std::string file = ::testing::TempDir() + "/quintara-firmware.bin";
  std::ofstream(file, std::ios::binary) << std::string(96 * 64, 'x');
  ASSERT_TRUE(pro.Init(0, 6, true));
  int pages = 0;
  link.onWrite = [&](const std::vector<uint8_t>& w) {
    if (w[1] != 2) return;
    ++pages;
    link.queue(packet(2, pages == 3 ? std::vector<uint8_t>{'T', 'R', 'U', 'X'}
                                    : std::vector<uint8_t>{'T', 'R', 'U', 'E'}));
  };
  EXPECT_FALSE(pro.Firmware_Flash(file));
  EXPECT_EQ(pages, 3);
  EXPECT_EQ(traces.back(), "Firmware Update Failed Page: 3");
  EXPECT_EQ(link.writes[0], pro.ENTER_FLASH_MODE());

  pages = 100;  // every page accepted from now on
  link.writes.clear();
  EXPECT_TRUE(pro.Firmware_Flash(file));
  EXPECT_EQ(messages, std::vector<std::string>{"Firmware Updated"});
  EXPECT_EQ(link.writes.size(), 1u + 96u + 1u)
      << "flash mode, the pages, then the configuration request";
  EXPECT_EQ(link.writes.back(), packet(3, {0xFC, 0x01}));

  messages.clear();
  EXPECT_FALSE(pro.Firmware_Flash(file + ".missing"));
  EXPECT_EQ(messages.size(), 1u);
  std::remove(file.c_str());
}

// The widget as interface 2 of a console.
class ProConsoleTest : public ConsoleFixture {
 protected:
  ProConsoleTest() {
    devices = &factory;
    factory.prepareFtdi = [](FakeFtdi& f) { answerLikeAWidget(f); };
  }
  FakeFactory factory;
};

TEST_F(ProConsoleTest, StartsWithInitAndSendsOnlyChangedFramesOnTheTick) {
  std::ofstream(path("Quintara.INI")) << "[Setup]\r\nInterface=2\r\n";
  console().start();
  ASSERT_TRUE(console().interfaces.widget().IsOpen());
  FakeFtdi& link = *factory.ftdis.at(0);
  const size_t writes = link.writes.size();
  advance(1000);
  EXPECT_EQ(link.writes.size(), writes) << "standing levels keep the link quiet";
  v().DMXData[4] = 77;
  advance(100);
  ASSERT_EQ(link.writes.size(), writes + 1);
  EXPECT_EQ(link.writes.back()[4 + 1 + 4], 77);
  console().unload();
  EXPECT_EQ(link.calls.back(), "close");
  EXPECT_TRUE(dialogs.shown.empty()) << "the widget's failures make no noise";
}

}  // namespace
}  // namespace q::test
