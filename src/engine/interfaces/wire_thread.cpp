#include "engine/interfaces/wire_thread.h"

#include <algorithm>
#include <cstdlib>

namespace q {

namespace {
int64_t nanos(std::chrono::steady_clock::time_point t) {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(t.time_since_epoch()).count();
}
int64_t msToNs(int ms) { return int64_t(std::max(1, ms)) * 1'000'000; }
}  // namespace

WireThread::WireThread(Send send, int intervalMs, std::function<void()> prepare, WireStyle style)
    : send_(std::move(send)), style_(style), intervalNs_(msToNs(intervalMs)) {
  thread_ = std::thread([this, p = std::move(prepare)] { run(p); });
}

WireThread::~WireThread() {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    stop_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

void WireThread::handOver(const uint8_t* frame, int intervalMs) {
  slot_.put(frame);
  intervalNs_.store(msToNs(intervalMs), std::memory_order_relaxed);
  const Clock::time_point tick = Clock::now();
  lastTickNs_.store(nanos(tick), std::memory_order_release);
  handOvers_.fetch_add(1, std::memory_order_release);
  // Looking under the lock keeps the wake-up from slipping in between the
  // wire thread's look at the count and its wait.
  bool wake = false;
  {
    std::lock_guard<std::mutex> lock(mutex_);
    wake = wakes(tick);
  }
  if (wake) wake_.notify_all();
}

bool WireThread::wakes(Clock::time_point tick) const {
  switch (waiting_) {
    case Wait::HandOver:
      return true;
    case Wait::Slot:
      // The same test as waitForSlot's: only a stray tick brings the slot forward.
      return style_.meetsStrayTicks &&
             slotDeadline_ > tick + style_.leadAfterTick + style_.graceForLateTick;
    case Wait::None:
      break;
  }
  // Not waiting: the line looks at the count before it waits again.
  return false;
}

std::optional<int64_t> WireThread::phaseError(Clock::time_point deadline,
                                              Clock::duration interval) const {
  const int64_t tick = lastTickNs_.load(std::memory_order_acquire);
  const int64_t iv = interval.count();
  const int64_t sinceTick = nanos(deadline) - tick;
  // No tick for two periods: the console is busy; the line keeps its own pace.
  if (tick == 0 || sinceTick > 2 * iv || sinceTick < -iv) return std::nullopt;
  // How far the frame lies from its aim, folded into half a period either way.
  int64_t error = sinceTick - std::chrono::nanoseconds(style_.leadAfterTick).count();
  error %= iv;
  if (error > iv / 2) error -= iv;
  if (error <= -iv / 2) error += iv;
  return error;
}

bool WireThread::waitForSlot(std::unique_lock<std::mutex>& lock, Clock::time_point& deadline,
                             uint64_t seen) {
  while (!stop_) {
    if (style_.meetsStrayTicks && handOvers_.load(std::memory_order_acquire) != seen) {
      const Clock::time_point tick{std::chrono::nanoseconds(lastTickNs_.load())};
      if (deadline > tick + style_.leadAfterTick + style_.graceForLateTick)
        deadline = tick + style_.leadAfterTick;
    }
    if (Clock::now() >= deadline) return true;
    waiting_ = Wait::Slot;
    slotDeadline_ = deadline;
    wake_.wait_until(lock, deadline);
    waiting_ = Wait::None;
  }
  return false;
}

void WireThread::run(std::function<void()> prepare) {
  using std::chrono::nanoseconds;
  if (prepare) prepare();
  Clock::duration interval = nanoseconds(intervalNs_.load());
  Clock::time_point deadline = Clock::now() + interval;
  Clock::time_point lastSent = Clock::now();
  uint64_t seen = 0;
  bool locked = false;   // the line sits just after the ticks
  bool resting = false;  // a resting line waits for a frame or its keep-alive
  auto handedOver = [&] { return stop_ || handOvers_.load(std::memory_order_acquire) != seen; };
  std::unique_lock<std::mutex> lock(mutex_);
  // Waits for a hand-over until the time; true when one came (or the line stops).
  auto awaitHandOver = [&](Clock::time_point until) {
    waiting_ = Wait::HandOver;
    const bool came = wake_.wait_until(lock, until, handedOver);
    waiting_ = Wait::None;
    return came;
  };
  while (!stop_) {
    if (resting) {
      if (awaitHandOver(lastSent + style_.keepAlive) && stop_) break;
      // The first frame after a rest goes at once: there is no pace to keep.
      deadline = Clock::now();
    } else {
      if (!waitForSlot(lock, deadline, seen)) break;
      // This period's tick not here yet, but one is expected: it is only a
      // little late, and the frame waits for it.
      if ((locked || style_.rests) && !handedOver()) {
        if (awaitHandOver(deadline + style_.graceForLateTick) && stop_) break;
      }
      if (style_.rests && !handedOver()) {
        resting = true;
        locked = false;
        continue;
      }
    }
    const bool fresh = handedOver();
    seen = handOvers_.load(std::memory_order_acquire);
    lock.unlock();
    failure_.store(send_(slot_.take().data()), std::memory_order_relaxed);
    frames_.fetch_add(1, std::memory_order_relaxed);
    lastSent = Clock::now();
    if (resting && !fresh) {  // a keep-alive: the line goes on resting
      lock.lock();
      continue;
    }
    resting = false;
    interval = nanoseconds(intervalNs_.load(std::memory_order_relaxed));
    const std::optional<int64_t> error = phaseError(deadline, interval);
    const int64_t slew = nanoseconds(kMaxSlew).count();
    locked = error && std::abs(*error) <= nanoseconds(kLockedWithin).count();
    const bool steady = error && std::abs(*error) <= nanoseconds(style_.steadyWithin).count();
    deadline += interval + nanoseconds(error && !steady ? std::clamp(-*error / 2, -slew, slew) : 0);
    // A frame that took longer than a period: the next one follows at once.
    const Clock::time_point now = Clock::now();
    if (deadline < now) deadline = now;
    lock.lock();
  }
}

}  // namespace q
