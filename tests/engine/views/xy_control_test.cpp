// The X/Y control: what its two targets mean, what a drag on the pad writes
// and shows, the edges, Enter in a target box and the activation.

#include <gtest/gtest.h>

#include "engine/views/xy_control.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class XYControl : public ConsoleFixture {
 protected:
  void SetUp() override { console().start(); }
  Mobile& open() {
    form1().menu("mnuMobile").click();
    return *console().windows.find<Mobile>("Mobile");
  }
  void drag(Mobile& m, double x, double y) {
    m.Picture1.mouseDown(MouseEvent(MouseButton::Left, x, y));
    m.Picture1.mouseMove(MouseEvent(MouseButton::Left, x, y));
  }
};

// --- targets --------------------------------------------------------------------

TEST(AxisTargets, AChannelAnSnnSubmasterOrNothing) {
  using K = AxisTarget::Kind;
  const std::pair<const char*, AxisTarget> cases[] = {{"1", {K::Channel, 1}},
                                                      {"512", {K::Channel, 512}},
                                                      {" 17 ", {K::Channel, 17}},
                                                      {"2.5", {K::Channel, 2}},
                                                      {"S05", {K::Submaster, 5}},
                                                      {"S5", {K::Submaster, 5}},
                                                      {"S20", {K::Submaster, 20}},
                                                      {"S105", {K::Submaster, 5}},
                                                      {"", {}},
                                                      {"0", {}},
                                                      {"513", {}},
                                                      {"-3", {}},
                                                      {"1e309", {}},
                                                      {"abc", {}},
                                                      {"S", {}},
                                                      {"S00", {}},
                                                      {"S21", {}},
                                                      {"S5x", {}},
                                                      {"s05", {}},
                                                      {"S-5", {}},
                                                      {"99999999999999999999", {}}};
  for (auto [text, target] : cases) EXPECT_EQ(axisTarget(text), target) << '"' << text << '"';
}

// --- the pad ---------------------------------------------------------------------

TEST_F(XYControl, ADragDrivesBothChannelsOfTheColumnUnderEdit) {
  Mobile& m = open();
  EXPECT_EQ(m.caption(), "X-Y Control");
  m.XChan.setText("10");
  m.YChan.setText("11");
  control("FaderCFG(2)").mouseDown(MouseButton::Left);
  v().MixDirty = kFalse;
  drag(m, 100, 5);
  EXPECT_EQ(m.Label1.caption(), "100");
  EXPECT_EQ(m.Label2.caption(), "05");
  EXPECT_EQ(v().chan(10, 1), 100);
  EXPECT_EQ(v().chan(11, 1), 5);
  EXPECT_EQ(v().MixDirty, kTrue);
  EXPECT_DOUBLE_EQ(m.markerLeft(), 100 - Mobile::kMarkerSize / 2.0);
  EXPECT_DOUBLE_EQ(m.markerTop(), 5 - Mobile::kMarkerSize / 2.0);
}

TEST_F(XYControl, OnlyADragWrites) {
  Mobile& m = open();
  m.Picture1.mouseMove(MouseEvent(MouseButton::None, 50, 50));
  EXPECT_EQ(v().chan(1, 0), 0);
  EXPECT_EQ(m.Label1.caption(), "00");
  m.Picture1.mouseDown(MouseEvent(MouseButton::Left, 50, 50));
  EXPECT_EQ(v().chan(1, 0), 0) << "the press itself writes nothing";
  m.Picture1.mouseMove(MouseEvent(MouseButton::Left, 60, 50));
  m.Picture1.mouseUp(MouseEvent(MouseButton::Left, 60, 50));
  m.Picture1.mouseMove(MouseEvent(MouseButton::None, 90, 90));
  EXPECT_EQ(v().chan(1, 0), 60);
  EXPECT_EQ(m.PadDrag, kFalse);
}

TEST_F(XYControl, PastAnEdgeAnAxisHoldsWhileTheOtherFollows) {
  Mobile& m = open();
  drag(m, 300, 40.5);
  EXPECT_EQ(m.Label1.caption(), "255");
  EXPECT_EQ(m.Label2.caption(), "41") << "a half rounds away from zero";
  m.Picture1.mouseMove(MouseEvent(MouseButton::Left, -1e9, 254.6));
  EXPECT_EQ(m.Label1.caption(), "0") << "edges print plain";
  EXPECT_EQ(m.Label2.caption(), "255");
  EXPECT_EQ(v().chan(1, 0), 0);
  EXPECT_EQ(v().chan(2, 0), 255);
  m.Picture1.mouseMove(MouseEvent(MouseButton::Left, 0.4, 9));
  EXPECT_EQ(m.Label1.caption(), "00");
  EXPECT_EQ(m.Label2.caption(), "09");
}

TEST_F(XYControl, AnSnnTargetMovesThatSubmastersFader) {
  Mobile& m = open();
  m.XChan.setText("S05");
  drag(m, 200, 0);
  EXPECT_EQ(form1().Fader(7).position(), 55);
  EXPECT_EQ(v().SubLevel[4], 200);
  EXPECT_EQ(form1().SLevel(7).caption(), "78");
  EXPECT_EQ(v().chan(5, 0), 0) << "no channel is written for it";
}

TEST_F(XYControl, ATargetThatIsNoneLeavesItsAxisSilent) {
  Mobile& m = open();
  for (const char* none : {"", "abc", "0", "600", "S99"}) {
    m.XChan.setText(none);
    m.YChan.setText("3");
    drag(m, 120, 130);
    EXPECT_EQ(v().chan(3, 0), 130) << '"' << none << '"';
    v().chan(3, 0) = 0;
  }
  for (int ch = 1; ch <= kChannels; ++ch) ASSERT_EQ(v().chan(ch, 0), 0) << "channel " << ch;
}

TEST_F(XYControl, TheMovedLevelReachesTheNextFrame) {
  Mobile& m = open();
  drag(m, 128, 64);
  advance(100);
  EXPECT_EQ(v().DMXData[0], 128);
  EXPECT_EQ(v().DMXData[1], 64);
}

// --- Enter and activation -----------------------------------------------------------

TEST_F(XYControl, EnterInATargetShowsItsLevelAndMovesTheMarker) {
  Mobile& m = open();
  v().chan(40, 0) = 7;
  m.XChan.setText("40");
  v().MixDirty = kFalse;
  EXPECT_EQ(m.XChan.keyPress(13), 0);
  EXPECT_EQ(m.Label1.caption(), "07");
  EXPECT_DOUBLE_EQ(m.markerLeft(), 7 - Mobile::kMarkerSize / 2.0);
  m.YChan.setText("S03");
  m.YChan.keyPress(13);
  EXPECT_EQ(m.Label2.caption(), "00") << "a submaster target shows nothing at Enter";
  EXPECT_EQ(v().MixDirty, kFalse) << "Enter writes nothing";
}

TEST_F(XYControl, ActivationMovesTheMarkerButNotTheLabels) {
  Mobile& m = open();
  v().chan(1, 0) = 200;
  v().chan(2, 0) = 30;
  m.activate();
  EXPECT_DOUBLE_EQ(m.markerLeft(), 200 - Mobile::kMarkerSize / 2.0);
  EXPECT_DOUBLE_EQ(m.markerTop(), 30 - Mobile::kMarkerSize / 2.0);
  EXPECT_EQ(m.Label1.caption(), "00");
  EXPECT_EQ(m.Label2.caption(), "00");
  EXPECT_EQ(m.backColor, console().colors.SkinBackColor);
}

}  // namespace
}  // namespace q::test
