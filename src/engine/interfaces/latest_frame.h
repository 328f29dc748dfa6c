#pragma once
// The hand-over between the output tick and a wire thread: one slot that
// always holds the latest frame. The console thread puts a frame in without
// ever waiting; the wire thread takes the newest one without ever waiting,
// and takes the same frame again when nothing newer came. Three buffers and
// one atomic index make both sides lock-free, so a stalled console never
// holds up the line and the line never holds up a fader.

#include <array>
#include <atomic>
#include <cstdint>
#include <cstring>

namespace q {

class LatestFrameSlot {
 public:
  static constexpr int kSize = 512;
  using Frame = std::array<uint8_t, kSize>;

  // Console thread.
  void put(const uint8_t* frame) {
    std::memcpy(buffers_[back_].data(), frame, kSize);
    back_ = middle_.exchange(back_ | kFresh, std::memory_order_acq_rel) & kIndex;
  }

  // Wire thread: the newest frame put in, or the last one taken.
  const Frame& take() {
    if (middle_.load(std::memory_order_acquire) & kFresh)
      front_ = middle_.exchange(front_, std::memory_order_acq_rel) & kIndex;
    return buffers_[front_];
  }

 private:
  static constexpr int kIndex = 3;
  static constexpr int kFresh = 4;
  std::array<Frame, 3> buffers_{};
  int back_ = 0;                // written only by the console thread
  std::atomic<int> middle_{1};  // index of the buffer in between, and whether it is new
  int front_ = 2;               // read only by the wire thread
};

}  // namespace q
