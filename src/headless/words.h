#pragma once
// Splits a command line into words. Words are separated by blanks (spaces or
// tabs); a verb's last free-text argument is the rest of the line after one
// blank, kept as it stands so a typed text or a path may hold blanks.

#include <cstdint>
#include <stdexcept>
#include <string>

namespace q {

// A line the interpreter cannot carry out; its text is the reason printed after "ERROR line N: ".
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Words {
 public:
  explicit Words(const std::string& line) : s_(line) {}

  // The next word, or false at the end of the line.
  bool next(std::string& word);
  // The next word; a ScriptError naming `what` when the line has ended.
  std::string need(const char* what);
  // The rest of the line after one blank (empty at the end of the line).
  std::string rest();
  // A ScriptError when words are left over.
  void end();

  // The next word as a decimal number within lo..hi.
  int64_t number(const char* what, int64_t lo, int64_t hi);
  // The next word as a decimal number that may carry a fraction, within -limit..limit.
  double real(const char* what, double limit);

 private:
  static bool blank(char ch) { return ch == ' ' || ch == '\t'; }
  const std::string& s_;
  size_t pos_ = 0;
};

// A decimal integer, whole word; false for anything else (also when it does not fit).
bool parseDecimal(const std::string& word, int64_t& out);
// A decimal number with an optional sign and fraction ("12", "-3.5", ".25"),
// whole word; false for anything else: no exponent, no "nan" or "inf".
bool parseDecimalReal(const std::string& word, double& out);

// A piece of the line as an error message quotes it: in single quotes, and
// cut short, so that a huge line is never echoed back whole.
std::string quoted(const std::string& text);
// The first bytes of a text, "..." marking a cut; a character is never split.
std::string clipped(const std::string& text, size_t maxBytes);

}  // namespace q
