// The direct command line: the examples an operator types, the repeat of the
// last list, and what a bad command leaves behind.

#include <map>

#include "support/console_fixture.h"

namespace q::test {
namespace {

class DirectTest : public ConsoleFixture {
 protected:
  // Types the text and presses Enter, from a clean MixDirty.
  void run(const std::string& text) {
    v().MixDirty = kFalse;
    control("Direct").keyPress(0);  // a key that is not Enter does nothing
    console().direct.Direct.setText(text);
    control("Direct").keyPress(13);
  }
  void levels(std::map<int, int> l, int column = 0) {
    for (auto [ch, lv] : l) v().chan(ch, column) = uint8_t(lv);
  }
  int at(int ch, int column = 0) { return v().chan(ch, column); }
  std::string box() { return console().direct.Direct.text(); }
};

TEST_F(DirectTest, ExamplesWriteTheSelectedColumn) {
  struct Case {
    const char* typed;
    std::map<int, int> before, after;
  };
  const Case cases[] = {
      {"1a50", {}, {{1, 127}}},
      {"1+3+5a99", {}, {{1, 252}, {2, 0}, {3, 252}, {5, 252}}},
      {"1/10aff", {}, {{1, 255}, {10, 255}, {11, 0}}},
      {"1/10+20aaa", {}, {{5, 255}, {19, 0}, {20, 255}}},
      {"1+2a0", {{1, 90}, {2, 90}}, {{1, 0}, {2, 0}}},
      {"1a100", {{1, 90}}, {{1, 0}}},  // only the last two characters count
      {"1a05", {}, {{1, 12}}},
      {"0/5a50", {}, {{4, 0}, {5, 127}}},  // a range from 0 is no range
      {"3/1a50", {{2, 9}}, {{1, 0}, {2, 9}, {3, 0}}},
      {"7s10", {{7, 240}}, {{7, 255}}},
      {"7s10", {{7, 100}}, {{7, 125}}},
      {"7d10", {{7, 10}}, {{7, 0}}},
      {"1/3+4s10", {{1, 0}, {2, 50}, {3, 100}, {4, 0}}, {{1, 125}, {2, 125}, {3, 125}, {4, 25}}},
      {"4+1/3s10", {{1, 0}, {2, 50}, {3, 100}, {4, 0}}, {{1, 25}, {2, 75}, {3, 125}, {4, 25}}},
      {"1/3d10", {{1, 0}, {2, 50}, {3, 100}}, {{1, 0}, {2, 25}, {3, 75}}},
      {"1/3+4d10", {{1, 0}, {2, 50}, {3, 100}, {4, 30}}, {{1, 0}, {2, 25}, {3, 75}, {4, 5}}},
  };
  for (const Case& c : cases) {
    v().ChanTable.clear();
    levels(c.before);
    run(c.typed);
    for (auto [ch, lv] : c.after) EXPECT_EQ(at(ch), lv) << c.typed << " channel " << ch;
    EXPECT_EQ(box(), "") << c.typed;
    EXPECT_EQ(v().MixDirty, kTrue) << c.typed;
  }
}

TEST_F(DirectTest, OnlyTheEditColumnChanges) {
  v().EditColumn = 7;
  run("5a50");
  EXPECT_EQ(at(5, 6), 127);
  for (int col : {0, 1, 5, 7}) EXPECT_EQ(at(5, col), 0);
}

TEST_F(DirectTest, LeadingLetterRepeatsTheLastList) {
  run("A50");  // no list yet: nothing, and the box is emptied
  EXPECT_EQ(box(), "");
  EXPECT_EQ(at(1), 0);

  run("1+2a20");
  EXPECT_EQ(get("DirectText"), "1+2");
  run("a50");
  EXPECT_EQ(at(1), 127);
  EXPECT_EQ(at(2), 127);
  EXPECT_EQ(get("DirectText"), "1+2");
  run("s50");
  EXPECT_EQ(at(1), 254);
  run("sff");
  EXPECT_EQ(at(2), 255);
  run("D99");  // a capital finds the list but is then no command
  EXPECT_EQ(at(2), 255);
  EXPECT_EQ(box(), "");
}

TEST_F(DirectTest, LevelThatIsNoNumberEmptiesTheBoxAndTellsNothing) {
  for (const char* typed : {"1a5", "1s5x", "1dZ9"}) {
    run(typed);
    EXPECT_EQ(at(1), 0) << typed;
    EXPECT_EQ(box(), "") << typed;
    EXPECT_EQ(v().MixDirty, kFalse) << typed;
  }
}

TEST_F(DirectTest, OtherFaultsKeepTheTextToBeCorrected) {
  // "a50" first: with no earlier list it is an empty list.
  const char* cases[] = {"a50", "0a50", "513a50", "32768a50", "1+0+2a50", "1a-5", "9s-9"};
  for (const char* typed : cases) {
    run(typed);
    EXPECT_EQ(box(), typed);
    EXPECT_EQ(v().MixDirty, kFalse) << typed;
  }
  v().EditColumn = 25;
  run("1a50");
  EXPECT_EQ(box(), "1a50");
}

TEST_F(DirectTest, FaultStopsWhereItIsAndKeepsWhatWasWritten) {
  run("1+0+2a50");
  EXPECT_EQ(at(1), 127);
  EXPECT_EQ(at(2), 0);
  run("510/600aff");
  EXPECT_EQ(at(512), 255);
  EXPECT_EQ(box(), "510/600aff");
}

}  // namespace
}  // namespace q::test
