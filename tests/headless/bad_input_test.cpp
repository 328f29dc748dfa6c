// Input that no operator types: huge lines, endless numbers, lines cut anywhere.

#include <gtest/gtest.h>

#include <chrono>

#include "headless/interpreter_fixture.h"
#include "headless/line_splitter.h"
#include "headless/words.h"

namespace q::test {

namespace {

using Clock = std::chrono::steady_clock;

// One ERROR line, short whatever the line was.
void expectOneShortError(const std::string& out) {
  EXPECT_EQ(out.rfind("ERROR line ", 0), 0u) << out.substr(0, 200);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1);
  EXPECT_LT(out.size(), 200u);
}

TEST_F(InterpreterTest, HugeWordsAndLinesGiveOneShortError) {
  const std::string digits(5000, '9');
  const std::string tiny = "0." + std::string(5000, '0') + "1";
  const std::string word(Interpreter::kMaxLineBytes - 10, 'x');
  const std::vector<std::string> lines = {
      "set SMaster " + digits,
      "advance " + digits,
      "down SMaster " + digits + " 0",
      "move SMaster 0 -" + digits,
      "get ChanTable(" + digits + ",1)",
      "dmx 1 " + digits,
      word,
      "get " + word,
      "press " + word,
      "get SMaster." + word,
      "load " + word + " x",
      "quit " + word,
      "activate " + word,
      "get WMP(0)." + word,
  };
  for (const auto& line : lines) {
    SCOPED_TRACE(line.substr(0, 40));
    expectOneShortError(run(line.c_str()));
  }
  // A fraction too small for a double is no error: the point is 0.
  form1().add<Lamp>("TestPad").onMouseMove = [](const MouseEvent& e) { EXPECT_EQ(e.x, 0.0); };
  EXPECT_EQ(run(("move TestPad " + tiny + " 1").c_str()), "");
}

TEST_F(InterpreterTest, ALineAboveTheBoundIsRefusedWholeAndQuickly) {
  const std::string huge = "type Direct " + std::string(100'000'000, '1');
  const auto start = Clock::now();
  expectOneShortError(run(huge.c_str()));
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(5));
  EXPECT_EQ(run("get Direct"), "Direct = \n");
  // Up to the bound, a line is run.
  const std::string longest = "type Direct " + std::string(Interpreter::kMaxLineBytes - 12, '2');
  EXPECT_EQ(run(longest.c_str()), "");
  EXPECT_EQ(console().registry.find<TextBox>("Direct")->text().size(),
            Interpreter::kMaxLineBytes - 12);
}

TEST(WordsTest, DecimalRealsTakeSignAndFractionButNoOtherForm) {
  double x = 7;
  for (const char* good : {"0", "-0", "12", "+3", "-3.5", ".25", "5.", "007.50"})
    EXPECT_TRUE(parseDecimalReal(good, x)) << good;
  EXPECT_TRUE(parseDecimalReal("-12.75", x));
  EXPECT_EQ(x, -12.75);
  for (const char* bad : {"", "-", ".", "+-1", "1e3", "1E3", "nan", "inf", "-inf", "0x1A", "1,5",
                          "1.2.3", " 1", "1 ", "--1", "1-"})
    EXPECT_FALSE(parseDecimalReal(bad, x)) << bad;
  // Too large for a double: infinite, so every range refuses it.
  EXPECT_TRUE(parseDecimalReal("-" + std::string(400, '9'), x));
  EXPECT_EQ(x, -HUGE_VAL);
}

TEST(WordsTest, QuotesAreCutWithoutSplittingACharacter) {
  EXPECT_EQ(quoted("abc"), "'abc'");
  EXPECT_EQ(quoted(std::string(64, 'a')), "'" + std::string(64, 'a') + "'");
  EXPECT_EQ(quoted(std::string(65, 'a')), "'" + std::string(64, 'a') + "...'");
  // "é" is two bytes: one that would straddle the cut is left out whole.
  EXPECT_EQ(clipped(std::string(63, 'a') + "\xC3\xA9zz", 64), std::string(63, 'a') + "...");
}

// --- cutting input into lines -----------------------------------------------------

std::vector<std::string> split(LineSplitter& s, const std::string& bytes, bool finish) {
  s.feed(bytes.data(), bytes.size());
  if (finish) s.finish();
  std::vector<std::string> got;
  std::string line;
  for (;;) {
    const auto g = s.next(line);
    if (g == LineSplitter::Got::Nothing) break;
    got.push_back(g == LineSplitter::Got::Line ? line : "<too long>");
  }
  return got;
}

TEST(LineSplitterTest, LinesComeOutWholeWhereverTheInputIsCut) {
  LineSplitter s(8);
  EXPECT_EQ(split(s, "get A\r\nge", false), (std::vector<std::string>{"get A\r"}));
  EXPECT_EQ(split(s, "t B\n\n", false), (std::vector<std::string>{"get B", ""}));
  EXPECT_FALSE(s.ended());
  EXPECT_EQ(split(s, "quit", true), (std::vector<std::string>{"quit"}));  // no newline at the end
  EXPECT_TRUE(s.ended());
}

TEST(LineSplitterTest, ALineAboveTheBoundIsReportedOnceAndDropped) {
  LineSplitter s(8);
  EXPECT_EQ(split(s, "12345678\n123456789\nok\n", false),
            (std::vector<std::string>{"12345678", "<too long>", "ok"}));
  // Reported as soon as it passes the bound, its rest dropped as it comes.
  EXPECT_EQ(split(s, "abcdefghij", false), (std::vector<std::string>{"<too long>"}));
  EXPECT_EQ(split(s, "klmnop", false), (std::vector<std::string>{}));
  EXPECT_EQ(split(s, "qr\nnext\nlast", true), (std::vector<std::string>{"next", "last"}));
  EXPECT_TRUE(s.ended());
  LineSplitter t(4);
  EXPECT_EQ(split(t, "123456", true), (std::vector<std::string>{"<too long>"}));
  EXPECT_TRUE(t.ended());
}

TEST(LineSplitterTest, AHundredMegabyteLineCostsLinearTime) {
  LineSplitter s(Interpreter::kMaxLineBytes);
  const std::string chunk(4096, 'x');
  const auto start = Clock::now();
  int reports = 0;
  std::string line;
  for (int i = 0; i < 100 * 256; ++i) {
    s.feed(chunk.data(), chunk.size());
    while (s.next(line) == LineSplitter::Got::TooLong) ++reports;
  }
  EXPECT_EQ(split(s, "\nget A\n", true), (std::vector<std::string>{"get A"}));
  EXPECT_EQ(reports, 1);
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace q::test
