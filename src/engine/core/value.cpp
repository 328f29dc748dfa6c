#include "engine/core/value.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace q {

static bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::optional<double> parseNumber(const std::string& text) {
  size_t b = 0, e = text.size();
  while (b < e && isBlank(text[b])) ++b;
  while (e > b && isBlank(text[e - 1])) --e;
  if (b == e) return std::nullopt;
  std::string s = text.substr(b, e - b);
  // Only plain decimal numbers: no hex, no inf/nan that strtod would accept.
  for (char c : s)
    if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+' ||
          c == 'e' || c == 'E'))
      return std::nullopt;
  char* end = nullptr;
  double d = std::strtod(s.c_str(), &end);
  if (end != s.c_str() + s.size() || !std::isfinite(d)) return std::nullopt;
  return d;
}

bool isNumeric(const std::string& text) { return parseNumber(text).has_value(); }

double leadingNumber(const std::string& text) {
  size_t i = 0;
  while (i < text.size() && isBlank(text[i])) ++i;
  size_t j = i;
  if (j < text.size() && (text[j] == '-' || text[j] == '+')) ++j;
  while (j < text.size() && (std::isdigit(static_cast<unsigned char>(text[j])) || text[j] == '.'))
    ++j;
  if (j == i) return 0;
  double d = std::strtod(text.substr(i, j - i).c_str(), nullptr);
  return std::isfinite(d) ? d : 0;
}

std::optional<double> numberOf(const Value& v) {
  switch (v.index()) {
    case 0:
      return 0.0;
    case 1:
      return double(std::get<uint8_t>(v));
    case 2:
      return double(std::get<int16_t>(v));
    case 3:
      return std::get<double>(v);
    default:
      return parseNumber(std::get<std::string>(v));
  }
}

double numberOr0(const Value& v) { return numberOf(v).value_or(0.0); }

long roundHalfEven(double x) { return std::lrint(x); }  // default FE_TONEAREST: half to even

std::string toText(const Value& v) {
  switch (v.index()) {
    case 0:
      return {};
    case 1:
      return std::to_string(std::get<uint8_t>(v));
    case 2:
      return std::to_string(std::get<int16_t>(v));
    case 3: {
      double d = std::get<double>(v);
      if (d == std::floor(d) && std::fabs(d) < 1e15)
        return std::to_string(static_cast<long long>(d));
      char buf[32];
      std::snprintf(buf, sizeof buf, "%.15g", d);
      return buf;
    }
    default:
      return std::get<std::string>(v);
  }
}

}  // namespace q
