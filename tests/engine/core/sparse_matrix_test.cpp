#include <gtest/gtest.h>

#include <vector>

#include "engine/core/sparse_matrix.h"

namespace q {

TEST(CSparseMatrix, UntouchedAndClearedCellsReadEmpty) {
  CSparseMatrix m;
  EXPECT_TRUE(isEmpty(m.Cell(1, 1)));
  EXPECT_TRUE(isEmpty(m.Cell(-5, 0)));
  m.setCell(3, 521, std::string("note"));
  m.setCell(3, 521, Value{});
  EXPECT_TRUE(isEmpty(m.Cell(3, 521)));
  EXPECT_TRUE(m.cellIsEmpty(3, 521));
}

TEST(CSparseMatrix, KeepsTagAndLatestValueOnAnyRowAndColumn) {
  CSparseMatrix m;
  m.setCell(1, 513, int16_t{5});
  m.setCell(1, 513, std::string("05"));
  EXPECT_EQ(std::get<std::string>(m.Cell(1, 513)), "05");
  m.setCell(0, -3, 2.5);
  m.setCell(-32768, 32767, uint8_t{255});
  m.setCell(32767, -32768, std::string("edge"));
  EXPECT_EQ(std::get<double>(m.Cell(0, -3)), 2.5);
  EXPECT_EQ(std::get<uint8_t>(m.Cell(-32768, 32767)), 255);
  EXPECT_EQ(std::get<std::string>(m.Cell(32767, -32768)), "edge");
  EXPECT_TRUE(isEmpty(m.Cell(0, 3)));
}

TEST(CSparseMatrix, NumberReadsTextAndEmptyAsTheMixerDoes) {
  CSparseMatrix m;
  m.setCell(2, 7, std::string("200"));
  m.setCell(2, 8, std::string("x"));
  m.setCell(2, 9, uint8_t{17});
  EXPECT_EQ(m.number(2, 7), 200);
  EXPECT_EQ(m.number(2, 8), 0);
  EXPECT_EQ(m.number(2, 9), 17);
  EXPECT_EQ(m.number(2, 10), 0);
  // A string replaced by a number and back reuses its text slot correctly.
  for (int i = 0; i < 100; ++i) {
    m.setCell(4, 1, std::string("t") + std::to_string(i));
    m.setCell(4, 1, int16_t(i));
  }
  m.setCell(4, 2, std::string("kept"));
  EXPECT_EQ(std::get<std::string>(m.Cell(4, 2)), "kept");
}

TEST(ValueConversions, TextComparesAsNumberAndRoundsHalfToEven) {
  EXPECT_EQ(numberOf(std::string("1")), 1.0);
  EXPECT_EQ(numberOf(std::string(" 2.5 ")), 2.5);
  EXPECT_FALSE(numberOf(std::string("abc")).has_value());
  EXPECT_FALSE(numberOf(std::string("")).has_value());
  EXPECT_EQ(numberOf(Value{}), 0.0);
  EXPECT_EQ(roundHalfEven(0.5), 0);
  EXPECT_EQ(roundHalfEven(1.5), 2);
  EXPECT_EQ(roundHalfEven(2.5), 2);
  EXPECT_EQ(roundHalfEven(127.5), 128);
  EXPECT_EQ(leadingNumber("12abc"), 12);
}

// A real number prints with at most 15 significant digits and no trailing
// zeros, whole numbers without a point, huge and tiny ones with an exponent.
TEST(ValueConversions, RealNumbersPrintAsTheConsolePrintsThem) {
  const std::vector<std::pair<double, const char*>> cases = {
      {12.75, "12.75"},
      {1.0 / 3, "0.333333333333333"},
      {-1.0 / 3, "-0.333333333333333"},
      {256.0 / 254, "1.00787401574803"},
      {0.1 + 0.2, "0.3"},
      {5.0, "5"},
      {-12.5, "-12.5"},
      {-0.0, "0"},
      {999999999999999.0, "999999999999999"},
      {123456789012345.67, "123456789012346"},
      {1e15, "1e+15"},
      {1e21, "1e+21"},
      {-1.5e21, "-1.5e+21"},
      {123456789012345678.0, "1.23456789012346e+17"},
      {0.000125, "0.000125"},
      {1e-7, "1e-07"},
  };
  for (auto [d, text] : cases) EXPECT_EQ(toText(Value{d}), text) << d;
  EXPECT_EQ(toText(Value{uint8_t(255)}), "255");
  EXPECT_EQ(toText(Value{int16_t(-7)}), "-7");
  EXPECT_EQ(toText(Value{std::string("12.750")}), "12.750") << "text stays as it was stored";
}

}  // namespace q
