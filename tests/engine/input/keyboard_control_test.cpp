// The keyboard as a fader desk: held keys, the walk of the key table, the
// limits of the faders, the text boxes put aside, and Space as GO.

#include <gtest/gtest.h>

#include "support/console_fixture.h"

namespace q::test {
namespace {

constexpr int kQ = 81, kW = 87, kOne = 49, kPageDown = 34, kHome = 36, kSpace = 32;

class Keyboard : public ConsoleFixture {
 protected:
  KeyboardControl& kb() { return console().keyboard; }
  void keyboardControl(bool on) {
    if (form1().menu("mnukeyboard").checked() != on) form1().menu("mnukeyboard").click();
  }
  int fader(int n) { return form1().Fader(n).position(); }
};

TEST_F(Keyboard, KeysAreHeldAlsoWithKeyboardControlOff) {
  kb().keyDown(kQ);
  EXPECT_EQ(get("KeyHeld(81)"), "-1");
  form1().Fader(3).setPosition(100);
  kb().keyDown(kQ);
  EXPECT_EQ(fader(3), 100);
  kb().keyUp(kQ);
  EXPECT_EQ(get("KeyHeld(81)"), "0");
}

TEST_F(Keyboard, EveryHeldKeyMovesAtEachKeyDown) {
  keyboardControl(true);
  form1().Fader(3).setPosition(100);
  form1().Fader(4).setPosition(100);
  kb().keyDown(kQ);
  kb().keyDown(kW);  // Q is still held: both strips go down
  EXPECT_EQ(fader(3), 110);
  EXPECT_EQ(fader(4), 105);
  kb().keyDown(kW);  // the repeat of the last key walks the whole table again
  EXPECT_EQ(fader(3), 115);
  EXPECT_EQ(fader(4), 110);
  kb().keyUp(kW);
  kb().keyDown(kOne);  // Q held lowers strip 1 as 1 raises it
  EXPECT_EQ(fader(3), 115);
  EXPECT_EQ(fader(4), 110);
  kb().keyUp(kOne);
  kb().keyDown(300);  // a code beyond the table is not held, but the walk goes on
  EXPECT_EQ(fader(3), 120);
  kb().keyUp(300);
  kb().keyDown(-1);
  EXPECT_EQ(fader(3), 125);
}

TEST_F(Keyboard, MastersHaveTheirOwnKeys) {
  keyboardControl(true);
  kb().keyDown(kPageDown);
  EXPECT_EQ(form1().SMaster.position(), 5);
  kb().keyUp(kPageDown);
  kb().keyDown(kHome);
  EXPECT_EQ(form1().Xfader.position(), 250);
  kb().keyUp(kHome);
  kb().keyDown(192);
  form1().Fader(22).setPosition(50);
  kb().keyDown(192);
  EXPECT_EQ(fader(22), 45);
}

TEST_F(Keyboard, FadersStopAtTheirEnds) {
  keyboardControl(true);
  form1().Fader(3).setPosition(0);
  kb().keyDown(kOne);
  EXPECT_EQ(fader(3), 0);
  kb().keyUp(kOne);
  form1().Fader(4).setPosition(255);
  kb().keyDown(kW);
  EXPECT_EQ(fader(4), 255);
  kb().keyUp(kW);
  // Off the grid of 5 the last step is refused and the fader stops short.
  form1().Fader(3).setPosition(3);
  kb().keyDown(kOne);
  EXPECT_EQ(fader(3), 3);
  kb().keyUp(kOne);
  form1().Fader(3).setPosition(252);
  kb().keyDown(kQ);
  EXPECT_EQ(fader(3), 252);
}

TEST_F(Keyboard, KeyboardControlPutsTheTextBoxesAside) {
  Control* focused = nullptr;
  Control& directBox = control("Direct");
  directBox.addFocusListener([&] { focused = &directBox; });
  keyboardControl(true);
  EXPECT_EQ(get("mnukeyboard"), "-1");
  for (int n = 3; n <= 22; ++n) EXPECT_FALSE(form1().Slabel(n).enabled());
  for (const char* name : {"Direct", "STAGEMem", "WupTime", "DownTime"})
    if (Control* c = console().registry.find(name)) {
      EXPECT_FALSE(c->enabled()) << name;
    }
  EXPECT_EQ(focused, nullptr);
  keyboardControl(false);
  for (int n = 3; n <= 22; ++n) EXPECT_TRUE(form1().Slabel(n).enabled());
  if (Control* direct = console().registry.find("Direct")) {
    EXPECT_TRUE(direct->enabled());
    EXPECT_EQ(focused, direct);
  }
}

TEST_F(Keyboard, SpaceIsGoWhenChosenWhateverKeyboardControlIs) {
  Lamp standIn("GOButton");
  Control* go = console().registry.find("GOButton");
  if (!go) {
    console().registry.add(standIn);
    go = &standIn;
  }
  int gos = 0;
  go->onMouseUp = [&](MouseButton b) { gos += b == MouseButton::Left; };
  kb().keyDown(kSpace);
  EXPECT_EQ(gos, 0);
  form1().menu("mnuSpaceGO").click();
  EXPECT_EQ(get("mnuSpaceGO"), "-1");
  kb().keyDown(kSpace);
  kb().keyDown(kQ);
  EXPECT_EQ(gos, 1);
  keyboardControl(true);
  kb().keyDown(kSpace);
  EXPECT_EQ(gos, 2);
  console().registry.remove(standIn);
}

}  // namespace
}  // namespace q::test
