// The keypad: what each key types into the command line, the double at-key,
// the computer keys it accepts, and the double click that zeroes the column.

#include <gtest/gtest.h>

#include "engine/input/keypad.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class Keypad : public ConsoleFixture {
 protected:
  void SetUp() override {
    direct = console().registry.find<TextBox>("Direct");
    if (!direct) {
      console().registry.add(standIn);
      direct = &standIn;
    }
    // Record each Enter with the text it found, then let the command line
    // run; the stand-in only empties the box, as a command does.
    auto command = direct->onKeyPress;
    direct->onKeyPress = [this, command](int& k) {
      if (k == 13) entered.push_back(direct->text());
      if (command)
        command(k);
      else if (k == 13)
        direct->setText("");
    };
  }
  void TearDown() override { console().registry.remove(standIn); }
  Tecles& pad() {
    form1().menu("mnuTecles").click();
    return console().keypad.window();
  }
  void press(std::initializer_list<int> keys) {
    for (int k : keys) pad().BTN(k).click();
  }
  bool realCommandLine() const { return direct != &standIn; }

  TextBox standIn{"Direct"};
  TextBox* direct = nullptr;
  std::vector<std::string> entered;
};

TEST_F(Keypad, KeysTypeTheCommandLetters) {
  press({1, Tecles::Through, 1, 0, Tecles::Plus, 2, Tecles::Add, 5, Tecles::Subtract});
  EXPECT_EQ(direct->text(), "1/10+2s5d");
  press({Tecles::Clear});
  EXPECT_EQ(direct->text(), "");
  press({7, Tecles::Full});
  ASSERT_EQ(entered, std::vector<std::string>{"7FF"});
}

TEST_F(Keypad, ASecondAtMeansFullAndFires) {
  press({1, Tecles::At});
  EXPECT_EQ(pad().AtPressed, kTrue);
  press({Tecles::At});
  EXPECT_EQ(pad().AtPressed, kFalse);
  ASSERT_EQ(entered, std::vector<std::string>{"1aFF"});
  // Enter and clear end the command: the next at is an "a" again.
  press({Tecles::At, 5, 0, Tecles::Enter, Tecles::At});
  EXPECT_EQ(entered.back(), "a50");
  press({Tecles::Clear, Tecles::At});
  EXPECT_EQ(direct->text(), "a");
}

TEST_F(Keypad, ComputerKeysPressTheKeypad) {
  Control* target = console().registry.find("Tecles");
  ASSERT_NE(target, nullptr);
  for (int k :
       std::initializer_list<int>{'1', '+', '2', '/', '3', 'A', '9', '9', 13, 'x', ' ', 'Z'})
    target->keyPress(k);
  for (int k : {'s', 'S', 'd', 'D', 'a', 'a'}) target->keyPress(k);
  ASSERT_EQ(entered.size(), 2u);
  EXPECT_EQ(entered[0], "1+2/3a99");
  EXPECT_EQ(entered[1], "ssddaFF");
}

TEST_F(Keypad, PressShowsThePressedLook) {
  Lamp& key = pad().BTN(4);
  const std::string up = key.picture();
  key.mouseDown();
  EXPECT_EQ(key.picture(), pad().DoubleBTN(4).picture());
  EXPECT_NE(key.picture(), up);
  key.mouseUp();
  EXPECT_EQ(key.picture(), up);
}

TEST_F(Keypad, DoubleClickZeroesTheColumnUnderEdit) {
  MenuItem& zero = form1().menu("mnuChanZero");
  int zeroed = 0;
  auto handler = zero.onClick;
  zero.onClick = [&] {
    ++zeroed;
    if (handler) handler();
  };
  v().chan(3, 0) = 200;
  pad().DoubleBTN(17).dblClick();
  EXPECT_EQ(zeroed, 1);
  if (handler) {
    EXPECT_EQ(v().chan(3, 0), 0);
  }
}

TEST_F(Keypad, DrivesTheCommandLine) {
  if (!realCommandLine()) GTEST_SKIP() << "no direct command line yet";
  press({1, 2, Tecles::At, 5, 0, Tecles::Enter});
  EXPECT_EQ(v().chan(12, 0), 127);
  press({1, Tecles::At, Tecles::At});
  EXPECT_EQ(v().chan(1, 0), 255);
  EXPECT_EQ(direct->text(), "");
}

TEST_F(Keypad, AtPressedSurvivesHidingButNotUnloading) {
  press({Tecles::At});
  pad().setVisible(false);
  EXPECT_EQ(pad().AtPressed, kTrue);
  pad().unload();
  EXPECT_EQ(console().registry.find<Lamp>("Tecles.BTN(3)") != nullptr, true);
  EXPECT_EQ(console().keypad.window().AtPressed, kFalse);
}

}  // namespace
}  // namespace q::test
