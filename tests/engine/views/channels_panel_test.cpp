// The channels panel: what opening, paging, a fader move and the flash keys
// write into the column under edit, the fence that keeps the panel's own
// repositioning out of the table, and the staleness until it is activated or paged.

#include <gtest/gtest.h>

#include "engine/views/channels_panel.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class ChannelsPanel : public ConsoleFixture {
 protected:
  void SetUp() override { console().start(); }
  Canals& open() {
    form1().menu("mnuChanWin").click();
    return *console().windows.find<Canals>("Canals");
  }
  // The level of a channel as a fader of the panel stands for it.
  static int levelOf(Canals& p, int i) { return 255 - p.Fader(i).position(); }
};

// --- opening ----------------------------------------------------------------

TEST_F(ChannelsPanel, OpensOnTheFirstPageOfTheColumnUnderEdit) {
  v().chan(1, 0) = 255;
  v().chan(32, 0) = 128;
  v().chan(33, 0) = 77;
  Canals& p = open();
  EXPECT_TRUE(p.isVisible());
  EXPECT_EQ(p.caption(), "Channels Stage");
  EXPECT_EQ(p.pageBase(), 0);
  EXPECT_EQ(levelOf(p, 0), 255);
  EXPECT_EQ(levelOf(p, 31), 128);
  EXPECT_EQ(p.SLevel(0).caption(), "100");
  EXPECT_EQ(p.SLevel(31).caption(), "50");
  EXPECT_EQ(p.Slabel(0).caption(), "1");
  EXPECT_EQ(p.Slabel(31).caption(), "32");
  EXPECT_EQ(p.Pagina(0).picture(), "led_ON");
  EXPECT_EQ(p.Label1(15).caption(), "481/512");
  EXPECT_EQ(p.Fader(0).knobPicture, "Knob(1)");
  EXPECT_EQ(p.backColor, console().colors.SkinBackColor);
}

TEST_F(ChannelsPanel, EveryLevelShowsItsPercentageFromTheFirstRefresh) {
  v().MixDirty = kFalse;
  Canals& p = open();
  // A fader already at its place ran its change handling all the same.
  for (int i = 0; i < Canals::kFaders; ++i) EXPECT_EQ(p.SLevel(i).caption(), "00") << i;
  EXPECT_EQ(v().MixDirty, kFalse) << "opening writes nothing";
}

TEST_F(ChannelsPanel, PagesBeyondTheChannelsInUseAreHiddenAtLoad) {
  for (auto [chans, shown] : {std::pair{32, 1}, {33, 2}, {128, 4}, {480, 15}, {512, 16}}) {
    v().MaxChans = int16_t(chans);
    Canals& p = open();
    for (int k = 0; k < Canals::kPages; ++k) {
      EXPECT_EQ(p.Pagina(k).visible(), k < shown) << chans << " page " << k;
      EXPECT_EQ(p.Label1(k).visible(), k < shown) << chans << " page " << k;
    }
    p.closeBox();
  }
}

TEST_F(ChannelsPanel, TheTitleNamesTheColumn) {
  const std::pair<int, const char*> titles[] = {{1, "Channels Stage"},
                                                {2, "Channels Program"},
                                                {3, "Channels Submaster 1"},
                                                {22, "Channels Submaster 20"}};
  for (auto [column, title] : titles) {
    v().EditColumn = int16_t(column);
    Canals& p = open();
    EXPECT_EQ(p.caption(), title);
  }
}

// --- a fader moved by the operator --------------------------------------------

TEST_F(ChannelsPanel, AFaderMoveWritesTheColumnUnderEditAndReachesTheNextFrame) {
  Canals& p = open();
  control("FaderCFG(5)").mouseDown(MouseButton::Left);  // submaster 3, column 5
  form1().Fader(5).setPosition(0);
  p.Refresca();
  v().MixDirty = kFalse;
  p.Fader(2).setPosition(55);
  EXPECT_EQ(v().chan(3, 4), 200);
  EXPECT_EQ(p.SLevel(2).caption(), "78");
  EXPECT_EQ(v().MixDirty, kTrue);
  advance(100);
  EXPECT_EQ(v().DMXData[2], 200);
}

TEST_F(ChannelsPanel, APageWritesItsOwnChannels) {
  Canals& p = open();
  control("Canals.Pagina(2)").click();
  EXPECT_EQ(p.pageBase(), 64);
  EXPECT_EQ(p.Pagina(2).picture(), "led_ON");
  EXPECT_EQ(p.Pagina(0).picture(), "");
  EXPECT_EQ(p.Slabel(0).caption(), "65");
  EXPECT_EQ(p.Slabel(31).caption(), "96");
  ASSERT_TRUE(console().registry.find<Scroller>("Canals.Fader(4)")->setPosition(0));
  EXPECT_EQ(v().chan(69, 0), 255);
  EXPECT_EQ(v().chan(5, 0), 0);
}

TEST_F(ChannelsPanel, TheLastPageOfFewChannelsStillShowsTheChannelsAboveThem) {
  v().MaxChans = 40;
  v().chan(60, 0) = 90;
  Canals& p = open();
  p.pageClick(1);
  EXPECT_EQ(levelOf(p, 27), 90);
  p.Fader(31).setPosition(0);
  EXPECT_EQ(v().chan(64, 0), 255);
}

// --- the fence and staleness ------------------------------------------------------

