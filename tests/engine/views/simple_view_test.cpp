// The simple view: the cells and rows it shows for the channels in use, the
// selection by left and right presses, what a double click, All to zero,
// Next and Last, Text1 and the wheel write, folding, and staleness.

#include <gtest/gtest.h>

#include "engine/views/simple_view.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class SimpleView : public ConsoleFixture {
 protected:
  void SetUp() override { console().start(); }
  Simple& open() {
    form1().menu("mnuSimple").click();
    return *console().windows.find<Simple>("Simple");
  }
  std::vector<int> selected(Simple& s) {
    std::vector<int> on;
    for (int ch = 1; ch <= kChannels; ++ch)
      if (s.Canal(ch).selected()) on.push_back(ch);
    return on;
  }
  void turn(Simple& s, double from, double to) {
    s.wheelDown(from);
    s.wheelMove(to);
    s.wheelUp();
  }
};

// --- what it shows ------------------------------------------------------------

TEST_F(SimpleView, ShowsTheChannelsInUseAndTheRowsThatHoldThem) {
  v().MaxChans = 40;
  v().chan(3, 0) = 120;
  Simple& s = open();
  EXPECT_EQ(s.caption(), "Simple");
  EXPECT_TRUE(s.Canal(40).visible());
  EXPECT_FALSE(s.Canal(41).visible());
  EXPECT_TRUE(s.RowLabel(0).visible());
  EXPECT_TRUE(s.RowLabel(1).visible());
  EXPECT_FALSE(s.RowLabel(2).visible());
  EXPECT_EQ(s.Canal(3).caption(), "120");
  EXPECT_EQ(s.Canal(4).caption(), "") << "a level of 0 shows blank";
  EXPECT_EQ(s.backColor, console().colors.SkinBackColor);
}

TEST_F(SimpleView, RowLabelsFollowTheStepsOfThirty) {
  for (auto [chans, rows] :
       {std::pair{30, 1}, {31, 2}, {480, 16}, {481, 17}, {510, 17}, {511, 18}}) {
    v().MaxChans = int16_t(chans);
    Simple& s = open();
    for (int r = 0; r < Simple::kRows; ++r)
      EXPECT_EQ(s.RowLabel(r).visible(), r < rows) << chans << " row " << r;
    s.closeBox();
  }
}

TEST_F(SimpleView, ItShowsTheTableAsItWasWhenItCameToTheFront) {
  Simple& s = open();
  v().chan(5, 0) = 60;
  EXPECT_EQ(s.Canal(5).caption(), "");
  s.activate();
  EXPECT_EQ(s.Canal(5).caption(), "60");
}

TEST_F(SimpleView, ASelectionOutlivesAChangeOfColumn) {
  v().chan(8, 1) = 99;
  Simple& s = open();
  s.cellDown(8, MouseButton::Left);
  control("FaderCFG(2)").mouseDown(MouseButton::Left);
  s.activate();
  EXPECT_TRUE(s.Canal(8).selected());
  EXPECT_EQ(s.Canal(8).caption(), "99");
}

// --- selection --------------------------------------------------------------------

TEST_F(SimpleView, ALeftPressPicksOneCellAndARightPressTogglesOne) {
  Simple& s = open();
  control("Simple.Canal(10)").mouseDown(MouseButton::Left);
  EXPECT_EQ(s.Text1.text(), "10");
  EXPECT_EQ(selected(s), std::vector<int>{10});
  control("Simple.Canal(12)").mouseDown(MouseButton::Right);
  control("Simple.Canal(14)").mouseDown(MouseButton::Right);
  EXPECT_EQ(selected(s), (std::vector<int>{10, 12, 14}));
  control("Simple.Canal(12)").mouseDown(MouseButton::Right);
  EXPECT_EQ(selected(s), (std::vector<int>{10, 14}));
  EXPECT_EQ(s.Text1.text(), "10") << "a right press leaves the current channel";
  control("Simple.Canal(3)").mouseDown(MouseButton::Left);
  EXPECT_EQ(selected(s), std::vector<int>{3});
  EXPECT_EQ(s.Canal(3).backColor(), ChannelCell::kSelected);
  EXPECT_EQ(s.Canal(10).backColor(), ChannelCell::kUnselected);
}

TEST_F(SimpleView, AllAndNoneReachTheChannelsInUseOnly) {
  v().MaxChans = 64;
  Simple& s = open();
  s.cmdAll.click();
  EXPECT_EQ(selected(s).size(), 64u);
  EXPECT_FALSE(s.Canal(65).selected());
  s.cmdNone.click();
  EXPECT_TRUE(selected(s).empty());
}

// --- what the buttons write ---------------------------------------------------------

