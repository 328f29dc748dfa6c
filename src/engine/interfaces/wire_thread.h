#pragma once
// A thread that puts frames on the wire for an adapter the host must time.
// It sends one frame every interval, always the latest frame the output
// tick handed over, so a busy console thread (a large file load, a modal
// dialog) delays level changes but never the refresh of the line.
//
// The line keeps its own steady period. To keep a fader move from waiting
// for two periods (one for the tick, one for the line), the line's phase is
// pulled gently towards a point just after each tick: never by more than a
// fraction of a millisecond per frame, so the spacing of frames on the wire
// stays even. A tick that comes a little late is waited for, a millisecond
// at most, without moving the frames after it. While the console is too
// busy to tick, the line runs free.
//
// A line for a receiver that holds the last frame (olad) may rest: it sends
// only the frames the console hands over, still on its steady period, and
// after a quiet keepAlive the last one again (see WireStyle).

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

#include "engine/interfaces/latest_frame.h"

namespace q {

// How a line follows the console's ticks. The defaults suit an adapter the
// host must time (the FTDI senders): a frame every period, the phase pulled
// gently towards the ticks.
struct WireStyle {
  // Sends only the frames handed over, and the last one again after a quiet
  // keepAlive.
  bool rests = false;
  // Meets a tick far off the line's pace (the first after a quiet spell,
  // or one made late by a busy console) a lead after it, instead of at the
  // line's next slot.
  bool meetsStrayTicks = false;
  std::chrono::microseconds leadAfterTick{1000};
  std::chrono::microseconds graceForLateTick{750};
  std::chrono::milliseconds keepAlive{1000};
  // Within this of its aim the line keeps an exact period; 0: it always follows.
  std::chrono::microseconds steadyWithin{0};

  // For a receiver that holds the last frame (olad): the lead leaves room
  // for a tick made late by a busy console thread, so the line need not
  // follow every late tick and keeps an exact period.
  static WireStyle heldFrames(bool rests) {
    WireStyle s;
    s.rests = rests;
    s.meetsStrayTicks = true;
    s.leadAfterTick = std::chrono::microseconds(3000);
    s.graceForLateTick = std::chrono::microseconds(2000);
    s.steadyWithin = std::chrono::microseconds(2000);
    return s;
  }
};

class WireThread {
 public:
  // Puts one frame on the wire; returns a failure code, 0 when it went out.
  using Send = std::function<int(const uint8_t* frame)>;

  WireThread(Send send, int intervalMs, std::function<void()> prepare = {}, WireStyle style = {});
  ~WireThread();
  WireThread(const WireThread&) = delete;
  WireThread& operator=(const WireThread&) = delete;

  // Console thread, at each output tick.
  void handOver(const uint8_t* frame, int intervalMs);
  // The result of the last frame sent.
  int lastFailure() const { return failure_.load(std::memory_order_relaxed); }
  // Frames sent so far.
  long framesSent() const { return frames_.load(std::memory_order_relaxed); }
  // Frames the output tick has handed over so far.
  uint64_t handOvers() const { return handOvers_.load(std::memory_order_relaxed); }

  // How much the line's phase may move per frame.
  static constexpr std::chrono::microseconds kMaxSlew{500};
  // Within this of its aim the line counts as locked to the ticks, and a
  // frame may wait this much longer for a tick that is late.
  static constexpr std::chrono::microseconds kLockedWithin{1500};

 private:
  using Clock = std::chrono::steady_clock;
  void run(std::function<void()> prepare);
  // Waits for the frame's slot, false when the line stops meanwhile.
  bool waitForSlot(std::unique_lock<std::mutex>& lock, Clock::time_point& deadline, uint64_t seen);
  // How far a frame at deadline lies from its aim just after the last tick;
  // nothing while the console is too busy to tick.
  std::optional<int64_t> phaseError(Clock::time_point deadline, Clock::duration interval) const;
  // Whether a hand-over at tick changes what the waiting line does (under mutex_).
  bool wakes(Clock::time_point tick) const;

  // What the line is waiting for, so that a hand-over wakes it only when
  // the wait would end or its deadline would move: at every tick the line
  // is usually waiting for a slot the tick leaves where it is.
  enum class Wait { None, Slot, HandOver };
  Wait waiting_ = Wait::None;
  Clock::time_point slotDeadline_;

  Send send_;
  const WireStyle style_;
  LatestFrameSlot slot_;
  std::atomic<int64_t> intervalNs_;
  std::atomic<int64_t> lastTickNs_{0};  // time of the last hand-over, 0 before the first
  std::atomic<uint64_t> handOvers_{0};
  std::atomic<int> failure_{0};
  std::atomic<long> frames_{0};
  std::mutex mutex_;
  std::condition_variable wake_;
  bool stop_ = false;
  std::thread thread_;
};

}  // namespace q
