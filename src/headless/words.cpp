#include "headless/words.h"

#include <charconv>

namespace q {

namespace {
// Enough of a word to recognise it in an error line.
constexpr size_t kQuoteBytes = 64;

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

std::string clipped(const std::string& text, size_t maxBytes) {
  if (text.size() <= maxBytes) return text;
  size_t cut = maxBytes;
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80) --cut;
  return text.substr(0, cut) + "...";
}

std::string quoted(const std::string& text) { return "'" + clipped(text, kQuoteBytes) + "'"; }

}  // namespace q