TEST_F(SimpleView, ADoubleClickSwitchesACellBetweenOffAndFull) {
  Simple& s = open();
  v().MixDirty = kFalse;
  s.Canal(6).dblClick();
  EXPECT_EQ(v().chan(6, 0), 255);
  EXPECT_EQ(s.Canal(6).caption(), "255");
  EXPECT_TRUE(s.Canal(6).selected());
  EXPECT_EQ(v().MixDirty, kTrue);
  s.Canal(6).dblClick();
  EXPECT_EQ(v().chan(6, 0), 0);
  EXPECT_EQ(s.Canal(6).caption(), "");
  EXPECT_FALSE(s.Canal(6).selected());
}

TEST_F(SimpleView, ADoubleClickReadsWhatTheCellShows) {
  Simple& s = open();
  v().chan(9, 0) = 80;  // not shown yet: the cell still reads blank, which is 0
  s.cellDblClick(9);
  EXPECT_EQ(v().chan(9, 0), 255);
}

TEST_F(SimpleView, AllToZeroClearsTheChannelsInUse) {
  v().MaxChans = 20;
  for (int ch : {1, 20, 21}) v().chan(ch, 0) = 50;
  Simple& s = open();
  s.cmdAll.click();
  v().MixDirty = kFalse;
  s.btnZero.click();
  EXPECT_EQ(v().chan(1, 0), 0);
  EXPECT_EQ(v().chan(20, 0), 0);
  EXPECT_EQ(v().chan(21, 0), 50);
  EXPECT_EQ(s.Canal(1).caption(), "");
  EXPECT_TRUE(s.Canal(1).selected()) << "the selection stays";
  EXPECT_EQ(v().MixDirty, kTrue);
}

TEST_F(SimpleView, NextMovesTheSelectedChannelsUpWithTheirLevels) {
  v().chan(4, 0) = 40;
  v().chan(5, 0) = 50;
  Simple& s = open();
  s.cellDown(4, MouseButton::Left);
  s.cellDown(5, MouseButton::Right);
  s.cmdNext.click();
  EXPECT_EQ(selected(s), (std::vector<int>{5, 6}));
  EXPECT_EQ(v().chan(4, 0), 0);
  EXPECT_EQ(v().chan(5, 0), 40);
  EXPECT_EQ(v().chan(6, 0), 50);
  EXPECT_EQ(s.Canal(4).caption(), "");
  EXPECT_EQ(s.Canal(6).caption(), "50");
  EXPECT_EQ(s.Text1.text(), "5");
  s.cmdLast.click();
  s.cmdLast.click();
  EXPECT_EQ(selected(s), (std::vector<int>{3, 4}));
  EXPECT_EQ(v().chan(3, 0), 40);
  EXPECT_EQ(v().chan(4, 0), 50);
  EXPECT_EQ(v().chan(6, 0), 0);
  EXPECT_EQ(s.Text1.text(), "3");
}

TEST_F(SimpleView, AtTheEndsTheSelectionAndTheCurrentChannelStay) {
  v().MaxChans = 32;
  v().chan(32, 0) = 9;
  Simple& s = open();
  s.cellDown(32, MouseButton::Left);
  s.cellDown(31, MouseButton::Right);
  s.cmdNext.click();
  EXPECT_EQ(selected(s), (std::vector<int>{32})) << "31 moved onto 32, which stayed";
  EXPECT_EQ(s.Text1.text(), "32");
  EXPECT_EQ(v().chan(33, 0), 0);
  s.cellDown(1, MouseButton::Left);
  s.cmdLast.click();
  EXPECT_EQ(selected(s), std::vector<int>{1});
  EXPECT_EQ(s.Text1.text(), "1");
}

TEST_F(SimpleView, EveryTextInText1PicksAChannelInUse) {
  v().MaxChans = 100;
  Simple& s = open();
  const std::pair<const char*, const char*> cases[] = {
      {"", "1"},      {"abc", "1"},     {"-5", "1"},      {"0", "1"},
      {"1e309", "1"}, {"99999", "100"}, {"1e300", "100"}, {" 42 ", "42"},
      {"2.5", "2"},   {"3.5", "4"},     {"12abc", "1"},   {"100.4", "100"}};
  for (auto [typed, picked] : cases) {
    s.Text1.setText(typed);
    EXPECT_EQ(s.Text1.keyPress(13), 0) << "Enter is taken";
    EXPECT_EQ(s.Text1.text(), picked) << '"' << typed << '"';
    EXPECT_EQ(selected(s), std::vector<int>{std::stoi(picked)}) << '"' << typed << '"';
  }
  s.Text1.setText("abc");
  s.cmdNext.click();
  EXPECT_EQ(s.Text1.text(), "1") << "Next counts from 0 when the box holds no number";
}

// --- the wheel ---------------------------------------------------------------------------

