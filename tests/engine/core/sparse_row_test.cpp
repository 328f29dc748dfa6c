#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "engine/core/sparse_matrix.h"
#include "engine/core/sparse_row.h"

namespace q {

// Every kind stored over every other, in a channel column (kept in the
// blocks when a byte) and in a cue record column (always in the list); a
// store tells whether the cell changed.
TEST(SparseRow, AnyKindStoredOverAnyOtherReadsAsTheLastStored) {
  const std::array<Value, 6> kinds = {Value{uint8_t{7}},      Value{std::string("a text")},
                                      Value{int16_t{-300}},   Value{2.5},
                                      Value{std::string("")}, Value{uint8_t{0}}};
  for (const int16_t column : {int16_t(1), int16_t(64), int16_t(65), int16_t(512), int16_t(513)}) {
    for (const Value& first : kinds)
      for (const Value& second : kinds) {
        SparseRow row;
        row.set(int16_t(column + 1), std::string("neighbour"));
        row.set(column, first);
        EXPECT_EQ(row.store(column, second), first != second) << "column " << column;
        EXPECT_FALSE(row.store(column, second));
        EXPECT_EQ(row.get(column), second) << "column " << column;
        EXPECT_TRUE(row.holds(column, second));
        EXPECT_TRUE(row.filled(column));
        EXPECT_EQ(row.get(int16_t(column + 1)), Value{std::string("neighbour")});
      }
  }
  // A byte and a number of another kind of the same value are not the same cell.
  SparseRow row;
  row.set(3, uint8_t{5});
  EXPECT_FALSE(row.holds(3, int16_t{5}));
  EXPECT_FALSE(row.holds(3, std::string("5")));
  row.set(3, int16_t{5});
  EXPECT_FALSE(row.holds(3, uint8_t{5}));
  EXPECT_EQ(row.number(3), 5);
}

TEST(SparseRow, BlocksGrowAtBothEndsKeepingWhatTheyHold) {
  SparseRow row;
  row.set(300, uint8_t{30});
  row.set(1, uint8_t{1});      // grows down to the first block
  row.set(512, uint8_t{255});  // and up to the last
  row.set(200, uint8_t{20});
  EXPECT_EQ(row.get(300), Value{uint8_t{30}});
  EXPECT_EQ(row.get(1), Value{uint8_t{1}});
  EXPECT_EQ(row.get(512), Value{uint8_t{255}});
  EXPECT_FALSE(row.filled(2));
  EXPECT_FALSE(row.filled(0));

  std::array<uint8_t, 512> out{};
  row.copyLevels(1, 512, out.data());
  for (int ch = 1; ch <= 512; ++ch) {
    const uint8_t expected = ch == 1 ? 1 : ch == 200 ? 20 : ch == 300 ? 30 : ch == 512 ? 255 : 0;
    EXPECT_EQ(out[size_t(ch - 1)], expected) << "channel " << ch;
  }
  // A window onto part of the row leaves what lies outside it alone.
  std::array<uint8_t, 4> part{9, 9, 9, 9};
  row.copyLevels(298, 4, part.data());
  EXPECT_EQ(part, (std::array<uint8_t, 4>{9, 9, 30, 9}));

  // A whole block of bytes goes over at once and reads the same.
  for (int ch = 65; ch <= 128; ++ch) row.set(int16_t(ch), uint8_t(ch));
  row.copyLevels(1, 512, out.data());
  for (int ch = 65; ch <= 128; ++ch) EXPECT_EQ(out[size_t(ch - 1)], ch);
  EXPECT_FALSE(row.othersIn(1, 512));
  row.set(100, std::string("50"));
  EXPECT_TRUE(row.othersIn(1, 512));
  EXPECT_FALSE(row.othersIn(101, 512));

  // Filled from the top channel down, every level read back as stored.
  SparseRow down;
  for (int ch = 512; ch >= 1; ch -= 3) down.set(int16_t(ch), uint8_t(ch % 251));
  for (int ch = 1; ch <= 512; ++ch)
    EXPECT_EQ(down.get(int16_t(ch)), (ch - 512) % 3 == 0 ? Value{uint8_t(ch % 251)} : Value{})
        << "channel " << ch;
}

TEST(SparseRow, ClearingEveryCellLeavesARowAsNeverUsed) {
  SparseRow row;
  for (int ch = 1; ch <= 512; ++ch) row.set(int16_t(ch), uint8_t(ch % 255 + 1));
  row.set(513, std::string("12"));
  row.set(520, std::string("Cue name"));
  row.set(-4, 1.25);
  row.set(700, uint8_t{3});
  EXPECT_FALSE(row.empty());
  for (int col = -4; col <= 700; ++col) row.set(int16_t(col), Value{});
  EXPECT_TRUE(row.empty());
  EXPECT_FALSE(row.filled(1));
  EXPECT_FALSE(row.filled(520));
  // Filled again from nothing, it works as a new row.
  row.set(40, uint8_t{4});
  row.set(520, std::string("again"));
  EXPECT_EQ(row.get(40), Value{uint8_t{4}});
  EXPECT_EQ(row.get(520), Value{std::string("again")});
}

// Texts replaced over and over, longer and shorter, while others stay: the
// row's pool is reused and packed without moving a text under its cell.
TEST(SparseRow, TextsKeptThroughManyReplacements) {
  SparseRow row;
  row.set(513, std::string("kept number"));
  row.set(521, std::string(300, 'v'));
  for (int i = 0; i < 2000; ++i) {
    row.set(520, std::string(size_t(i % 97), char('a' + i % 26)));
    if (i % 3 == 0) row.set(515, std::to_string(i));
    if (i % 7 == 0) row.set(515, int16_t(i));
  }
  EXPECT_EQ(row.get(513), Value{std::string("kept number")});
  EXPECT_EQ(row.get(521), Value{std::string(300, 'v')});
  EXPECT_EQ(row.get(520), Value{std::string(size_t(1999 % 97), char('a' + 1999 % 26))});
  EXPECT_EQ(row.get(515), Value{std::string("1998")});
  EXPECT_EQ(row.number(515), 1998);
}

// What the table shows the mixer of a chaser step, and of a step emptied again.
TEST(CSparseMatrix, LevelBytesOfAStepAndOfAnEmptiedOne) {
  CSparseMatrix m;
  std::array<uint8_t, 512> out{};
  out.fill(9);
  EXPECT_TRUE(m.levelBytes(5, 1, 512, out.data()));  // never stored: all 0
  EXPECT_EQ(out[0], 0);
  m.setCell(5, 1, uint8_t{10});
  m.setCell(5, 512, uint8_t{20});
  m.setCell(5, 513, std::string("the cue record is not read"));
  EXPECT_TRUE(m.levelBytes(5, 1, 512, out.data()));
  EXPECT_EQ(out[0], 10);
  EXPECT_EQ(out[511], 20);
  m.setCell(5, 2, 100.5);  // a level of another kind: only number() reads it right
  EXPECT_FALSE(m.levelBytes(5, 1, 512, out.data()));
  for (int col = 1; col <= 513; ++col) m.setCell(5, int16_t(col), Value{});
  EXPECT_TRUE(m.levelBytes(5, 1, 512, out.data()));
  EXPECT_EQ(out[0], 0);
  EXPECT_TRUE(m.cellIsEmpty(5, 513));
}

}  // namespace q
