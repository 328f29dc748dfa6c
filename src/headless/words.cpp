#include "headless/words.h"

#include <charconv>
#include <cmath>

#include "engine/core/value.h"

namespace q {

namespace {
// Enough of a word to recognise it in an error line.
constexpr size_t kQuoteBytes = 64;

bool digit(char ch) { return ch >= '0' && ch <= '9'; }
}  // namespace

bool Words::next(std::string& word) {
  while (pos_ < s_.size() && blank(s_[pos_])) ++pos_;
  if (pos_ >= s_.size()) return false;
  const size_t start = pos_;
  while (pos_ < s_.size() && !blank(s_[pos_])) ++pos_;
  word = s_.substr(start, pos_ - start);
  return true;
}

std::string Words::need(const char* what) {
  std::string w;
  if (!next(w)) throw ScriptError(std::string("missing ") + what);
  return w;
}

std::string Words::rest() {
  if (pos_ < s_.size() && blank(s_[pos_])) ++pos_;
  std::string r = pos_ < s_.size() ? s_.substr(pos_) : std::string();
  pos_ = s_.size();
  return r;
}

void Words::end() {
  std::string extra;
  if (next(extra)) throw ScriptError("unexpected argument " + quoted(extra));
}

int64_t Words::number(const char* what, int64_t lo, int64_t hi) {
  const std::string w = need(what);
  int64_t n = 0;
  if (!parseDecimal(w, n)) throw ScriptError(std::string(what) + " is not a number: " + quoted(w));
  if (n < lo || n > hi)
    throw ScriptError(std::string(what) + " out of range (" + std::to_string(lo) + " to " +
                      std::to_string(hi) + "): " + clipped(w, kQuoteBytes));
  return n;
}

double Words::real(const char* what, double limit) {
  const std::string w = need(what);
  double x = 0;
  if (!parseDecimalReal(w, x))
    throw ScriptError(std::string(what) + " is not a number: " + quoted(w));
  if (x < -limit || x > limit)
    throw ScriptError(std::string(what) + " out of range (" + toText(Value(-limit)) + " to " +
                      toText(Value(limit)) + "): " + clipped(w, kQuoteBytes));
  return x;
}

bool parseDecimal(const std::string& word, int64_t& out) {
  const char* b = word.data();
  const char* e = b + word.size();
  if (b != e && *b == '+') {  // from_chars takes a minus only
    ++b;
    if (b != e && *b == '-') return false;
  }
  if (b == e) return false;
  auto [p, ec] = std::from_chars(b, e, out);
  return ec == std::errc() && p == e;
}

bool parseDecimalReal(const std::string& word, double& out) {
  // Checked by hand first: from_chars would also take an exponent, "inf" and "nan".
  size_t i = 0, digits = 0;
  const size_t n = word.size();
  if (i < n && (word[i] == '+' || word[i] == '-')) ++i;
  while (i < n && digit(word[i])) ++i, ++digits;
  if (i < n && word[i] == '.')
    for (++i; i < n && digit(word[i]); ++i) ++digits;
  if (i != n || digits == 0) return false;
  const char* b = word.data();
  if (*b == '+') ++b;  // from_chars takes a minus only
  auto [p, ec] = std::from_chars(b, word.data() + n, out, std::chars_format::fixed);
  if (ec == std::errc::result_out_of_range) {
    // Beyond a double: a whole part that large is out of any range, a fraction that small is 0.
    const size_t whole = word.find_first_of("123456789");
    const bool huge = whole != std::string::npos && whole < word.find('.');
    out = huge ? (word[0] == '-' ? -HUGE_VAL : HUGE_VAL) : 0.0;
    return true;
  }
  return ec == std::errc() && p == word.data() + n;
}

std::string clipped(const std::string& text, size_t maxBytes) {
  if (text.size() <= maxBytes) return text;
  size_t cut = maxBytes;
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
  return text.substr(0, cut) + "...";
}

std::string quoted(const std::string& text) { return "'" + clipped(text, kQuoteBytes) + "'"; }

}  // namespace q
