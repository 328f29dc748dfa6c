#pragma once
// A console on a virtual clock driven line by line through the command
// language; what the lines print is returned as one text.

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "headless/interpreter.h"
#include "support/console_fixture.h"

namespace q::test {

class InterpreterTest : public ConsoleFixture {
 protected:
  Interpreter& in() {
    if (!in_) in_ = std::make_unique<Interpreter>(console(), dialogs, &clock, out_);
    return *in_;
  }
  // Runs the lines (numbered from 1) and returns what they printed.
  std::string run(const std::vector<std::string>& lines) {
    out_.str("");
    for (const auto& l : lines) in().execute(l, ++lineNo_);
    return out_.str();
  }
  std::string run(const char* line) { return run(std::vector<std::string>{line}); }

  std::ostringstream out_;
  std::unique_ptr<Interpreter> in_;
  int lineNo_ = 0;
};

}  // namespace q::test
