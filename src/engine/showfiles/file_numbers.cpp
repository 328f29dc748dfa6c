#include "engine/showfiles/file_numbers.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "engine/core/value.h"

namespace q {

namespace {
bool allDigits(std::string_view t) {
  if (t.empty()) return false;
  for (char c : t)
    if (c < '0' || c > '9') return false;
  return true;
}
}  // namespace

std::optional<double> realOf(std::string_view text) { return parseNumber(std::string(text)); }

std::optional<long> wholeOf(std::string_view text) {
  // Nearly every number in a show is plain digits: read those without a copy.
  if (text.size() <= 9 && allDigits(text)) {
    long v = 0;
    std::from_chars(text.data(), text.data() + text.size(), v);
    return v;
  }
  const auto d = realOf(text);
  if (!d || std::fabs(*d) > 2147483648.0) return std::nullopt;
  return roundHalfEven(*d);
}

double leadingOf(std::string_view text) { return leadingNumber(std::string(text)); }

long wholeIn(const LineReader& r, std::string_view text, long low, long high, const char* what) {
  const auto v = wholeOf(text);
  if (!v) r.fail(std::string(what) + " is not a number");
  if (*v < low || *v > high)
    r.fail(std::string(what) + " " + std::to_string(*v) + " outside " + std::to_string(low) + ".." +
           std::to_string(high));
  return *v;
}

uint8_t byteIn(const LineReader& r, std::string_view text, const char* what) {
  const auto v = wholeOf(text);
  if (!v) r.fail(std::string(what) + " is not a number");
  if (*v > 255) r.fail(std::string(what) + " above 255");
  if (*v < 0) r.fail(std::string(what) + " below 0");
  return uint8_t(*v);
}

double realIn(const LineReader& r, std::string_view text, const char* what) {
  const auto v = realOf(text);
  if (!v) r.fail(std::string(what) + " is not a number");
  return *v;
}

std::string shortestText(double d) {
  if (d == std::floor(d) && std::fabs(d) < 1e15) return std::to_string(static_cast<long long>(d));
  char buf[40];
  for (int p = 1; p <= 17; ++p) {
    std::snprintf(buf, sizeof buf, "%.*g", p, d);
    if (std::strtod(buf, nullptr) == d) break;
  }
  return buf;
}

std::string shortestText(float f) {
  char buf[40];
  for (int p = 1; p <= 9; ++p) {
    std::snprintf(buf, sizeof buf, "%.*g", p, double(f));
    if (std::strtof(buf, nullptr) == f) break;
  }
  return buf;
}

void appendPair(std::string& out, int channel, int level) {
  out += std::to_string(channel);
  out += 'a';
  out += std::to_string(level);
  out += ',';
}

}  // namespace q
