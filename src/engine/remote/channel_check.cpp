#include "engine/remote/channel_check.h"

#include <algorithm>

#include "engine/core/console.h"
#include "engine/remote/show_control.h"
#include "engine/views/edit_column.h"

namespace q {

ChannelCheck::ChannelCheck(Console& c) : c_(c) {}

bool ChannelCheck::check(int channel, double level) {
  uint8_t byte = 0;
  if (!isChannel(channel) || !ShowControl::levelByte(level, byte)) return false;
  Variables& v = c_.v;
  if (!editColumnValid(v)) return false;
  if (on() && (channel != channel_ || v.EditColumn != column_)) giveBack();
  if (!on()) {
    column_ = v.EditColumn;
    before_ = editLevel(v, channel);
  }
  channel_ = channel;
  level_ = level;
  return ShowControl(c_).channel(channel, level);
}

bool ChannelCheck::step(int delta) {
  if (!on()) return false;
  const int last = std::clamp<int>(c_.v.MaxChans, 1, kChannels);
  const int next = std::clamp(channel_ + delta, 1, last);
  return next == channel_ || check(next, level_);
}

bool ChannelCheck::setLevel(double level) {
  uint8_t byte = 0;
  if (!ShowControl::levelByte(level, byte)) return false;
  level_ = level;
  return !on() || check(channel_, level);
}

void ChannelCheck::off() {
  if (on()) giveBack();
}

// Into the column it was taken from, even when the operator has chosen
// another column under edit since.
void ChannelCheck::giveBack() {
  Variables& v = c_.v;
  if (column_ >= 1 && column_ <= kColumns) {
    v.ChanTable.set(channel_, column_ - 1, before_);
    v.MixDirty = kTrue;
  }
  channel_ = 0;
}

}  // namespace q
