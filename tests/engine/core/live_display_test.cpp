#include <string>
#include <vector>

#include "support/console_fixture.h"

namespace q::test {

class LiveDisplayTest : public ConsoleFixture {
 protected:
  void mix() { console().mixer.MixOutput(); }
  const std::vector<DrawItem>& items() { return form1().Picture1.items(); }
  std::vector<std::string> texts(double y) {
    std::vector<std::string> out;
    for (const DrawItem& it : items())
      if (it.kind == DrawItem::Kind::Text && it.y == y) out.push_back(it.text);
    return out;
  }
  std::vector<std::string> labels() { return texts(2); }
  std::vector<std::string> levels() { return texts(18); }
  void light(int ch, int level) { v().chan(ch, kStageColumn) = uint8_t(level); }
};

TEST_F(LiveDisplayTest, TextModesPackLitChannelsInSlots) {
  light(3, 255);
  light(7, 128);
  mix();
  ASSERT_EQ(items().size(), 4u);
  const DrawItem& label = items()[2];
  EXPECT_EQ(label.text, "007");
  EXPECT_EQ(label.x, 27);  // second slot: a level of 0 takes none
  EXPECT_EQ(label.color, console().colors.LabelColor);
  EXPECT_EQ(items()[3].color, console().colors.ValueColor);
  EXPECT_EQ(levels(), (std::vector<std::string>{"255", "128"}));
  form1().mnuValue(1).click();  // captioned "Value", shows percent
  mix();
  EXPECT_EQ(levels(), (std::vector<std::string>{"100", "50"}));
}

TEST_F(LiveDisplayTest, ThirtyOneLitChannelsNeedAScrollToSeeTheLast) {
  for (int ch = 1; ch <= 31; ++ch) light(ch, 10);
  mix();
  EXPECT_EQ(labels().size(), 30u);
  EXPECT_EQ(labels().back(), "030");
  form1().HScroll1.setPosition(1);  // redraws at once
  EXPECT_EQ(console().liveDisplay.scrollValue(), 1);
  ASSERT_EQ(labels().size(), 30u);
  EXPECT_EQ(labels().front(), "002");
  EXPECT_EQ(items().front().x, 2);
  EXPECT_EQ(labels().back(), "031");
}

TEST_F(LiveDisplayTest, SelectedShowsTheEditColumnEvenWhenTheOutputIsDark) {
  v().chan(5, kProgColumn) = 77;
  v().EditColumn = 2;
  form1().menu("mnuScreenSelected").click();
  EXPECT_EQ(v().MixDirty, kTrue);
  EXPECT_FALSE(form1().menu("mnuScreenOutput").checked());
  mix();
  EXPECT_EQ(v().DMXData[4], 0);
  EXPECT_EQ(labels(), std::vector<std::string>{"005"});
  EXPECT_EQ(levels(), std::vector<std::string>{"77"});
}

TEST_F(LiveDisplayTest, BarsGiveEveryChannelASlotAndGrowUpward) {
  v().MaxChans = 20;
  light(2, 200);
  form1().SMaster.setPosition(128);  // grand master 127
  form1().mnuValue(2).click();
  EXPECT_EQ(v().ValuesMode, 2);
  EXPECT_FALSE(form1().mnuValue(0).checked());
  mix();
  ASSERT_EQ(items().size(), 20u);
  const DrawItem& bar = items()[1];
  EXPECT_EQ(bar.kind, DrawItem::Kind::Box);
  EXPECT_EQ(bar.x, 4.5);
  EXPECT_EQ(bar.y, 14);
  EXPECT_EQ(bar.w, 3);
  EXPECT_DOUBLE_EQ(bar.h, -(127.0 / 255 * 200 / 10));  // the mix through the master
  EXPECT_EQ(bar.color, console().colors.BarColor);
  EXPECT_EQ(items()[0].h, 0);
  form1().menu("mnuScreenLive").click();
  mix();
  EXPECT_DOUBLE_EQ(items()[1].h, -10.0);  // the frame's byte, 100
}

TEST_F(LiveDisplayTest, OutputViewWithPatchShowsLogicalChannels) {
  for (int n = 1; n <= kChannels; ++n) v().PatchMap[n - 1] = int16_t(n);
  v().PatchOn = kTrue;
  light(40, 90);
  mix();
  // The label test's counter sends the pass back to 31 until the strip is full.
  EXPECT_EQ(labels(), std::vector<std::string>(30, "040"));
  // An unpatched output still holding a byte shows it without a number.
  light(40, 0);
  v().PatchMap[5] = 0;
  v().DMXData[5] = 66;
  mix();
  EXPECT_TRUE(labels().empty());
  EXPECT_EQ(levels(), std::vector<std::string>{"66"});
  for (int16_t e : console().liveDisplay.ShownPatch) EXPECT_EQ(e, 0);
}

TEST_F(LiveDisplayTest, RightClickAsksForTheScreenMenu) {
  std::vector<std::string> asked;
  console().liveDisplay.onPopupMenu = [&](const std::string& m) { asked.push_back(m); };
  form1().Picture1.mouseDown(MouseButton::Left);
  form1().Picture1.mouseDown(MouseButton::Right);
  EXPECT_EQ(asked, std::vector<std::string>{"mnuScreen"});
}

}  // namespace q::test
