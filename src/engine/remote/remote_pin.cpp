#include "engine/remote/remote_pin.h"

#include <algorithm>

namespace q {

RemotePin RemotePin::fromRandom(uint32_t random) {
  std::string pin(kDigits, '0');
  for (int i = kDigits - 1; i >= 0; --i) {
    pin[size_t(i)] = char('0' + random % 10);
    random /= 10;
  }
  return RemotePin(pin);
}

int64_t RemotePin::waitMs(int64_t nowMs) const { return std::max<int64_t>(0, nextTryAt_ - nowMs); }

RemotePin::Answer RemotePin::attempt(const std::string& given, int64_t nowMs) {
  if (!needed()) return Answer::Right;
  if (waitMs(nowMs) > 0) return Answer::TooSoon;
  if (given == pin_) {
    wrong_ = 0;
    nextTryAt_ = 0;
    return Answer::Right;
  }
  ++wrong_;
  if (wrong_ >= kFreeTries) {
    // 1 s after the third wrong try, then twice as long each time.
    const int doublings = std::min(wrong_ - kFreeTries, 16);
    nextTryAt_ = nowMs + std::min(kLongestWaitMs, kFirstWaitMs << doublings);
  }
  return Answer::Wrong;
}

}  // namespace q
