// The interface setup window: what acts at once (the interval and loop bars,
// the device list), what waits for "Ok" (ports, channels, the stop and start
// of adapters), and the close box that applies nothing further.

#include <fstream>

#include "engine/interfaces/dmxusbpro_driver.h"
#include "engine/interfaces/ftdi_frame_sender.h"
#include "engine/interfaces/refreshrate.h"
#include "fake_devices.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class RefreshrateTest : public ConsoleFixture {
 protected:
  RefreshrateTest() {
    devices = &factory;
    factory.provideVelleman = true;
    factory.prepareFtdi = [](FakeFtdi& f) { answerLikeAWidget(f); };
  }
  Refreshrate& open(const std::string& setup = "") {
    if (!started_) {
      std::ofstream(path("Quintara.INI")) << "[Setup]\r\n" << setup;
      console().start();
      started_ = true;
    }
    form1().menu("mnuInterface").click();
    return console().interfaces.setupWindow();
  }
  FakeFactory factory;

 private:
  bool started_ = false;
};

TEST_F(RefreshrateTest, OpensOnTheConsolesCurrentSettings) {
  Refreshrate& w =
      open("DMXRate=40\r\nMaxChans=256\r\nPort=LPT2\r\nDataPresentLoop=70\r\nInterface=4\r\n");
  EXPECT_TRUE(w.isVisible());
  EXPECT_EQ(w.HScroll1.position(), 40);
  EXPECT_EQ(w.Text2.text(), "70 loop1");
  EXPECT_EQ(w.Text3.text(), "20 loop2");
  EXPECT_EQ(w.ComboDevice.listIndex(), 4);
  EXPECT_EQ(w.Combo1.text(), "256");
  EXPECT_EQ(w.CmbLPT.listIndex(), 1);
  EXPECT_TRUE(w.Frame3.visible());
  EXPECT_EQ(w.ComboDevice.count(), 11);
  EXPECT_EQ(w.ComboDevice.items()[10], "OLA (Open Lighting Architecture)");
}

TEST_F(RefreshrateTest, BarsActAtOnceBeforeOk) {
  Refreshrate& w = open();
  w.HScroll1.setPosition(25);
  EXPECT_EQ(form1().DMXTimer.interval(), 25);
  EXPECT_EQ(w.Text1.text(), "25");
  w.HScroll3.setPosition(900);
  EXPECT_EQ(v().HighClockLoop, 900);
  EXPECT_EQ(w.Text3.text(), "900");
  w.closeBox();
  EXPECT_EQ(form1().DMXTimer.interval(), 25) << "the close box takes nothing back";
}

TEST_F(RefreshrateTest, TheChannelBoxKeepsItsNumberBetween8And512) {
  Refreshrate& w = open();
  w.Combo1.setText("2000");
  EXPECT_EQ(w.Combo1.text(), "512");
  w.Combo1.setText("3");
  EXPECT_EQ(w.Combo1.text(), "8");
  w.Combo1.setText("300");  // not in the list, and taken
  w.ok();
  EXPECT_EQ(v().MaxChans, 300);
}

TEST_F(RefreshrateTest, ChoosingADeviceSwitchesTheTickAtOnceAndTheCloseBoxStartsNothing) {
  Refreshrate& w = open("Interface=1\r\n");
  FakeFtdi& chip = *factory.ftdis.at(0);
  w.ComboDevice.setListIndex(8);
  EXPECT_EQ(v().InterfaceType, 8);
  EXPECT_EQ(w.lblWeb.caption(), "https://www.velleman.eu");
  EXPECT_EQ(w.Image2.picture(), w.Image1[8]->picture());
  EXPECT_FALSE(w.Frame3.visible());
  const size_t calls = chip.calls.size();
  w.closeBox();
  EXPECT_EQ(console().windows.find("Refreshrate"), nullptr) << "unloaded";
  EXPECT_EQ(v().InterfaceType, 8);
  EXPECT_EQ(chip.calls.size(), calls) << "the old adapter is not stopped";
  EXPECT_TRUE(factory.vellemanLib == nullptr || factory.vellemanLib->calls.empty())
      << "the new one is not started";
}

TEST_F(RefreshrateTest, OkStopsTheOldAdapterAndStartsTheNew) {
  Refreshrate& w = open("Interface=1\r\n");
  FakeFtdi& chip = *factory.ftdis.at(0);
  w.ComboDevice.setListIndex(2);
  w.ok();
  EXPECT_EQ(console().windows.find("Refreshrate"), nullptr) << "unloaded";
  EXPECT_EQ(chip.calls.back(), "close");
  EXPECT_TRUE(console().interfaces.widget().IsOpen());
  // Re-choosing the adapter in force restarts nothing.
  const int tries = console().interfaces.widget().InitTries;
  open().ok();
  EXPECT_EQ(console().interfaces.widget().InitTries, tries);
}

TEST_F(RefreshrateTest, LeavingTheVellemanDoesNotStopIt) {
  Refreshrate& w = open("Interface=8\r\n");
  w.ComboDevice.setListIndex(0);
  w.ok();
  EXPECT_EQ(factory.vellemanLib->calls,
            (std::vector<std::string>{"StartDevice", "SetChannelCount 128"}));
}

TEST_F(RefreshrateTest, ParallelPortChoicesCapTheChannelsAndLptFarPortsAreNotThere) {
  Refreshrate& w = open();
  w.Combo1.setText("512");
  w.ComboDevice.setListIndex(4);
  w.CmbLPT.setListIndex(3);
  w.ok();
  EXPECT_EQ(v().MaxChans, 64);
  EXPECT_EQ(v().PortBase, 888) << "the base stays";
  EXPECT_EQ(dialogs.shown, std::vector<std::string>{"MSGBOX Quintara | Under development LPT4"});
  Refreshrate& again = open();
  EXPECT_EQ(again.Combo1.text(), "64");
  again.CmbLPT.setListIndex(1);
  again.ok();
  EXPECT_EQ(v().PortBase, 632);
}

TEST_F(RefreshrateTest, TheVendorLinkOpensInTheBrowser) {
  std::string opened;
  console().interfaces.openLink = [&](const std::string& url) { opened = url; };
  Refreshrate& w = open("Interface=10\r\n");
  w.lblWeb.click();
  EXPECT_EQ(opened, "https://www.openlighting.org/ola/");
}

}  // namespace
}  // namespace q::test
