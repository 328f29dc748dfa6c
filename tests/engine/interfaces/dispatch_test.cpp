// The three dispatches for the adapters beyond the FTDI family: the entries
// without output, the vendor libraries (found or missing), the Velleman's
// hand-over from inside the mix, and output through OLA.

#include <fstream>

#include "engine/interfaces/ftdi_frame_sender.h"
#include "engine/interfaces/interface_list.h"
#include "engine/interfaces/ola_output.h"
#include "engine/interfaces/refreshrate.h"
#include "engine/interfaces/vendor_adapters.h"
#include "fake_devices.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class DispatchTest : public ConsoleFixture {
 protected:
  DispatchTest() { devices = &factory; }
  void startWith(const std::string& setup) {
    std::ofstream(path("Quintara.INI")) << "[Setup]\r\n" << setup;
    console().start();
  }
  FakeFactory factory;
};

TEST_F(DispatchTest, NoneAndTheParallelPortEntriesProduceNothing) {
  console().start();
  for (int type : {0, 3, 4}) {
    SCOPED_TRACE(type);
    v().InterfaceType = uint8_t(type);
    console().interfaces.startDMX();
    advance(500);
    console().interfaces.stopDMX();
  }
  EXPECT_TRUE(factory.ftdis.empty());
  EXPECT_EQ(factory.olaLink, nullptr);
  EXPECT_TRUE(dialogs.shown.empty());
}

