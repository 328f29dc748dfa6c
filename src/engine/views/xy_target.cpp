#include "engine/views/xy_target.h"

#include <algorithm>
#include <cctype>

#include "engine/core/value.h"
#include "engine/core/variables.h"

namespace q {

namespace {
bool allDigits(const std::string& s) {
  return !s.empty() &&
         std::all_of(s.begin(), s.end(), [](unsigned char ch) { return std::isdigit(ch); });
}

AxisTarget submaster(const std::string& digits) {
  if (!allDigits(digits)) return {};
  const int n = std::stoi(digits.substr(digits.size() - std::min<size_t>(digits.size(), 2)));
  if (n < 1 || n > kSubmasters) return {};
  return {AxisTarget::Kind::Submaster, n};
}
}  // namespace

AxisTarget axisTarget(const std::string& text) {
  if (!text.empty() && text[0] == 'S') return submaster(text.substr(1));
  const auto n = parseNumber(text);
  if (!n || *n < 0.5 || *n >= kChannels + 0.5) return {};
  const long channel = roundHalfEven(*n);
  if (channel < 1 || channel > kChannels) return {};
  return {AxisTarget::Kind::Channel, int(channel)};
}

}  // namespace q
