// The twenty strips: what each function word makes of a fader move, the
// flash keys, the column selection and the channel menu.

#include <cmath>
#include <fstream>

#include "engine/submasters/fader_config.h"
#include "support/console_fixture.h"
#include "support/fake_media_player.h"

namespace q::test {
namespace {

// A player whose play state follows play and pause.
class StatefulPlayer : public FakeMediaPlayer {
 public:
  int state = 0;
  int playState() const override { return state; }
  void play() override {
    FakeMediaPlayer::play();
    state = 2;
  }
  void pause() override {
    FakeMediaPlayer::pause();
    state = 1;
  }
};

class StripTest : public ConsoleFixture {
 protected:
  StripTest() {
    players[0] = &p1;
    players[1] = &p2;
  }
  Scroller& fader(int n) { return form1().Fader(n); }
  void word(int n, const std::string& w) { form1().FaderFunc(n).setCaption(w); }
  void flash(int n, MouseButton b, bool down) {
    down ? form1().Flash(n).mouseDown(b) : form1().Flash(n).mouseUp(b);
  }
  StatefulPlayer p1, p2;
};

TEST(StripWords, EveryCaptionMeansItsWordExactlyOrNothing) {
  for (const FunctionWord& f : kFunctionWords) EXPECT_EQ(stripWordOf(f.word), f.meaning) << f.word;
  EXPECT_EQ(stripWordOf("MID"), StripWord::Mid);
  for (const char* none : {"", "sub", "SUB ", "SU", "XYZ"})
    EXPECT_EQ(stripWordOf(none), StripWord::None) << none;
}

// The mix and the strip handlers read the word kept beside the caption: it
// must follow every way the caption changes.
TEST_F(StripTest, TheKeptWordFollowsEveryWayTheCaptionChanges) {
  console().start();
  auto output1 = [&] {
    v().MixDirty = kTrue;
    advance(100);
    return int(v().DMXData[0]);
  };
  v().chan(1, kStageColumn) = 100;
  v().chan(1, 3) = 60;  // strip 4's column
  fader(4).setPosition(0);
  EXPECT_EQ(output1(), 100);

  std::ofstream(path("inv.qsm")) << "SUB:2\r\nFUNCTION:INV\r\n";
  console().files.load("submasters", path("inv.qsm"));
  EXPECT_EQ(form1().stripWord(4), StripWord::Inv);
  EXPECT_EQ(output1(), 40);

  word(4, "XYZ");  // no word: no part in the mix
  EXPECT_EQ(form1().stripWord(4), StripWord::None);
  EXPECT_EQ(output1(), 100);

  control(indexed("FaderCFG", 4)).mouseDown(MouseButton::Right);
  FaderConfig& config = console().submasters.config();
  config.Tipus.setListIndex(11);  // "CHASER 1 LEVEL"
  config.APPLY.click();
  EXPECT_EQ(form1().stripWord(4), StripWord::Lv1);
  fader(4).setPosition(55);
  EXPECT_EQ(v().FX1Level, 200);

  form1().menu("mnuNew").click();  // RESET DESK, answered OK
  EXPECT_EQ(form1().stripWord(4), StripWord::Sub);
  for (int n = kFirstStrip; n <= kLastStrip; ++n)
    EXPECT_EQ(form1().stripWord(n), stripWordOf(form1().FaderFunc(n).caption())) << n;
}

TEST_F(StripTest, LevelWordsStoreTheInvertedPosition) {
  struct Case {
    const char* word;
    std::function<int(Variables&)> target;
  };
  const Case cases[] = {
      {"SUB", [](Variables& v) { return v.SubLevel[2]; }},
      {"INV", [](Variables& v) { return v.SubLevel[2]; }},
      {"BYP", [](Variables& v) { return v.SubLevel[2]; }},
      {"SMA", [](Variables& v) { return v.SubMasterLevel; }},
      {"LV1", [](Variables& v) { return v.FX1Level; }},
      {"LV2", [](Variables& v) { return v.FX2Level; }},
      {"MID", [](Variables& v) { return v.MidiLevel; }},
  };
  for (const Case& c : cases) {
    word(5, c.word);
    fader(5).setPosition(55);
    EXPECT_EQ(c.target(v()), 200) << c.word;
    fader(5).setPosition(255);
    EXPECT_EQ(c.target(v()), 0) << c.word;
  }
}

TEST_F(StripTest, AudioWordsDriveThePlayersOnTheirScales) {
  word(3, "MP0");
  fader(3).setPosition(100);
  EXPECT_EQ(p1.volume(), -1200);
  word(4, "MP1");
  fader(4).setPosition(0);  // top: loudest
  fader(4).setPosition(255);
  EXPECT_EQ(p2.volume(), -3060);

  word(5, "A0B");
  for (auto [pos, balance] : {std::pair{0, -2000}, {127, 0}, {255, 2016}}) {
    fader(5).setPosition(pos);
    EXPECT_EQ(p1.balance(), balance) << pos;
  }
  word(6, "A1P");
  fader(6).setPosition(0);
  EXPECT_NEAR(p2.rate(), 255.0 / 127, 1e-6);
  fader(6).setPosition(255);  // held at 245 so that the rate never reaches 0
  EXPECT_NEAR(p2.rate(), 10.0 / 127, 1e-6);
  EXPECT_NEAR(v().Player2Rate, 10.0 / 127, 1e-6);
  word(7, "A0P");
  fader(7).setPosition(128);
  EXPECT_DOUBLE_EQ(v().Player1Rate, 1.0);
  EXPECT_DOUBLE_EQ(p1.rate(), 1.0);
}

TEST_F(StripTest, EveryMoveShowsThePercentAndDirtiesTheMix) {
  word(8, "XYZ");  // an unknown word moves nothing else
  const auto before = v().SubLevel;
  for (auto [pos, text] : {std::pair{0, "100"}, {127, "50"}, {250, "02"}, {255, "00"}}) {
    v().MixDirty = kFalse;
    fader(8).setPosition(pos);
    EXPECT_EQ(get("SLevel(8)"), text);
    EXPECT_EQ(v().MixDirty, kTrue);
  }
  EXPECT_EQ(v().SubLevel, before);
}

TEST_F(StripTest, LeftFlashGoesToFullAndBackOnRelease) {
  fader(5).setPosition(100);
  flash(5, MouseButton::Left, true);
  EXPECT_EQ(get("Flash(5)"), "imgFLASH");
  EXPECT_EQ(fader(5).position(), 0);
  EXPECT_EQ(v().SubLevel[2], 255);
  EXPECT_EQ(v().FlashHeldLevel, 100);
  flash(5, MouseButton::Left, false);
  EXPECT_EQ(fader(5).position(), 100);
  EXPECT_EQ(get("Flash(5)"), "");
}

TEST_F(StripTest, TwoOverlappingFlashesShareTheHeldLevel) {
  fader(5).setPosition(200);
  fader(6).setPosition(100);
  flash(5, MouseButton::Left, true);
  flash(6, MouseButton::Left, true);
  flash(5, MouseButton::Left, false);
  EXPECT_EQ(fader(5).position(), 100);  // the later press saved strip 6's position
  flash(6, MouseButton::Left, false);
  EXPECT_EQ(fader(6).position(), 100);
}

TEST_F(StripTest, RightFlashLatchesAndTheReleaseKeepsIt) {
  flash(3, MouseButton::Right, true);
  flash(3, MouseButton::Right, false);
  EXPECT_EQ(fader(3).position(), 0);
  flash(3, MouseButton::Right, true);
  EXPECT_EQ(fader(3).position(), 255);
  fader(3).setPosition(100);
  flash(3, MouseButton::Right, true);
  EXPECT_EQ(fader(3).position(), 255);
}

TEST_F(StripTest, ChaserLevelFlashLeavesTheRunStateAlone) {
  word(9, "LV1");
  fader(9).setPosition(200);
  flash(9, MouseButton::Left, true);
  EXPECT_EQ(v().FX1Level, 255);
  flash(9, MouseButton::Left, false);
  EXPECT_EQ(v().FX1Level, 55);
  EXPECT_FALSE(form1().FXTimer[0]->isEnabled());
}

TEST_F(StripTest, InhibitBypassAndMasterStripsHaveNoFlash) {
  for (const char* w : {"INV", "BYP", "SMA"}) {
    word(10, w);
    fader(10).setPosition(100);
    flash(10, MouseButton::Left, true);
    EXPECT_EQ(get("Flash(10)"), "imgFLASH") << w;
    EXPECT_EQ(fader(10).position(), 100) << w;
    flash(10, MouseButton::Left, false);
    flash(10, MouseButton::Right, true);
    flash(10, MouseButton::Right, false);
    EXPECT_EQ(fader(10).position(), 100) << w;
  }
}

TEST_F(StripTest, PlayerFlashIsPlayPauseAndItsRightKeyLoads) {
  word(11, "MP0");
  flash(11, MouseButton::Left, true);
  EXPECT_EQ(get("Flash(11)"), "imgFLASH");  // lit until release
  flash(11, MouseButton::Left, false);
  flash(11, MouseButton::Left, true);
  EXPECT_EQ(p1.calls, (std::vector<std::string>{"play", "pause"}));

  dialogs.queueAnswer("/show/intro.wav");
  flash(11, MouseButton::Right, true);
  EXPECT_EQ(p1.fileName(), "/show/intro.wav");
  EXPECT_EQ(get("Flash(11)"), "");
  flash(11, MouseButton::Right, true);  // cancelled: the file stays
  EXPECT_EQ(p1.fileName(), "/show/intro.wav");
}

TEST_F(StripTest, SelectorLightsOneColumnAndRightClickOpensConfig) {
  control("FaderCFG(7)").mouseDown(MouseButton::Left);
  EXPECT_EQ(v().EditColumn, 7);
  EXPECT_EQ(get("FaderCFG(7)"), "led_ON");
  control("FaderCFG(2)").mouseDown(MouseButton::Right);  // Prog: no dialog
  EXPECT_EQ(v().EditColumn, 2);
  EXPECT_EQ(get("FaderCFG(7)"), "");
  EXPECT_EQ(get("FaderCFG(2)"), "led_ON");
  EXPECT_FALSE(console().submasters.config().isVisible());
  control("FaderCFG(12)").mouseDown(MouseButton::Right);
  EXPECT_TRUE(console().submasters.config().isVisible());
}

TEST_F(StripTest, LabelDoubleClickSelectsWithoutTheSelector) {
  bool popped = false;
  console().submasters.onPopupLabelMenu = [&] { popped = true; };
  form1().Slabel(7).dblClick();
  EXPECT_EQ(v().EditColumn, 7);
  EXPECT_TRUE(popped);
  EXPECT_EQ(get("FaderCFG(7)"), "");
}

TEST_F(StripTest, OnlyAChannelsFileDroppedOnAStripSelectsIt) {
  control("Flash(6)").drop("/shows/wash.QCH");  // the ending is case-sensitive
  EXPECT_EQ(v().EditColumn, 1);
  control("SLevel(6)").drop("/shows/wash.qch");
  EXPECT_EQ(v().EditColumn, 6);
  EXPECT_EQ(get("FaderCFG(6)"), "led_ON");
}

TEST_F(StripTest, GrandMasterFaderWritesItsPositionUntilTheNextMix) {
  form1().SMaster.setPosition(100);
  EXPECT_EQ(v().GrandMaster, 100);
  console().mixer.MixOutput();
  EXPECT_EQ(v().GrandMaster, 155);
}

}  // namespace
}  // namespace q::test
