#include <gtest/gtest.h>

#include <QKeyEvent>

#include "gui/desk/key_codes.h"

namespace q::gui {
namespace {

TEST(KeyCodes, KeysByTheirPlaceOnTheKeyboard) {
  // The digit row, the three letter rows and the four keys at the ends of the lower rows.
  EXPECT_EQ(virtualKeyAtPlace(10), '1');
  EXPECT_EQ(virtualKeyAtPlace(19), '0');
  EXPECT_EQ(virtualKeyAtPlace(24), 'Q');
  EXPECT_EQ(virtualKeyAtPlace(33), 'P');
  EXPECT_EQ(virtualKeyAtPlace(38), 'A');
  EXPECT_EQ(virtualKeyAtPlace(46), 'L');
  EXPECT_EQ(virtualKeyAtPlace(47), 192) << "right of L";
  EXPECT_EQ(virtualKeyAtPlace(52), 'Z');
  EXPECT_EQ(virtualKeyAtPlace(58), 'M');
  EXPECT_EQ(virtualKeyAtPlace(59), 188);
  EXPECT_EQ(virtualKeyAtPlace(60), 190);
  EXPECT_EQ(virtualKeyAtPlace(61), 189) << "right of the full stop";
  EXPECT_EQ(virtualKeyAtPlace(65), 0) << "the space bar goes by its name";
}

TEST(KeyCodes, KeysByName) {
  EXPECT_EQ(virtualKeyOf(Qt::Key_Space), 32);
  EXPECT_EQ(virtualKeyOf(Qt::Key_PageUp), 33);
  EXPECT_EQ(virtualKeyOf(Qt::Key_PageDown), 34);
  EXPECT_EQ(virtualKeyOf(Qt::Key_End), 35);
  EXPECT_EQ(virtualKeyOf(Qt::Key_Home), 36);
  EXPECT_EQ(virtualKeyOf(Qt::Key_W), 87);
  EXPECT_EQ(virtualKeyOf(Qt::Key_7), 55);
  EXPECT_EQ(virtualKeyOf(Qt::Key_Comma), 188);
  EXPECT_EQ(virtualKeyOf(Qt::Key_Minus), 189);
  EXPECT_EQ(virtualKeyOf(Qt::Key_Ntilde), 192);
  EXPECT_EQ(virtualKeyOf(Qt::Key_F5), 116);
  EXPECT_EQ(virtualKeyOf(Qt::Key_unknown), 0);
}

}  // namespace
}  // namespace q::gui
