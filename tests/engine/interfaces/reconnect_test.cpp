// An adapter unplugged in the middle of a show and plugged in again: the
// loss is noticed at a failed write, told once, the console tries again by
// itself a second apart on its own clock, and the frames resume as soon as
// a try finds the adapter, with the lamp on the desk following. An adapter
// that never came up is not tried again; choosing it anew starts it.

#include <algorithm>
#include <fstream>

#include "engine/interfaces/dmxusbpro_driver.h"
#include "engine/interfaces/output_lamp.h"
#include "engine/interfaces/refreshrate.h"
#include "fake_devices.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class ReconnectTest : public ConsoleFixture {
 protected:
  ReconnectTest() { devices = &factory; }
  void startWith(int interfaceType) {
    std::ofstream(path("Quintara.INI")) << "[Setup]\r\nInterface=" << interfaceType << "\r\n";
    console().start();
  }
  FakeFtdi& chip() { return *factory.ftdis.at(0); }
  long count(const std::string& call) {
    return std::count(chip().calls.begin(), chip().calls.end(), call);
  }
  const std::string& caption() { return *lamp().captionText(); }
  OutputLamp& lamp() { return console().interfaces.outputLamp(); }
  // The chip gone from the USB bus: every call fails until it is back.
  void unplug() {
    chip().failures["open"] = FT_DEVICE_NOT_FOUND;
    chip().failures["write"] = FT_IO_ERROR;
  }
  void plugIn() { chip().failures.clear(); }
  void changeALevel(uint8_t level) {
    v().chan(1, kStageColumn) = level;
    v().MixDirty = kTrue;
  }
  FakeFactory factory;
};

TEST_F(ReconnectTest, AnOpenDmxUnpluggedIsToldOnceTriedEverySecondAndResumesWhenBack) {
  startWith(1);
  advance(300);
  EXPECT_EQ(caption(), "sending");
  EXPECT_EQ(lamp().picture(), "Led_On2");
  EXPECT_TRUE(lamp().visible());

  unplug();
  advance(100);  // the tick at 400 finds it gone
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX Quintara | Write Start Code Failed! The Enttec Open DMX USB does not answer: "
            "no DMX goes out through it until it is back. The console tries again every second "
            "and carries on by itself.");
  EXPECT_EQ(caption(), "not reachable");
  EXPECT_EQ(lamp().picture(), "");

  // Tries at 1400, 2400, 3400: none sooner than a second after the last.
  const long opensAtLoss = count("open 0");
  advance(900);
  EXPECT_EQ(count("open 0"), opensAtLoss);
  advance(100);
  EXPECT_EQ(count("open 0"), opensAtLoss + 1);
  advance(2000);
  EXPECT_EQ(count("open 0"), opensAtLoss + 3);
  EXPECT_EQ(dialogs.shown.size(), 1u) << "a try that finds nothing is no news";

  plugIn();
  const size_t writes = chip().writes.size();
  changeALevel(77);
  advance(1000);  // the try at 4400 finds it
  ASSERT_GT(chip().writes.size(), writes);
  EXPECT_EQ(chip().writes.back()[0], 77) << "the stage as it is now";
  EXPECT_EQ(caption(), "sending");
  EXPECT_EQ(count("resetDevice"), 2) << "the whole set-up again once the chip is found";

  // Lost again after frames went out again: news again.
  unplug();
  advance(100);
  EXPECT_EQ(dialogs.shown.size(), 2u);
}

TEST_F(ReconnectTest, TheMessageOfALossTakesNoAnswerAScriptQueued) {
  startWith(6);
  dialogs.queueAnswer("No");
  unplug();
  advance(100);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(console().dialogs().msgBox("Quintara", "Carry on?", MsgButtons::YesNo), MsgResult::No);
}

TEST_F(ReconnectTest, AChipThatOpensButStillRefusesItsFramesIsNotToldEverySecond) {
  startWith(9);
  chip().failures["write"] = FT_IO_ERROR;
  advance(5000);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_NE(dialogs.shown[0].find("The Nextec  Free USB DMX does not answer"), std::string::npos);
  EXPECT_GE(count("open 0"), 1 + 4) << "opened again every second all the same";
  EXPECT_EQ(caption(), "not reachable");
}