TEST_F(ChannelsPanel, TheRefreshMovesFadersWithoutWritingBack) {
  Canals& p = open();
  v().MixDirty = kFalse;
  int writes = 0;
  v().ChanTable.changes.listen([&](const TableChange&) { ++writes; });
  v().chan(7, 0) = 33;
  writes = 0;
  p.activate();
  EXPECT_EQ(levelOf(p, 6), 33);
  EXPECT_EQ(writes, 0);
  EXPECT_EQ(v().MixDirty, kFalse);
  EXPECT_EQ(v().ChannelsRefreshing, kFalse) << "the fence comes down after the refresh";
}

TEST_F(ChannelsPanel, AMoveDuringTheConsolesOwnRepositioningIsNotWritten) {
  Canals& p = open();
  v().ChannelsRefreshing = kTrue;
  p.Fader(0).setPosition(0);
  EXPECT_EQ(p.SLevel(0).caption(), "100") << "the percentage follows every move";
  EXPECT_EQ(v().chan(1, 0), 0);
  v().ChannelsRefreshing = kFalse;
}

TEST_F(ChannelsPanel, ItStaysAsItWasUntilActivatedOrPaged) {
  Canals& p = open();
  v().chan(2, 0) = 100;
  control("FaderCFG(2)").mouseDown(MouseButton::Left);  // Prog
  EXPECT_EQ(p.caption(), "Channels Stage");
  EXPECT_EQ(levelOf(p, 1), 0);
  // A fader moved meanwhile writes to the column now under edit.
  p.Fader(0).setPosition(5);
  EXPECT_EQ(v().chan(1, 1), 250);
  EXPECT_EQ(v().chan(1, 0), 0);
  p.activate();
  EXPECT_EQ(p.caption(), "Channels Program");
  EXPECT_EQ(levelOf(p, 1), 0);
  v().chan(2, 1) = 44;
  p.pageClick(0);
  EXPECT_EQ(levelOf(p, 1), 44);
}

// --- flash keys --------------------------------------------------------------------

TEST_F(ChannelsPanel, ALeftFlashHoldsFullAndGivesBackThePosition) {
  Canals& p = open();
  p.Fader(3).setPosition(155);
  v().MixDirty = kFalse;
  control("Canals.Flash(3)").mouseDown(MouseButton::Left);
  EXPECT_EQ(v().chan(4, 0), 255);
  EXPECT_EQ(p.flashByte(), 155);
  EXPECT_EQ(v().MixDirty, kTrue);
  v().MixDirty = kFalse;
  control("Canals.Flash(3)").mouseUp(MouseButton::Left);
  EXPECT_EQ(v().chan(4, 0), 100);
  EXPECT_EQ(v().MixDirty, kTrue);
}

TEST_F(ChannelsPanel, AFlashOnAFullFaderRemembersFull) {
  Canals& p = open();
  p.Fader(0).setPosition(0);
  p.flashDown(0, MouseButton::Left);
  EXPECT_EQ(p.flashByte(), 0);
  p.flashUp(0, MouseButton::Left);
  EXPECT_EQ(p.Fader(0).position(), 0);
}

TEST_F(ChannelsPanel, ARightFlashTogglesAndItsReleaseDoesNothing) {
  Canals& p = open();
  p.Fader(1).setPosition(100);
  p.flashDown(1, MouseButton::Right);
  EXPECT_EQ(p.Fader(1).position(), 255);
  p.flashUp(1, MouseButton::Right);
  EXPECT_EQ(p.Fader(1).position(), 255);
  p.flashDown(1, MouseButton::Right);
  EXPECT_EQ(p.Fader(1).position(), 0);
  EXPECT_EQ(v().chan(2, 0), 255);
}

TEST_F(ChannelsPanel, TheRememberedPositionIsOneForThePanel) {
  Canals& p = open();
  p.Fader(0).setPosition(200);
  p.Fader(1).setPosition(10);
  p.flashDown(0, MouseButton::Left);
  p.flashDown(0, MouseButton::Right);  // a right press during the left one
  EXPECT_EQ(p.Fader(0).position(), 255);
  p.flashUp(0, MouseButton::Left);
  EXPECT_EQ(p.Fader(0).position(), 200);
  // A second key pressed before the first is let go shares the byte.
  p.flashDown(0, MouseButton::Left);
  p.flashDown(1, MouseButton::Left);
  p.flashUp(0, MouseButton::Left);
  EXPECT_EQ(p.Fader(0).position(), 10);
}

TEST_F(ChannelsPanel, AnyOtherButtonLeavesTheFaderButDirtiesTheMix) {
  Canals& p = open();
  p.Fader(2).setPosition(70);
  v().MixDirty = kFalse;
  p.flashDown(2, MouseButton::None);
  p.flashUp(2, MouseButton::None);
  EXPECT_EQ(p.Fader(2).position(), 70);
  EXPECT_EQ(v().MixDirty, kTrue);
}

// --- the window's life -------------------------------------------------------------

TEST_F(ChannelsPanel, ResetDeskUnloadsItAndTheNextOpeningIsFresh) {
  Canals& p = open();
  p.pageClick(3);
  dialogs.queueAnswer("OK");
  form1().menu("mnuNew").click();
  EXPECT_EQ(console().windows.find("Canals"), nullptr);
  EXPECT_EQ(open().pageBase(), 0);
}

}  // namespace
}  // namespace q::test
