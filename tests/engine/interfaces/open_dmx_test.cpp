// The FTDI frame senders (Open DMX USB, HumanData, Nextec) as the console
// drives them: the set-up sequence and its failures, the frame on the line,
// and a failing write (its loss and return are in reconnect_test).

#include <algorithm>
#include <fstream>

#include "engine/interfaces/ftdi_frame_sender.h"
#include "fake_devices.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class OpenDmxTest : public ConsoleFixture {
 protected:
  OpenDmxTest() { devices = &factory; }
  void startWith(int interfaceType) {
    std::ofstream(path("Quintara.INI")) << "[Setup]\r\nInterface=" << interfaceType << "\r\n";
    console().start();
  }
  FakeFtdi& chip() { return *factory.ftdis.at(0); }
  FakeFactory factory;
};

TEST_F(OpenDmxTest, SetsUpTheChipForDmxAndClearsTheFrame) {
  for (int type : {1, 6, 9}) {
    SCOPED_TRACE(type);
    if (!factory.ftdis.empty()) chip().calls.clear();
    v().DMXData.fill(7);
    v().InterfaceType = uint8_t(type);
    console().interfaces.startDMX();
    EXPECT_EQ(chip().setupCalls(),
              (std::vector<std::string>{"open 0", "resetDevice", "setDivisor 12",
                                        "setDataCharacteristics 8 2 0", "setFlowControl 0 0 0",
                                        "clrRts", "purge 2", "purge 1"}));
    EXPECT_EQ(v().DMXData[0], 0);
    EXPECT_EQ(v().DMXData[511], 0);
    EXPECT_TRUE(dialogs.shown.empty());
    console().interfaces.stopDMX();
    EXPECT_EQ(chip().calls.back(), "close");
  }
}

struct FailingStep {
  const char* call;
  const char* message;
};

class OpenDmxSetupFailure : public OpenDmxTest,
                            public ::testing::WithParamInterface<FailingStep> {};

TEST_P(OpenDmxSetupFailure, ShowsItsMessageOnceAndLeavesTheLineQuiet) {
  factory.prepareFtdi = [](FakeFtdi& f) { f.failures[GetParam().call] = FT_IO_ERROR; };
  startWith(1);
  EXPECT_EQ(dialogs.shown,
            std::vector<std::string>{std::string("MSGBOX Quintara | ") + GetParam().message});
  // The sequence stops at the failing step; a chip that did open is let go quietly.
  const std::vector<std::string> calls = chip().setupCalls();
  const std::string failing = GetParam().call;
  auto at = std::find_if(calls.begin(), calls.end(),
                         [&](const std::string& c) { return c.rfind(failing, 0) == 0; });
  ASSERT_NE(at, calls.end());
  EXPECT_EQ(std::vector<std::string>(at + 1, calls.end()),
            failing == "open" ? std::vector<std::string>{} : std::vector<std::string>{"close"});
  const size_t callsAfterStart = chip().calls.size();
  advance(1000);
  EXPECT_EQ(chip().calls.size(), callsAfterStart) << "no frame goes out after a failed start";
  console().interfaces.stopDMX();
  EXPECT_EQ(dialogs.shown.size(), 1u) << "closing an adapter that never opened shows nothing";
}

INSTANTIATE_TEST_SUITE_P(
    EachStep, OpenDmxSetupFailure,
    ::testing::Values(FailingStep{"open", "Failed to open Enttec Open DMX USB device!"},
                      FailingStep{"resetDevice", "Failed To Reset Enttec Open DMX USB Device!"},
                      FailingStep{"setDivisor", "Failed To Set Baud Rate!"},
                      FailingStep{"setDataCharacteristics", "Failed To Set Data Characteristics!"},
                      FailingStep{"setFlowControl", "Failed to set flow control!"},
                      FailingStep{"clrRts", "Failed to set RS485 to send!"}));

TEST_F(OpenDmxTest, PurgeFailuresNameTheirBuffer) {
  factory.prepareFtdi = [](FakeFtdi& f) { f.failures["purge 2"] = FT_IO_ERROR; };
  startWith(1);
  chip().failures = {{"purge 1", FT_IO_ERROR}};
  console().interfaces.stopDMX();
  console().interfaces.startDMX();
  EXPECT_EQ(dialogs.shown,
            (std::vector<std::string>{"MSGBOX Quintara | Failed to purge TX buffer!",
                                      "MSGBOX Quintara | Failed to purge RX buffer!"}));
}

TEST_F(OpenDmxTest, AFailedOpenTakesTheSplashAwayFirst) {
  factory.prepareFtdi = [](FakeFtdi& f) {
    f.devices = 0, f.failures["open"] = FT_DEVICE_NOT_FOUND;
  };
  startWith(1);
  EXPECT_FALSE(console().splashShown());
}

TEST_F(OpenDmxTest, EveryTickPutsBreakStartCodeAndAll512SlotsOnTheLine) {
  startWith(9);
  v().MaxChans = 20;
  v().chan(1, kStageColumn) = 11;
  v().MixDirty = kTrue;
  v().DMXData[511] = 99;  // above MaxChans: the mix leaves it, and it is sent all the same
  chip().calls.clear();
  console().outputTick();
  EXPECT_EQ(chip().calls,
            (std::vector<std::string>{"setBreakOn", "setBreakOff", "write 1", "write 512"}));
  ASSERT_GE(chip().writes.size(), 2u);
  EXPECT_EQ(chip().writes[chip().writes.size() - 2], std::vector<uint8_t>{0});
  const std::vector<uint8_t>& frame = chip().writes.back();
  EXPECT_EQ(frame[0], 11);
  EXPECT_EQ(frame[511], 99);
  // A frame goes out on every tick, changed or not.
  const size_t writes = chip().writes.size();
  advance(500);
  EXPECT_EQ(chip().writes.size(), writes + 2 * 5);
}

TEST_F(OpenDmxTest, StopClosesTheChipAndAFailingCloseSaysSo) {
  startWith(6);
  chip().failures["close"] = FT_IO_ERROR;
  console().interfaces.stopDMX();
  EXPECT_EQ(chip().calls.back(), "close");
  EXPECT_EQ(dialogs.shown,
            std::vector<std::string>{"MSGBOX Quintara | Close Enttec Open DMX USB Failed"});
  const size_t calls = chip().calls.size();
  console().interfaces.stopDMX();
  EXPECT_EQ(chip().calls.size(), calls) << "a second close finds nothing open";
}

TEST_F(OpenDmxTest, NoDeviceFactoryMeansNoDeviceFound) {
  devices = nullptr;
  startWith(1);
  EXPECT_EQ(dialogs.shown, std::vector<std::string>{
                               "MSGBOX Quintara | Failed to open Enttec Open DMX USB device!"});
  advance(1000);
  EXPECT_EQ(dialogs.shown.size(), 1u);
}

}  // namespace
}  // namespace q::test