TEST_F(ReconnectTest, AnAdapterThatNeverCameUpIsNotTriedAgainUntilChosenAnew) {
  factory.prepareFtdi = [](FakeFtdi& f) { f.failures["open"] = FT_DEVICE_NOT_FOUND; };
  startWith(1);
  EXPECT_EQ(dialogs.shown, std::vector<std::string>{
                               "MSGBOX Quintara | Failed to open Enttec Open DMX USB device!"});
  advance(5000);
  EXPECT_EQ(count("open 0"), 1);
  EXPECT_EQ(caption(), "not reachable");

  // Plugged in later: the same device chosen again in the setup window starts it.
  plugIn();
  form1().menu("mnuInterface").click();
  Refreshrate& setup = console().interfaces.setupWindow();
  setup.ComboDevice.setListIndex(1);
  setup.btnOk.click();
  advance(200);
  EXPECT_EQ(count("open 0"), 2);
  EXPECT_EQ(caption(), "sending");
  EXPECT_FALSE(chip().writes.empty());

  // While it sends, choosing it again leaves it alone.
  form1().menu("mnuInterface").click();
  console().interfaces.setupWindow().btnOk.click();
  EXPECT_EQ(count("open 0"), 2);
}

TEST_F(ReconnectTest, AWidgetUnpluggedWhileTheLevelsStandIsFoundAndComesBackWithThem) {
  factory.prepareFtdi = [](FakeFtdi& f) { answerLikeAWidget(f); };
  startWith(2);
  changeALevel(150);
  advance(200);
  ASSERT_EQ(caption(), "sending");

  // Nothing changes on stage: the levels go again after a second, and that write finds it gone.
  unplug();
  advance(1000);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0].rfind("MSGBOX Quintara | The Enttec DMXUSB PRO does not answer", 0),
            0u);
  EXPECT_EQ(caption(), "not reachable");
  EXPECT_FALSE(console().interfaces.widget().IsOpen());

  const long opensAtLoss = count("open 0");
  advance(3000);
  EXPECT_EQ(count("open 0"), opensAtLoss + 3);
  EXPECT_EQ(dialogs.shown.size(), 1u);

  plugIn();
  const size_t writes = chip().writes.size();
  advance(1000);
  EXPECT_EQ(caption(), "sending");
  ASSERT_GE(chip().writes.size(), writes + 2) << "the question, then the frame";
  const std::vector<uint8_t>& frame = chip().writes.back();
  ASSERT_EQ(frame.size(), 518u);
  EXPECT_EQ(frame[1], 6);
  EXPECT_EQ(frame[5], 150) << "the levels the stage had";
  EXPECT_EQ(console().interfaces.widget().InitTries, 1) << "coming back is no Init";
}

TEST_F(ReconnectTest, AWidgetThatDidNotAnswerAtStartIsNotTried) {
  startWith(2);  // the chip is there, but nothing answers on it
  advance(5000);
  EXPECT_EQ(count("open 0"), 2) << "Init's own second try only";
  EXPECT_EQ(caption(), "not reachable");
  EXPECT_TRUE(dialogs.shown.empty()) << "the widget's start makes no noise";
}

TEST_F(ReconnectTest, TheLampFollowsOladAndHidesWhereThereIsNothingToWatch) {
  factory.olaUp = false;
  startWith(10);
  EXPECT_EQ(caption(), "not reachable");
  factory.olaLink->up = true;
  advance(1100);
  EXPECT_EQ(caption(), "sending");
  EXPECT_EQ(get("OutputLamp"), "Led_On2");

  console().interfaces.stopDMX();
  v().InterfaceType = 0;
  console().interfaces.startDMX();
  EXPECT_FALSE(lamp().visible());
  EXPECT_EQ(caption(), "");
  EXPECT_EQ(get("OutputLamp"), "");
}

}  // namespace
}  // namespace q::test
