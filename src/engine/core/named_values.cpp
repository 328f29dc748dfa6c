#include "engine/core/named_values.h"

#include <charconv>

namespace q {

std::optional<std::string> NamedValues::get(const std::string& expr) const {
  // Plain names may carry a fixed index of their own (`FXStepCount(0)`).
  if (auto it = plain_.find(expr); it != plain_.end()) return it->second();
  auto open = expr.find('(');
  if (open == std::string::npos || expr.back() != ')') return std::nullopt;
  auto it = indexed_.find(expr.substr(0, open));
  if (it == indexed_.end()) return std::nullopt;
  std::vector<int> idx;
  size_t pos = open + 1;
  const size_t end = expr.size() - 1;
  while (pos <= end) {
    size_t comma = expr.find(',', pos);
    if (comma == std::string::npos || comma > end) comma = end;
    int n = 0;
    auto [p, ec] = std::from_chars(expr.data() + pos, expr.data() + comma, n);
    if (ec != std::errc() || p != expr.data() + comma) return std::nullopt;
    idx.push_back(n);
    pos = comma + 1;
  }
  if (idx.size() != it->second.first) return std::nullopt;
  return it->second.second(idx);
}

}  // namespace q
