#pragma once
// Some receivers keep the last frame by themselves: olad holds its universe,
// and an FTDI line thread puts the latest frame on the wire at every period.
// Handing such a receiver the same frame at every output tick changes
// nothing, so the output tick hands over a frame that differs from the last
// one it handed over, and an unchanged frame only as a keep-alive about once
// a second, which also finds out soon when the receiver has gone. The output
// tick itself keeps its beat: a change goes out at the next regular tick.

#include <array>
#include <cstdint>
#include <cstring>

namespace q {

class HeldFrameGate {
 public:
  static constexpr int64_t kKeepAliveMs = 1000;

  // True when this frame is to be handed over now; it then counts as the last one.
  bool pass(const uint8_t* frame, int64_t nowMs) {
    const bool same = primed_ && std::memcmp(last_.data(), frame, last_.size()) == 0;
    if (same && nowMs - lastMs_ < kKeepAliveMs) return false;
    std::memcpy(last_.data(), frame, last_.size());
    lastMs_ = nowMs;
    primed_ = true;
    return true;
  }
  // When this frame is next to be handed over: at once when it is new
  // (INT64_MIN), else when the keep-alive falls due.
  int64_t nextHandOver(const uint8_t* frame) const {
    if (!primed_ || std::memcmp(last_.data(), frame, last_.size()) != 0) return INT64_MIN;
    return lastMs_ + kKeepAliveMs;
  }
  // A new receiver gets the next frame whatever it holds.
  void reset() { primed_ = false; }

 private:
  std::array<uint8_t, 512> last_{};
  int64_t lastMs_ = 0;
  bool primed_ = false;
};

}  // namespace q
