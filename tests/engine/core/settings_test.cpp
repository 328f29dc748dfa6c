#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine/interfaces/interface_list.h"
#include "support/console_fixture.h"

namespace q {
namespace {

std::string slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

void spit(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

class SettingsTest : public test::ConsoleFixture {
 protected:
  std::string ini() { return path("Quintara.INI"); }
};

TEST_F(SettingsTest, MissingFileGivesDefaultsAndExitWritesOnlyTheExitKeys) {
  console().start();
  EXPECT_EQ(v().MaxChans, 128);
  EXPECT_EQ(v().InterfaceType, 0);
  EXPECT_EQ(form1().DMXTimer.interval(), 100);
  EXPECT_TRUE(form1().DMXTimer.isEnabled());
  EXPECT_EQ(v().MidiLevel, 255);
  EXPECT_EQ(v().PatchMap[0], 1);
  EXPECT_EQ(v().PatchMap[511], 512);
  // The look's rebuild presses the selected column's selector, which dirties the mix.
  EXPECT_EQ(v().MixDirty, kTrue);
  console().unload();
  const std::string text = slurp(ini());
  for (const char* key :
       {"MaxChans=128", "Interface=0", "DMXRate=100", "Port=LPT1", "DataPresentLoop=50",
        "HighClockLoop=20", "LowClockLoop=20", "PercentValues=0", "SpaceKeyGo=0", "Channel=1"})
    EXPECT_NE(text.find(std::string(key) + "\r\n"), std::string::npos) << key;
  EXPECT_EQ(text.find("ValuesMode"), std::string::npos);
  EXPECT_EQ(text.find("Level"), std::string::npos);
}

TEST_F(SettingsTest, ReadsEveryKeyAndKeepsTheDeliberateAsymmetries) {
  spit(ini(),
       "[Setup]\nMaxChans=256\nInterface=3\nDMXRate=25\nPort=LPT3\nValuesMode=2\nSpaceKeyGo=1\n"
       "Skin=/tmp/x.bmp\nCustom=kept\n[Midi]\nChannel=5\nLevel=100\n[Recent]\nSnap0=/a.qsh\n"
       "Snap2=/c.qsh\n[Other]\nZ=1\n");
  console().start();
  EXPECT_EQ(v().MaxChans, 256);
  EXPECT_EQ(v().InterfaceType, 3);
  EXPECT_EQ(form1().DMXTimer.interval(), 25);
  EXPECT_EQ(v().PortBase, 632);  // anything but "LPT1" is the second port
  EXPECT_EQ(v().ValuesMode, 2);
  EXPECT_TRUE(form1().mnuValue(2).checked());
  EXPECT_FALSE(form1().mnuValue(0).checked());
  EXPECT_TRUE(form1().menu("mnuSpaceGO").checked());
  EXPECT_EQ(console().settings.skinFile, "/tmp/x.bmp");
  EXPECT_EQ(v().MidiChannel, 5);
  EXPECT_EQ(v().MidiLevel, 100);
  EXPECT_EQ(form1().mnuRecent(0).caption(), "/a.qsh");
  EXPECT_TRUE(form1().mnuRecent(0).visible());
  EXPECT_FALSE(form1().mnuRecent(1).visible());
  EXPECT_TRUE(form1().mnuRecent(2).visible());

  console().unload();
  const std::string text = slurp(ini());
  EXPECT_NE(text.find("Port=LPT2\r\n"), std::string::npos);
  EXPECT_NE(text.find("ValuesMode=2\r\n"), std::string::npos);  // read, never rewritten
  EXPECT_NE(text.find("Level=100\r\n"), std::string::npos);
  EXPECT_NE(text.find("Custom=kept\r\n"), std::string::npos);
  EXPECT_NE(text.find("[Other]\r\nZ=1\r\n"), std::string::npos);
  EXPECT_NE(text.find("Snap2=/c.qsh\r\n"), std::string::npos);
}

// What the settings file carries is readable by its console name, the
// parallel port's settings included; booleans as -1 and 0.
TEST_F(SettingsTest, EverySettingIsReadableByName) {
  spit(ini(),
       "[Setup]\nMaxChans=256\nInterface=4\nDMXRate=25\nPort=LPT2\nDataPresentLoop=70\n"
       "HighClockLoop=30\nLowClockLoop=10\nValuesMode=1\nSpaceKeyGo=1\nSkin=/tmp/x.bmp\n"
       "[Midi]\nChannel=5\nLevel=100\n");
  console().start();
  const std::vector<std::pair<const char*, const char*>> expected = {
      {"MaxChans", "256"},    {"InterfaceType", "4"},    {"DMXRate", "25"},
      {"LptBase", "632"},     {"DataPresentLoop", "70"}, {"HighClockLoop", "30"},
      {"LowClockLoop", "10"}, {"ValuesMode", "1"},       {"SpaceKeyGo", "-1"},
      {"MidiChannel", "5"},   {"MidiLevel", "100"}};
  for (auto [name, value] : expected) {
    const auto got = console().names.get(name);
    ASSERT_TRUE(got.has_value()) << name;
    EXPECT_EQ(*got, value) << name;
  }
  form1().menu("mnuSpaceGO").setChecked(false);
  EXPECT_EQ(get("SpaceKeyGo"), "0");
}

TEST_F(SettingsTest, DefaultSwitchIgnoresSetupButStillReadsRecentFiles) {
  spit(ini(), "[Setup]\nMaxChans=300\nDMXRate=40\nSkin=/tmp/x.bmp\n[Recent]\nSnap1=/b.qsh\n");
  commandLine = "quintara -default -nosplash";
  console().start();
  EXPECT_EQ(v().MaxChans, 128);
  EXPECT_EQ(form1().DMXTimer.interval(), 100);
  EXPECT_EQ(console().settings.skinFile, home() + "/skins/default.bmp");
  EXPECT_EQ(form1().mnuRecent(1).caption(), "/b.qsh");
  EXPECT_FALSE(console().splashShown());
}

TEST_F(SettingsTest, JunkAndDangerousValuesFallBackOrAreBroughtToSafety) {
  spit(ini(),
       "[Setup]\nMaxChans=9999\nInterface=banana\nDMXRate=0\nValuesMode=7\n"
       "LowClockLoop=\n[Midi]\nChannel=x\nLevel=999\n");
  console().start();
  EXPECT_EQ(v().MaxChans, 512);
  EXPECT_EQ(v().InterfaceType, 0);
  EXPECT_EQ(form1().DMXTimer.interval(), 1);
  EXPECT_EQ(v().ValuesMode, 0);
  EXPECT_EQ(v().LowClockLoop, 20);
  EXPECT_EQ(v().MidiChannel, 1);
  EXPECT_EQ(v().MidiLevel, 255);
}

TEST_F(SettingsTest, AnInterfaceBeyondTheAdapterTableReadsAsNone) {
  spit(ini(), "[Setup]\nInterface=" + std::to_string(kAdapterCount) + "\n");
  console().start();
  EXPECT_EQ(v().InterfaceType, 0);
  console().unload();
  EXPECT_NE(slurp(ini()).find("Interface=0\r\n"), std::string::npos);
}

TEST_F(SettingsTest, LongValuesAreCutTo128Characters) {
  spit(ini(), "[Recent]\nSnap0=" + std::string(200, 'a') + "\n");
  console().start();
  EXPECT_EQ(form1().mnuRecent(0).caption().size(), 128u);
}

}  // namespace
}  // namespace q
