// The DMX USB PRO driver over a real pseudo-terminal, against the simulated
// widget: the byte link through termios, Init with a silent, a late and a
// proper widget, the quiet link, and packets the widget sends of its own.

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "engine/interfaces/dmxusbpro_driver.h"
#include "engine/interfaces/serial_link.h"
#include "platform/serial/termios_port.h"
#include "support/console_fixture.h"
#include "widget_sim.h"

namespace q::test {
namespace {

using namespace std::chrono_literals;

void pause(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }

// Waits up to a second for a condition the simulator's thread makes true.
template <class Cond>
bool eventually(Cond cond) {
  for (int i = 0; i < 100; ++i) {
    if (cond()) return true;
    pause(10);
  }
  return cond();
}

class WidgetOnPty : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!sim.start()) GTEST_SKIP() << "no pseudo-terminal on this machine";
    link = std::make_unique<SerialLink>(std::make_unique<TermiosPort>(), sim.path());
    DMXUSBPRO_Driver::Host host;
    host.wait = pause;
    host.trace = [this](const std::string& t) { traces.push_back(t); };
    pro = std::make_unique<DMXUSBPRO_Driver>(*link, host);
  }
  sim::WidgetSim sim;
  std::unique_ptr<SerialLink> link;
  std::unique_ptr<DMXUSBPRO_Driver> pro;
  std::vector<std::string> traces;
};

TEST_F(WidgetOnPty, AProperWidgetOpensAtTheFirstCall) {
  EXPECT_TRUE(pro->Init(0, 6, false));
  EXPECT_TRUE(pro->IsOpen());
  EXPECT_EQ(pro->Get_FirmwareVersion(), "1.44");
  EXPECT_EQ(pro->Get_FPS(), 40);
  ASSERT_TRUE(eventually([&] { return sim.frames().size() == 1; }));
  EXPECT_EQ(sim.frames()[0].data, std::vector<uint8_t>(513, 0)) << "the all-zero frame";
  EXPECT_EQ(sim.lastDataWithLabel(3), (std::vector<uint8_t>{0, 0}));
  EXPECT_EQ(sim.badPackets(), 0);
}

TEST_F(WidgetOnPty, ASilentWidgetIsAskedTwiceAndStaysClosed) {
  sim.setSilent(true);
  EXPECT_FALSE(pro->Init(0, 6, false));
  EXPECT_FALSE(pro->IsOpen());
  EXPECT_EQ(pro->InitTries, 2);
  EXPECT_TRUE(eventually([&] { return sim.packetsWithLabel(3) == 2; }));
  pro->Set_DMX_OUT(std::vector<uint8_t>(512, 5).data());
  pause(50);
  EXPECT_TRUE(sim.frames().empty());
}

TEST_F(WidgetOnPty, ALateWidgetIsCaughtByTheRetry) {
  sim.setReplyDelay(100);
  EXPECT_FALSE(pro->Init(0, 6, false)) << "the call that had to retry says false";
  EXPECT_TRUE(pro->IsOpen());
  EXPECT_EQ(pro->InitTries, 2);
}

TEST_F(WidgetOnPty, StandingLevelsKeepTheLinkQuiet) {
  ASSERT_TRUE(pro->Init(0, 6, false));
  std::vector<uint8_t> frame(512, 0);
  frame[0] = 255;
  frame[300] = 128;
  pro->Set_DMX_OUT(frame.data());
  pro->Set_DMX_OUT(frame.data());
  ASSERT_TRUE(eventually([&] { return sim.frames().size() >= 2; }));
  pause(100);
  const auto frames = sim.frames();
  ASSERT_EQ(frames.size(), 2u) << "the zero frame of Init, then one write for two calls";
  EXPECT_EQ(frames[1].data[0], 0) << "start code";
  EXPECT_EQ(frames[1].data[1], 255);
  EXPECT_EQ(frames[1].data[301], 128);
}

TEST_F(WidgetOnPty, InputFromTheWidgetIsReadAndBadPacketsAreDropped) {
  ASSERT_TRUE(pro->Init(0, 6, false));
  sim.sendReceivedDmx(0, {0, 10, 20, 30});
  pause(30);
  EXPECT_EQ(pro->parsePacket(pro->receivePacket()), 0);
  EXPECT_EQ(pro->Get_DMX_IN(1), 20);

  sim.sendChangeOfState(0, {0b00000110, 0, 0, 0, 0}, {77, 88});
  pause(30);
  pro->parsePacket(pro->receivePacket());
  EXPECT_EQ(pro->Get_DMX_IN(0), 77) << "position 1 is channel index 0";
  EXPECT_EQ(pro->Get_DMX_IN(1), 88);
  EXPECT_EQ(pro->Get_DMX_IN(2), 30);

  sim.sendRaw({0x7E, 5, 3, 0, 0, 0, 99, 0x00});  // wrong end byte
  pause(30);
  EXPECT_TRUE(pro->receivePacket().empty());
  EXPECT_EQ(traces.back(), "RX-> EOM is not valid");
  EXPECT_EQ(pro->Get_DMX_IN(0), 77);
}

// The console reaches the widget through the kernel's serial driver when
// WidgetPort names a device.
class SerialDevices : public DeviceFactory {
 public:
  std::unique_ptr<SerialPort> serialPort() override { return std::make_unique<TermiosPort>(); }
  void wait(int ms) override { pause(ms); }
};

class ConsoleWithWidgetOnPty : public ConsoleFixture {
 protected:
  ConsoleWithWidgetOnPty() { devices = &serial; }
  SerialDevices serial;
  sim::WidgetSim sim;
};

TEST_F(ConsoleWithWidgetOnPty, InterfaceTwoSendsChangedFramesToTheWidget) {
  if (!sim.start()) GTEST_SKIP() << "no pseudo-terminal on this machine";
  std::ofstream(path("Quintara.INI"))
      << "[Setup]\r\nInterface=2\r\nWidgetPort=" << sim.path() << "\r\n";
  console().start();
  ASSERT_TRUE(console().interfaces.widget().IsOpen());
  v().chan(2, kStageColumn) = 180;
  v().MixDirty = kTrue;
  advance(300);
  ASSERT_TRUE(eventually([&] { return sim.frames().size() == 2; }));
  EXPECT_EQ(sim.frames()[1].data[2], 180);
  console().unload();
  EXPECT_FALSE(console().interfaces.widget().IsOpen());
}

}  // namespace
}  // namespace q::test
