// `get` of windows, of control captions and visibility, and of the media players.

#include <gtest/gtest.h>

#include "headless/interpreter_fixture.h"
#include "support/fake_media_player.h"

namespace q::test {

namespace {

TEST_F(InterpreterTest, AWindowsVisibleIsReadWithoutLoadingIt) {
  for (const char* w : {"Tecles", "Config", "Cuewin", "frmPatch"}) {
    SCOPED_TRACE(w);
    const std::string name = std::string(w) + ".Visible";
    EXPECT_EQ(run(("get " + name).c_str()), name + " = 0\n");
    EXPECT_EQ(console().windows.find(w), nullptr);
  }
  EXPECT_EQ(run({"activate Tecles", "get Tecles.Visible"}), "Tecles.Visible = -1\n");
  console().windows.find("Tecles")->setVisible(false);
  EXPECT_EQ(run("get Tecles.Visible"), "Tecles.Visible = 0\n");  // loaded, but hidden
  form1().setVisible(true);
  EXPECT_EQ(run("get Form1.Visible"), "Form1.Visible = -1\n");
}

TEST_F(InterpreterTest, AWindowsCaptionIsItsTitleAndLoadsItAsFirstUseDoes) {
  EXPECT_EQ(run({"get Tecles.Caption", "get Config.Caption"}),
            "Tecles.Caption = Keyboard\nConfig.Caption = SliderConfig\n");
  EXPECT_NE(console().windows.find("Tecles"), nullptr);
  EXPECT_FALSE(console().windows.find("Tecles")->isVisible());
  EXPECT_EQ(run("get Tecles.Visible"), "Tecles.Visible = 0\n");
}

TEST_F(InterpreterTest, ControlsWithACaptionPrintIt) {
  form1().add<Label>("TestLabel", "Stage");
  auto& check = form1().add<CheckBox>("TestCheck");
  check.caption = "Random";
  form1().add<TextBox>("TestBox", "typed");
  EXPECT_EQ(run({"get TestLabel.Caption", "get TestCheck.Caption", "get Config.APPLY.Caption",
                 "get mnuFile.Caption"}),
            "TestLabel.Caption = Stage\nTestCheck.Caption = Random\n"
            "Config.APPLY.Caption = APPLY\nmnuFile.Caption = File\n");
  // A text box or a fader has no caption.
  for (const char* line : {"get TestBox.Caption", "get SMaster.Caption"})
    EXPECT_EQ(run(line).rfind("ERROR line ", 0), 0u) << line;
}

TEST_F(InterpreterTest, AControlsVisibleIsItsOwnNotItsWindows) {
  run("activate Tecles");
  console().registry.find("Tecles.BTN(1)")->setVisible(false);
  EXPECT_EQ(run({"get Tecles.Visible", "get Tecles.BTN(1).Visible", "get Tecles.BTN(2).Visible",
                 "get SMaster.Visible"}),
            "Tecles.Visible = -1\nTecles.BTN(1).Visible = 0\nTecles.BTN(2).Visible = -1\n"
            "SMaster.Visible = -1\n");
}

// A player that reports a state other than the silent one's.
class PlayingPlayer : public FakeMediaPlayer {
 public:
  int state = 2;
  int playState() const override { return state; }
};

TEST_F(InterpreterTest, ThePlayersPrintTheirPropertiesInTheirOwnUnits) {
  PlayingPlayer second;
  players[1] = &second;
  console().WMP(0).setFileName("/shows/intro.wav");
  console().WMP(0).setVolume(-3060);
  console().WMP(0).setBalance(2016);
  console().WMP(0).setRate(128.0 / 127.0);
  console().WMP(0).setVisible(true);
  EXPECT_EQ(
      run({"get WMP(0).FileName", "get WMP(0).Volume", "get WMP(0).Balance", "get WMP(0).Rate",
           "get WMP(0).Visible", "get WMP(0).Ready", "get WMP(0).PlayState"}),
      "WMP(0).FileName = /shows/intro.wav\nWMP(0).Volume = -3060\nWMP(0).Balance = 2016\n"
      "WMP(0).Rate = 1.00787401574803\nWMP(0).Visible = -1\nWMP(0).Ready = 0\n"
      "WMP(0).PlayState = 0\n");
  second.setRate(0.5);
  EXPECT_EQ(run({"get WMP(1).FileName", "get WMP(1).Rate", "get WMP(1).Visible", "get WMP(1).Ready",
                 "get WMP(1).PlayState"}),
            "WMP(1).FileName = \nWMP(1).Rate = 0.5\nWMP(1).Visible = 0\nWMP(1).Ready = -1\n"
            "WMP(1).PlayState = 2\n");
  for (const char* line : {"get WMP(2).Volume", "get WMP(0).Loudness", "get WMP(0)", "get WMP(0).",
                           "get WMP(-1).Rate", "get WMP(01).Rate"})
    EXPECT_EQ(run(line).rfind("ERROR line ", 0), 0u) << line;
}

}  // namespace
}  // namespace q::test