// Nothing the console reads or offers gives an InterfaceType beyond the
// adapter table; one put there all the same stands for no adapter anywhere.
TEST_F(DispatchTest, AnInterfaceTypeBeyondTheTableIsNoAdapter) {
  factory.provideSunlite = true;
  factory.provideVelleman = true;
  console().start();
  for (int type : {kAdapterCount, 255}) {
    SCOPED_TRACE(type);
    v().InterfaceType = uint8_t(type);
    console().interfaces.startDMX();
    v().chan(1, kStageColumn) = 200;
    v().MixDirty = kTrue;
    advance(300);
    console().interfaces.stopDMX();
    form1().menu("mnuInterface").click();
    EXPECT_EQ(console().interfaces.setupWindow().ComboDevice.text(), "-[ None ]-");
    console().interfaces.setupWindow().unload();
  }
  EXPECT_TRUE(factory.ftdis.empty());
  EXPECT_EQ(factory.olaLink, nullptr);
  EXPECT_EQ(factory.sunliteLib, nullptr);
  EXPECT_EQ(factory.vellemanLib, nullptr) << "no channel handed over from the mix";
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(DispatchTest, SunliteOpensSendsMaxChansAndClosesThroughItsLibrary) {
  factory.provideSunlite = true;
  startWith("Interface=5\r\nMaxChans=48\r\n");
  FakeSunlite& lib = *factory.sunliteLib;
  EXPECT_EQ(lib.commands, (std::vector<std::pair<int, int>>{{1, 0}, {3, 0}}));
  EXPECT_EQ(console().interfaces.sunlite().status, "Interface: found");
  lib.commands.clear();
  advance(200);
  EXPECT_EQ(lib.commands, (std::vector<std::pair<int, int>>{{4, 48}, {4, 48}}));
  lib.commands.clear();
  v().MaxChans = 0;  // cannot come from the menu; then nothing is sent or closed
  advance(200);
  console().interfaces.stopDMX();
  EXPECT_TRUE(lib.commands.empty());
  v().MaxChans = 48;
  console().interfaces.stopDMX();
  EXPECT_EQ(lib.commands, (std::vector<std::pair<int, int>>{{2, 48}}));
}

TEST_F(DispatchTest, AMissingSunliteLibraryFindsNothingAndSaysNothing) {
  startWith("Interface=5\r\n");
  EXPECT_EQ(console().interfaces.sunlite().SunliteHandle, 0);
  EXPECT_EQ(console().interfaces.sunlite().status, "Interface: not found");
  advance(500);
  console().unload();
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(DispatchTest, AnOksidThatDoesNotAnswerSaysSoTwiceOnOneTickAndTurnsOutputOff) {
  startWith("Interface=7\r\n");
  EXPECT_TRUE(dialogs.shown.empty()) << "no start step";
  advance(100);
  const std::string box = "MSGBOX  DMX ERROR |  3-1 DMX Adapter Not Connected or Not Responding";
  EXPECT_EQ(dialogs.shown, (std::vector<std::string>{box, box}));
  EXPECT_EQ(get("InterfaceType"), "0");
  advance(1000);
  EXPECT_EQ(dialogs.shown.size(), 2u);
  form1().menu("mnuInterface").click();
  EXPECT_EQ(console().interfaces.setupWindow().ComboDevice.text(), "-[ None ]-");
}

TEST_F(DispatchTest, TheVellemanTakesEachChannelFromInsideTheMix) {
  factory.provideVelleman = true;
  startWith("Interface=8\r\nMaxChans=64\r\n");
  FakeVelleman& lib = *factory.vellemanLib;
  EXPECT_EQ(lib.calls, (std::vector<std::string>{"StartDevice", "SetChannelCount 64"}));
  v().chan(3, kStageColumn) = 200;
  v().MixDirty = kTrue;
  advance(100);
  EXPECT_EQ(lib.levels[3], 200);
  EXPECT_EQ(lib.levels.size(), 64u) << "one call per channel in use";
  lib.levels.clear();
  advance(300);
  EXPECT_TRUE(lib.levels.empty()) << "levels go out only when a mix runs";
  console().unload();
  EXPECT_EQ(lib.calls.back(), "StopDevice");
}

// olad keeps its universe: the output tick hands it each new frame and the
// same frame again only about once a second. The tick keeps its beat, so a
// change waits for the next regular tick.
TEST_F(DispatchTest, OlaGetsEachChangeAtTheNextTickAndTheSameFrameOnceASecond) {
  startWith("Interface=10\r\nOlaUniverse=7\r\nOlaPort=9999\r\nDMXRate=100\r\n");
  FakeOla& ola = *factory.olaLink;
  EXPECT_EQ(ola.lastPort, 9999);
  advance(310);
  ASSERT_EQ(ola.sent.size(), 1u) << "the first frame at 100, then nothing new";
  v().DMXData[0] = 12;
  v().DMXData[511] = 34;
  advance(89);
  EXPECT_EQ(ola.sent.size(), 1u) << "a change waits for the tick at 400";
  advance(1);
  ASSERT_EQ(ola.sent.size(), 2u);
  EXPECT_EQ(ola.sent.back().first, 7u);
  EXPECT_EQ(ola.sent.back().second, std::vector<uint8_t>(v().DMXData.begin(), v().DMXData.end()));
  advance(999);
  EXPECT_EQ(ola.sent.size(), 2u);
  advance(1);
  EXPECT_EQ(ola.sent.size(), 3u) << "the keep-alive, a second after the last frame";

  console().interfaces.ContinuousOutput = true;
  advance(300);
  EXPECT_EQ(ola.sent.size(), 6u) << "continuous output: every tick";
  console().unload();
  EXPECT_FALSE(console().interfaces.ola().connected()) << "stopped at exit";
  std::ifstream in(path("Quintara.INI"));
  std::string text((std::istreambuf_iterator<char>(in)), {});
  EXPECT_NE(text.find("OlaUniverse=7\r\n"), std::string::npos);
  EXPECT_NE(text.find("ContinuousOutput=1\r\n"), std::string::npos);
}

// The output tick has nothing to do while the mix is clean and the adapter
// has nothing to take: a desk need not wake for it until a keep-alive or a
// change is due, and the adapters handed every frame always have work.
TEST_F(DispatchTest, TheOutputTickIsIdleOnlyWhileTheAdapterHasNothingToTake) {
  startWith("Interface=10\r\nDMXRate=100\r\n");
  advance(150);  // the first frame went to olad at 100
  v().MixDirty = kFalse;
  Scheduler& s = console().scheduler;
  EXPECT_EQ(s.nextDue(), 200);
  EXPECT_EQ(s.nextWake(), 1100) << "the keep-alive";
  v().MixDirty = kTrue;
  EXPECT_EQ(s.nextWake(), 200);
  v().MixDirty = kFalse;
  v().DMXData[0] = 1;  // a frame olad has not had
  EXPECT_EQ(s.nextWake(), 200);
  v().DMXData[0] = 0;
  console().interfaces.ContinuousOutput = true;
  EXPECT_EQ(s.nextWake(), 200);
  console().interfaces.ContinuousOutput = false;

  for (int type : {0, 3, 4, 8}) {
    v().InterfaceType = uint8_t(type);
    EXPECT_EQ(s.nextWake(), -1) << "interface " << type << " takes nothing per tick";
  }
  for (int type : {2, 5, 7}) {
    v().InterfaceType = uint8_t(type);
    EXPECT_EQ(s.nextWake(), 200) << "interface " << type << " takes every frame";
  }
  v().InterfaceType = 10;
}

// An FTDI line thread refreshes the wire by itself, so it too is handed only
// new frames and a keep-alive; without a line (a fake chip) the tick is the line.
TEST_F(DispatchTest, AnFtdiLineIsHandedNewFramesAndAKeepAliveOnly) {
  factory.wire = true;
  startWith("Interface=1\r\nDMXRate=100\r\n");
  const WireThread* line = console().interfaces.ftdiSender()->wire();
  ASSERT_NE(line, nullptr);
  advance(2100);
  EXPECT_EQ(line->handOvers(), 3u) << "at 100, then keep-alives at 1100 and 2100";
  v().DMXData[4] = 99;
  advance(100);
  EXPECT_EQ(line->handOvers(), 4u);
  console().interfaces.stopDMX();
}

TEST_F(DispatchTest, WithoutOladTheConsoleSaysSoOnceAndRetriesOnceASecond) {
  factory.olaUp = false;
  startWith("Interface=10\r\n");
  FakeOla& ola = *factory.olaLink;
  EXPECT_EQ(dialogs.shown,
            std::vector<std::string>{"MSGBOX Quintara | " + std::string(OlaOutput::kNotRunning)});
  advance(2950);
  EXPECT_EQ(ola.connects, 3) << "at start, then after one and two seconds";
  EXPECT_EQ(dialogs.shown.size(), 1u);
  ola.up = true;
  advance(1000);
  EXPECT_EQ(ola.connects, 4);
  EXPECT_FALSE(ola.sent.empty());
  // Lost again after being up: said once more, then the same patient retries.
  ola.up = false;
  advance(3000);
  EXPECT_EQ(dialogs.shown.size(), 2u);
  EXPECT_LE(ola.connects, 4 + 3);
}

TEST_F(DispatchTest, DefaultSwitchKeepsTheBuiltInOlaUniverse) {
  commandLine = "quintara -default";
  startWith("OlaUniverse=5\r\n");
  EXPECT_EQ(get("OlaUniverse"), "1");
}

}  // namespace
}  // namespace q::test
