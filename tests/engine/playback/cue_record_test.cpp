// How the console reads the cells of a cue, and wiping.

#include "engine/playback/cue_record.h"
#include <gtest/gtest.h>
#include "engine/core/variables.h"

namespace q {

TEST(CueRecord, CellsCompareWithNumbersByValue) {
  EXPECT_TRUE(cellEquals(Value{std::string("1")}, 1));
  EXPECT_TRUE(cellEquals(Value{std::string("02")}, 2));
  EXPECT_TRUE(cellEquals(Value{uint8_t(1)}, 1));
  EXPECT_TRUE(cellEquals(Value{}, 0));  // empty counts as 0
  EXPECT_FALSE(cellEquals(Value{}, 1));
  EXPECT_FALSE(cellEquals(Value{std::string("abc")}, 0));
  EXPECT_FALSE(cellEquals(Value{std::string("1.5")}, 1));
}

TEST(CueRecord, CellsCompareWithABoxByTextOrByValueForNumbers) {
  EXPECT_TRUE(cellEqualsText(Value{std::string("5")}, "5"));
  EXPECT_FALSE(cellEqualsText(Value{std::string("05")}, "5"));
  EXPECT_TRUE(cellEqualsText(Value{5.0}, "5"));
  EXPECT_TRUE(cellEqualsText(Value{}, ""));
  EXPECT_FALSE(cellEqualsText(Value{}, "0"));
}

TEST(CueRecord, LevelCellsReadAsBytes) {
  EXPECT_EQ(cellLevel(Value{}), 0);
  EXPECT_EQ(cellLevel(Value{std::string("200")}), 200);
  EXPECT_EQ(cellLevel(Value{std::string("x")}), 0);
  EXPECT_EQ(cellLevel(Value{std::string("300")}), 255);
}

TEST(CueRecord, WipingClearsColumnsOneTo535OfTheRowsInUse) {
  Variables v;
  for (int16_t row : {1, 2, 3})
    for (int16_t col : {1, cue::kUnused, cue::kLastWiped, cue::kLastWiped + 1})
      v.Cues.setCell(row, col, std::string("x"));
  v.CueCount = 2;
  wipeCues(v);
  EXPECT_EQ(v.CueCount, 0);
  for (int16_t col : {1, cue::kUnused, cue::kLastWiped}) {
    EXPECT_TRUE(v.Cues.cellIsEmpty(1, col));
    EXPECT_TRUE(v.Cues.cellIsEmpty(2, col));
  }
  EXPECT_FALSE(v.Cues.cellIsEmpty(2, cue::kLastWiped + 1));
  EXPECT_FALSE(v.Cues.cellIsEmpty(3, 1));  // past CueCount: left alone
}

TEST(CueRecord, RowsBeyondTheTableReadEmpty) {
  Variables v;
  v.Cues.setCell(INT16_MIN, cue::kFunction, std::string("1"));
  EXPECT_TRUE(isEmpty(cueCell(v, 32768, cue::kFunction)));
}

}  // namespace q