TEST_F(SimpleView, TheWheelMovesEverySelectedLevelByTheDistance) {
  v().chan(1, 0) = 10;
  v().chan(2, 0) = 100;
  Simple& s = open();
  s.cellDown(1, MouseButton::Left);
  s.cellDown(2, MouseButton::Right);
  v().MixDirty = kFalse;
  control("Simple.Picture4").mouseDown(MouseEvent(MouseButton::Left, 5, 60));
  control("Simple.Picture4").mouseMove(MouseEvent(MouseButton::Left, 5, 40));
  EXPECT_EQ(v().chan(1, 0), 30);
  EXPECT_EQ(v().chan(2, 0), 120);
  EXPECT_EQ(s.Canal(2).caption(), "120");
  EXPECT_EQ(v().chan(3, 0), 0);
  EXPECT_EQ(v().MixDirty, kTrue);
  EXPECT_EQ(s.LastWheelY, 40);
  control("Simple.Picture4").mouseMove(MouseEvent(MouseButton::Left, 5, 45));
  EXPECT_EQ(v().chan(1, 0), 25);
  control("Simple.Picture4").mouseUp(MouseEvent(MouseButton::Left, 5, 45));
  control("Simple.Picture4").mouseMove(MouseEvent(MouseButton::None, 5, 0));
  EXPECT_EQ(v().chan(1, 0), 25) << "no drag without the button";
  advance(100);
  EXPECT_EQ(v().DMXData[1], 115);
}

TEST_F(SimpleView, TheWheelHoldsAtTheEndsAndTurnsBackAtOnce) {
  v().chan(1, 0) = 250;
  v().chan(2, 0) = 5;
  Simple& s = open();
  s.cmdAll.click();
  s.wheelDown(100);
  s.wheelMove(80);
  EXPECT_EQ(s.Canal(1).caption(), "255");
  EXPECT_EQ(s.Canal(2).caption(), "25");
  s.wheelMove(140);
  EXPECT_EQ(s.Canal(1).caption(), "195");
  EXPECT_EQ(s.Canal(2).caption(), "") << "pinned at 0 and blank";
  EXPECT_EQ(v().chan(2, 0), 0);
  s.wheelMove(139);
  EXPECT_EQ(v().chan(2, 0), 1) << "no dead zone on the way back";
}

TEST_F(SimpleView, TheWheelTakesAnyPointAndWritesOnlyLevels) {
  Simple& s = open();
  s.cellDown(1, MouseButton::Left);
  s.wheelDown(0);
  s.wheelMove(-1e9);
  EXPECT_EQ(v().chan(1, 0), 255);
  s.wheelMove(1e9);
  EXPECT_EQ(v().chan(1, 0), 0);
  s.wheelUp();
  s.wheelDown(0.4);
  s.wheelMove(-10.6);
  EXPECT_EQ(v().chan(1, 0), 11) << "points are taken to whole units";
}

TEST_F(SimpleView, TheWheelsStripsFollowTheMouseAndWrap) {
  Simple& s = open();
  const auto before = s.Picture4.items();
  turn(s, 50, 48);
  EXPECT_DOUBLE_EQ(s.bandPhase(), Simple::kBandPitch - 2);
  EXPECT_NE(s.Picture4.items(), before);
  turn(s, 48, 50 + 5 * Simple::kBandPitch);
  EXPECT_DOUBLE_EQ(s.bandPhase(), 0);
  EXPECT_EQ(s.Picture4.items(), before);
}

TEST_F(SimpleView, TheWheelWritesTheColumnUnderEdit) {
  Simple& s = open();
  s.cellDown(7, MouseButton::Left);
  control("FaderCFG(9)").mouseDown(MouseButton::Left);
  turn(s, 10, 0);
  EXPECT_EQ(v().chan(7, 8), 10);
  EXPECT_EQ(v().chan(7, 0), 0);
}

// --- folding -------------------------------------------------------------------------------

TEST_F(SimpleView, FoldingHidesTheGridAndStopsItsRefresh) {
  Simple& s = open();
  control("Simple.Command1(1)").click();
  EXPECT_EQ(s.ShowGrid, kFalse);
  EXPECT_EQ(s.heightTwips, Simple::kFoldedHeight);
  EXPECT_TRUE(s.Command1(0).visible());
  v().chan(2, 0) = 70;
  s.activate();
  EXPECT_EQ(s.Canal(2).caption(), "");
  control("Simple.Command1(0)").click();
  EXPECT_EQ(s.ShowGrid, kTrue);
  EXPECT_EQ(s.heightTwips, Simple::kUnfoldedHeight);
  EXPECT_FALSE(s.Command1(0).visible());
  EXPECT_EQ(s.Canal(2).caption(), "70") << "unfolding refreshes";
}

TEST_F(SimpleView, TheWheelWorksFolded) {
  Simple& s = open();
  s.cellDown(1, MouseButton::Left);
  s.foldClick(1);
  turn(s, 30, 0);
  EXPECT_EQ(v().chan(1, 0), 30);
}

}  // namespace
}  // namespace q::test
