// The real device links with nothing attached: a console without an adapter
// must find nothing quickly and go on. A test that needs a real FTDI adapter
// skips when none is plugged in.

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>

#include "engine/interfaces/open_dmx.h"
#include "platform/dmx_devices.h"
#include "platform/ftdi/libftdi_device.h"
#include "platform/ola/ola_client_sender.h"
#include "platform/serial/termios_port.h"
#include "widget_sim.h"

namespace q::test {
namespace {

using Clock = std::chrono::steady_clock;

TEST(TermiosPort, RefusesWhatIsNotATerminal) {
  const std::string file = ::testing::TempDir() + "/quintara-not-a-tty";
  std::ofstream(file) << "x";
  TermiosPort port;
  EXPECT_FALSE(port.open(file));
  EXPECT_FALSE(port.open("/dev/quintara-no-such-device"));
  EXPECT_EQ(port.available(), -1);
  std::remove(file.c_str());
}

TEST(TermiosPort, AReadWaitsNoLongerThanItsTimeout) {
  sim::WidgetSim sim;
  if (!sim.start()) GTEST_SKIP() << "no pseudo-terminal on this machine";
  TermiosPort port;
  ASSERT_TRUE(port.open(sim.path()));
  uint8_t buf[4];
  const auto t0 = Clock::now();
  EXPECT_EQ(port.read(buf, 4, 40), 0);
  const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - t0).count();
  EXPECT_GE(ms, 35);
  EXPECT_LT(ms, 400);
}

TEST(LibFtdiDevice, WithoutAnAdapterNothingOpensAndOpenDmxSaysSo) {
  LibFtdiDevice chip;
  int count = -1;
  EXPECT_EQ(chip.countDevices(count), FT_OK);
  if (count > 0) GTEST_SKIP() << "an FTDI adapter is attached; this checks the case without one";
  EXPECT_EQ(chip.open(0), FT_DEVICE_NOT_FOUND);
  std::vector<std::string> messages;
  OpenDmx dmx(chip, {[&](const std::string& t) { messages.push_back(t); }, {}});
  EXPECT_FALSE(dmx.OpenDmxOpenDevice());
  EXPECT_EQ(messages, std::vector<std::string>{"Failed to open Enttec Open DMX USB device!"});
  dmx.OpenDmxCopyFrame(std::vector<uint8_t>(512, 1).data());
  EXPECT_EQ(dmx.OpenDmxSend(), OpenDmx::kSent) << "a closed adapter sends nothing";
}

TEST(LibFtdiDevice, AnAttachedAdapterTakesTheDmxSetup) {
  LibFtdiDevice chip;
  int count = 0;
  chip.countDevices(count);
  if (count == 0) GTEST_SKIP() << "no FTDI adapter attached (vendor 0403)";
  std::vector<std::string> messages;
  OpenDmx dmx(chip, {[&](const std::string& t) { messages.push_back(t); }, {}});
  if (!dmx.OpenDmxOpenDevice())
    GTEST_SKIP() << "FTDI adapter present but not usable: " << messages.at(0);
  EXPECT_EQ(dmx.OpenDmxSend(), OpenDmx::kSent);
  EXPECT_EQ(dmx.OpenDmxBytesWritten, 512u);
  dmx.OpenDmxClose();
  EXPECT_TRUE(messages.empty());
}

TEST(OlaClientSender, FindsNoOladOnAPortWhereNoneListens) {
  OlaClientSender ola;
  const auto t0 = Clock::now();
  EXPECT_FALSE(ola.connect(1));  // a privileged port no olad uses
  EXPECT_FALSE(ola.send(1, std::vector<uint8_t>(512, 0).data(), 512));
  EXPECT_LT(Clock::now() - t0, std::chrono::seconds(2)) << "a missing olad must not stall the tick";
}

// An olad that stops reading (hung, stopped in a debugger): its socket fills,
// and then a frame fails after a short wait instead of blocking the line.
TEST(OlaClientSender, AnOladThatStopsReadingFailsAFrameInsteadOfHoldingTheLine) {
  const int listener = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in at{};
  at.sin_family = AF_INET;
  at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof at;
  ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&at), size), 0);
  ASSERT_EQ(listen(listener, 1), 0);  // connections are never accepted, nothing is read
  ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&at), &size), 0);

  OlaClientSender ola;
  ASSERT_TRUE(ola.connect(ntohs(at.sin_port)));
  const std::vector<uint8_t> frame(512, 7);
  Clock::duration slowest{};
  bool failed = false;
  for (int n = 0; n < 200000 && !failed; ++n) {
    const auto t0 = Clock::now();
    failed = !ola.send(1, frame.data(), 512);
    slowest = std::max(slowest, Clock::now() - t0);
  }
  EXPECT_TRUE(failed) << "the full socket shows as a lost link";
  EXPECT_LT(slowest, std::chrono::seconds(2));
  EXPECT_FALSE(ola.send(1, frame.data(), 512)) << "and stays lost until connected again";
  ola.disconnect();
  close(listener);
}

TEST(RealDevices, GiveEveryLinkTheConsoleAsksFor) {
  DeviceFactory& real = realDevices();
  EXPECT_NE(real.ftdi(), nullptr);
  EXPECT_NE(real.serialPort(), nullptr);
  EXPECT_NE(real.ola(), nullptr);
  EXPECT_EQ(real.sunlite(), nullptr) << "vendor libraries do not exist here";
  EXPECT_TRUE(real.wireThread());
}

}  // namespace
}  // namespace q::test
