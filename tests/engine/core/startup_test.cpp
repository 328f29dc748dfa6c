#include <gtest/gtest.h>

#include "engine/playback/cue_record.h"
#include "support/console_fixture.h"

namespace q {
namespace {

class StartupTest : public test::ConsoleFixture {};

TEST_F(StartupTest, StartValuesAndSplashSwitch) {
  console().start();
  EXPECT_TRUE(console().splashShown());
  EXPECT_EQ(form1().SMaster.position(), 0);
  EXPECT_EQ(form1().Xfader.position(), 255);
  EXPECT_EQ(form1().Fader(3).position(), 255);
  EXPECT_EQ(form1().FaderFunc(22).caption(), "SUB");
  EXPECT_EQ(v().StageLevel, 255);
  EXPECT_EQ(v().ProgLevel, 0);
  EXPECT_EQ(v().SubKnob[19], 1);
  EXPECT_EQ(get("ShowName"), "Unnamed");
}

TEST_F(StartupTest, OutputTickRunsTheMixWhenDirty) {
  console().start();
  v().MixDirty = kTrue;
  advance(99);
  EXPECT_EQ(v().MixDirty, kTrue);
  advance(1);  // DMXTimer at its default 100 ms
  EXPECT_EQ(v().MixDirty, kFalse);
}

TEST_F(StartupTest, CloseQuestionNoKeepsTheConsoleYesUnloads) {
  console().start();
  dialogs.queueAnswer("No");
  EXPECT_FALSE(console().queryClose());
  EXPECT_FALSE(console().closed());
  EXPECT_EQ(dialogs.shown.back(),
            "MSGBOX Confirmation | Are you sure you want to exit this program?");
  form1().menu("mnuExit").click();  // no answer queued: the first button, Yes
  EXPECT_TRUE(console().closed());
  EXPECT_FALSE(console().splashShown());
}

TEST_F(StartupTest, ResetDeskClearsScenesSubsAndCueDataButNotMidiOrHighCueColumns) {
  console().start();
  v().chan(1, 0) = 200;
  v().chan(1, 21) = 10;
  v().chan(1, 22) = 7;
  v().chan(5, 23) = 254;  // a held MIDI note stays lit through the reset
  v().CueCount = 2;
  v().Cues.setCell(2, 1, uint8_t{99});
  v().Cues.setCell(2, cue::kNumber, std::string("5"));
  v().Cues.setCell(2, cue::kAutoGo, std::string("1"));
  v().Cues.setCell(3, 1, uint8_t{50});  // past CueCount: left alone
  form1().Fader(4).setPosition(0);
  form1().Slabel(4).setText("Wash");
  form1().FaderFunc(4).setCaption("INV");
  v().MaxChans = 300;

  dialogs.queueAnswer("Cancel");
  form1().menu("mnuNew").click();
  EXPECT_EQ(v().chan(1, 0), 200);

  form1().menu("mnuNew").click();  // OK by default
  EXPECT_EQ(dialogs.shown.back(), "MSGBOX RESET DESK | Are you sure?");
  EXPECT_EQ(v().chan(1, 0), 0);
  EXPECT_EQ(v().chan(1, 21), 0);
  EXPECT_EQ(v().chan(1, 22), 7);
  EXPECT_EQ(v().chan(5, 23), 254);
  EXPECT_TRUE(isEmpty(v().Cues.Cell(2, 1)));
  EXPECT_TRUE(isEmpty(v().Cues.Cell(2, cue::kNumber)));
  EXPECT_EQ(get("Cues(2,522)"), "1");
  EXPECT_EQ(get("Cues(3,1)"), "50");
  EXPECT_EQ(v().CueCount, 2);
  EXPECT_EQ(form1().Fader(4).position(), 255);
  EXPECT_EQ(form1().Slabel(4).text(), "");
  EXPECT_EQ(form1().FaderFunc(4).caption(), "SUB");
  EXPECT_EQ(v().ChannelsRefreshing, kFalse);
  EXPECT_EQ(v().MaxChans, 300);  // written at the unload, read back at the load
}

TEST_F(StartupTest, MaxChannelsPromptTakesOnly20To512) {
  console().start();
  for (const char* typed : {"19", "513", "abc", "", "100"}) {
    dialogs.queueAnswer(typed);
    form1().menu("mnuMaxchans").click();
  }
  EXPECT_EQ(dialogs.shown.front(), "INPUTBOX Set Maximum channels | Maximum channels? | 128");
  EXPECT_EQ(v().MaxChans, 100);
  dialogs.queueAnswer("20");
  form1().menu("mnuMaxchans").click();
  EXPECT_EQ(v().MaxChans, 20);
}

}  // namespace
}  // namespace q
