#pragma once
// What an axis of the X/Y control drives, as the operator types it: a
// channel number (its level in the column under edit), or "S" and a number
// whose last two digits name a submaster (its strip's fader). Any other text
// drives nothing, and neither does a channel outside 1..512 or a submaster
// outside 1..20.

#include <string>

namespace q {

struct AxisTarget {
  enum class Kind { None, Channel, Submaster };
  Kind kind = Kind::None;
  int number = 0;  // the channel, or the submaster

  bool operator==(const AxisTarget&) const = default;
};

AxisTarget axisTarget(const std::string& text);

}  // namespace q
