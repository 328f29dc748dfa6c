#include "headless/options.h"

#include <gtest/gtest.h>

namespace q {

namespace {
HeadlessOptions parse(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  return parseHeadlessOptions(int(argv.size()), argv.data());
}
}  // namespace

TEST(HeadlessOptions, ReadsItsOwnSwitchesAndKeepsTheWholeLineForTheConsole) {
  auto o = parse({"quintara", "--headless", "-nosplash", "--virtual-clock", "--script", "a b.txt",
                  "--home", "/tmp/h", "-default"});
  EXPECT_TRUE(o.virtualClock);
  EXPECT_EQ(o.script, "a b.txt");
  EXPECT_EQ(o.home, "/tmp/h");
  EXPECT_EQ(
      o.commandLine,
      "quintara --headless -nosplash --virtual-clock --script a b.txt --home /tmp/h -default");
  EXPECT_TRUE(o.error.empty());
}

TEST(HeadlessOptions, ASwitchWithoutItsArgumentIsAnError) {
  EXPECT_FALSE(parse({"quintara", "--headless", "--script"}).error.empty());
  EXPECT_FALSE(parse({"quintara", "--home"}).error.empty());
  auto plain = parse({"quintara", "--headless"});
  EXPECT_FALSE(plain.virtualClock);
  EXPECT_TRUE(plain.script.empty());
  EXPECT_TRUE(plain.home.empty());
}

}  // namespace q
