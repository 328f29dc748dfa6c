// The cue functions as the lists show them and as playback looks them up.

#include "engine/playback/cue_function_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace q {
namespace {

std::vector<std::string> specialLines() {
  std::vector<std::string> lines;
  for (const CueFunctionInfo& f : cueFunctions())
    if (!f.specialLine.empty()) lines.emplace_back(f.specialLine);
  return lines;
}

std::vector<std::string> propertiesTexts() {
  std::vector<std::string> texts;
  for (const CueFunctionInfo& f : cueFunctions())
    if (!f.propertiesText.empty()) texts.emplace_back(f.propertiesText);
  return texts;
}

TEST(CueFunctionTable, TheSpecialCueListNamesEachFunctionByItsNumber) {
  const std::vector<std::string> lines = specialLines();
  ASSERT_EQ(lines.size(), 40u);
  EXPECT_EQ(lines.front(), "02: Jump");
  EXPECT_EQ(lines[4], "08: Sub. level change");
  EXPECT_EQ(lines[6], "11: Program Sub 1");
  EXPECT_EQ(lines[25], "30: Program Sub 20");
  EXPECT_EQ(lines.back(), "47: Player 2 Balance");
  // The dialog stores the first two characters: they must be the function's number.
  for (const CueFunctionInfo& f : cueFunctions()) {
    if (f.specialLine.empty()) continue;
    const std::string number = std::string(f.specialLine.substr(0, 2));
    EXPECT_EQ(std::stoi(number), f.number()) << f.specialLine;
  }
}

TEST(CueFunctionTable, ThePropertiesListHasItsThirtySevenRowsWithTheirOddOnes) {
  const std::vector<std::string> texts = propertiesTexts();
  ASSERT_EQ(texts.size(), 37u);
  EXPECT_EQ(texts.front(), "Dimmers");
  EXPECT_EQ(texts[3], "Sub. Level Change");
  EXPECT_EQ(texts[10], "Submaster 4 Prog");
  EXPECT_EQ(texts[22], "Submaster 16 prog.");
  EXPECT_EQ(texts.back(), "Player 2 Go to time");
  EXPECT_EQ(findCueFunction(4.0)->specialLine, "") << "only the properties offer 4";
}

TEST(CueFunctionTable, ArgumentsAndFiles) {
  for (const CueFunctionInfo& f : cueFunctions()) {
    const int n = f.number();
    const bool file = n == 3 || n == 6 || n == 9 || n == 31 || n == 41;
    EXPECT_EQ(f.needsFile(), file) << n;
    EXPECT_EQ(f.takesArgument(), file || n == 2 || n == 7) << n;
  }
}

TEST(CueFunctionTable, CellsFindTheirFunctionByNumericValue) {
  EXPECT_EQ(cueFunctionIn(Value{std::string("02")})->function, CueFunction::Jump);
  EXPECT_EQ(cueFunctionIn(Value{uint8_t(41)})->function, CueFunction::Player2Load);
  EXPECT_EQ(cueFunctionIn(Value{std::string("31.0")})->function, CueFunction::Player1Load);
  for (const Value& none : {Value{}, Value{std::string("abc")}, Value{5.0}, Value{32.5},
                            Value{std::string("40")}, Value{48.0}})
    EXPECT_EQ(cueFunctionIn(none), nullptr) << toText(none);
  EXPECT_TRUE(cellIsFunction(Value{std::string("1")}, CueFunction::MemoryCue));
  EXPECT_FALSE(cellIsFunction(Value{}, CueFunction::MemoryCue));
  EXPECT_EQ(playerOf(CueFunction::Player1Balance), 0);
  EXPECT_EQ(playerOf(CueFunction::Player2Load), 1);
  EXPECT_EQ(playerOf(CueFunction::ProgramSub20), -1);
}

// Between whole numbers only the runs tested as ranges count.
TEST(CueFunctionTable, WhatShowsInProgIncludesNumbersInsideTheRuns) {
  for (double shown : {1.0, 4.0, 6.0, 7.0, 11.0, 11.5, 29.9, 30.0, 32.0, 32.5, 35.0, 42.5, 45.0})
    EXPECT_TRUE(showsInProg(shown)) << shown;
  for (double hidden :
       {0.0, 2.0, 3.0, 5.0, 6.5, 8.0, 9.0, 10.5, 30.5, 31.0, 31.5, 35.5, 36.0, 41.0, 45.5, 46.0})
    EXPECT_FALSE(showsInProg(hidden)) << hidden;
  EXPECT_TRUE(programsSubmaster(12.5));
  EXPECT_FALSE(programsSubmaster(10.99));
  EXPECT_FALSE(programsSubmaster(30.01));
}

}  // namespace
}  // namespace q
