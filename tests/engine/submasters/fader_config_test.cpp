// The fader configuration dialog: what it reads from a strip, and what APPLY
// writes back and where it leaves the fader.

#include "engine/submasters/fader_config.h"
#include "support/console_fixture.h"
#include "support/fake_media_player.h"

namespace q::test {
namespace {

class ConfigTest : public ConsoleFixture {
 protected:
  ConfigTest() { players[0] = &p1; }
  // Right click on the strip's selector, as the operator opens the dialog.
  FaderConfig& openOn(int n) {
    control(indexed("FaderCFG", n)).mouseDown(MouseButton::Right);
    return console().submasters.config();
  }
  void choose(FaderConfig& d, const std::string& text) {
    const auto& items = d.Tipus.items();
    d.Tipus.setListIndex(int(std::find(items.begin(), items.end(), text) - items.begin()));
  }
  FakeMediaPlayer p1;
};

TEST_F(ConfigTest, ListHoldsTheFunctionsInTableOrder) {
  console().start();
  auto* tipus = console().registry.find<ListBox>("Config.Tipus");
  ASSERT_NE(tipus, nullptr);
  const std::vector<std::string> expected = {
      "SUBMASTER",       "BYPASS",         "INHIBIT",        "SUBMASTER MASTER", "AUDIO 1 VOLUME",
      "AUDIO 1 BALANCE", "AUDIO 1 SPEED",  "AUDIO 2 VOLUME", "AUDIO 2 BALANCE",  "AUDIO 2 SPEED",
      "CHASER 1 SPEED",  "CHASER 1 LEVEL", "CHASER 2 SPEED", "CHASER 2 LEVEL"};
  EXPECT_EQ(tipus->items(), expected);
}

TEST_F(ConfigTest, OpensOnTheStripsWordExceptTheFourItCannotFind) {
  const std::pair<const char*, const char*> known[] = {
      {"SUB", "SUBMASTER"},      {"INV", "INHIBIT"},         {"SMA", "SUBMASTER MASTER"},
      {"MP0", "AUDIO 1 VOLUME"}, {"A0B", "AUDIO 1 BALANCE"}, {"LV2", "CHASER 2 LEVEL"}};
  for (auto [word, text] : known) {
    form1().FaderFunc(5).setCaption(word);
    FaderConfig& d = openOn(5);
    EXPECT_EQ(d.Tipus.text(), text) << word;
    d.unload();
  }
  for (const char* word : {"BYP", "A1B", "A0P", "A1P", "MID"}) {
    form1().FaderFunc(5).setCaption(word);
    FaderConfig& d = openOn(5);
    EXPECT_EQ(d.Tipus.listIndex(), -1) << word;
    d.APPLY.click();  // nothing selected: the strip keeps its word
    EXPECT_EQ(form1().FaderFunc(5).caption(), word);
  }
}

TEST_F(ConfigTest, ApplyBringsTheFaderToWhatTheStripNowControls) {
  v().SubMasterLevel = 200;
  form1().Fader(6).setPosition(10);
  const uint8_t subLevel = v().SubLevel[3];
  FaderConfig& d = openOn(6);
  choose(d, "SUBMASTER MASTER");
  v().MixDirty = kFalse;
  d.APPLY.click();
  EXPECT_EQ(form1().FaderFunc(6).caption(), "SMA");
  EXPECT_EQ(v().MixDirty, kTrue);
  EXPECT_EQ(form1().Fader(6).position(), 55);
  EXPECT_EQ(v().SubLevel[3], subLevel);                  // stale, no longer read
  EXPECT_EQ(console().windows.find("Config"), nullptr);  // APPLY unloads it

  struct Case {
    const char* text;
    int position;
  };
  form1().FXTimer[0]->setInterval(1000);
  p1.setVolume(-600);
  for (Case c : {Case{"AUDIO 1 SPEED", 127}, Case{"AUDIO 1 BALANCE", 127},
                 Case{"CHASER 1 SPEED", 200}, Case{"AUDIO 1 VOLUME", 50}}) {
    FaderConfig& dlg = openOn(6);
    choose(dlg, c.text);
    dlg.APPLY.click();
    EXPECT_EQ(form1().Fader(6).position(), c.position) << c.text;
  }
  choose(openOn(7), "AUDIO 1 SPEED");
  console().submasters.config().APPLY.click();
  EXPECT_NEAR(p1.rate(), 128.0 / 127, 1e-9);
}

TEST_F(ConfigTest, ApplyWritesControllerTooltipAndLook) {
  console().start();
  FaderConfig& d = openOn(8);
  EXPECT_EQ(d.txtMidiChannel.text(), "0");
  EXPECT_EQ(d.SelectedKnob, 1);  // SubKnob 1: colour 0, shape 1
  EXPECT_EQ(d.SelectedColor, 0);
  d.Tooltip.setText("Front wash");
  d.txtMidiChannel.setText("21");
  d.Knob(3).click();
  d.PicColor(2).click();
  EXPECT_TRUE(d.Knob(3).border());
  EXPECT_FALSE(d.Knob(1).border());
  d.APPLY.click();
  EXPECT_EQ(form1().Fader(8).toolTip, "Front wash");
  EXPECT_EQ(v().SubMidi[5], 21);
  EXPECT_EQ(v().SubKnob[5], 23);
  EXPECT_EQ(form1().Fader(8).knobPicture, "Knob(23)");

  FaderConfig& again = openOn(8);
  EXPECT_EQ(again.Tooltip.text(), "Front wash");
  EXPECT_EQ(again.SelectedColor, 2);
  EXPECT_TRUE(again.Knob(3).border());
}

TEST_F(ConfigTest, BadControllerStopsApplyAfterTheTooltipAndKeepsTheDialog) {
  for (const char* bad : {"abc", "", "256", "-3"}) {
    form1().FaderFunc(9).setCaption("SUB");
    FaderConfig& d = openOn(9);
    choose(d, "CHASER 2 LEVEL");
    d.Tooltip.setText(bad);
    d.txtMidiChannel.setText(bad);
    d.APPLY.click();
    EXPECT_EQ(form1().FaderFunc(9).caption(), "LV2") << bad;
    EXPECT_EQ(form1().Fader(9).toolTip, bad);
    EXPECT_EQ(v().SubMidi[6], 0) << bad;
    EXPECT_TRUE(d.isVisible()) << bad;
    d.unload();
  }
  EXPECT_EQ(dialogs.shown.size(), 4u);
}

}  // namespace
}  // namespace q::test
