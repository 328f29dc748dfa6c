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

WireThread::WireThread(Send send, int intervalMs, std::function<void()> prepare)
    : send_(std::move(send)), intervalNs_(msToNs(intervalMs)) {
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
  lastTickNs_.store(nanos(Clock::now()), std::memory_order_release);
  handOvers_.fetch_add(1, std::memory_order_release);
  // Passing through the lock keeps the wake-up from slipping in between the
  // wire thread's look at the count and its wait.
  { std::lock_guard<std::mutex> lock(mutex_); }
  wake_.notify_all();
}

std::optional<int64_t> WireThread::phaseError(Clock::time_point deadline,
                                              Clock::duration interval) const {
  const int64_t tick = lastTickNs_.load(std::memory_order_acquire);
  const int64_t iv = interval.count();
  const int64_t sinceTick = nanos(deadline) - tick;
  // No tick for two periods: the console is busy; the line keeps its own pace.
  if (tick == 0 || sinceTick > 2 * iv || sinceTick < -iv) return std::nullopt;
  // How far the frame lies from its aim, folded into half a period either way.
  int64_t error = sinceTick - std::chrono::nanoseconds(kLeadAfterTick).count();
  error %= iv;
  if (error > iv / 2) error -= iv;
  if (error <= -iv / 2) error += iv;
  return error;
}

void WireThread::run(std::function<void()> prepare) {
  using std::chrono::nanoseconds;
  if (prepare) prepare();
  Clock::duration interval = nanoseconds(intervalNs_.load());
  Clock::time_point deadline = Clock::now() + interval;
  uint64_t seen = 0;
  bool locked = false;  // the line sits just after the ticks
  std::unique_lock<std::mutex> lock(mutex_);
  while (!stop_) {
    if (wake_.wait_until(lock, deadline, [this] { return stop_; })) break;
    // Locked to the ticks and this period's tick not here yet: it is only a
    // little late, and the frame waits for it.
    if (locked && handOvers_.load(std::memory_order_acquire) == seen) {
      auto tickCame = [&] { return stop_ || handOvers_.load(std::memory_order_acquire) != seen; };
      if (wake_.wait_until(lock, deadline + kGraceForLateTick, tickCame) && stop_) break;
    }
    seen = handOvers_.load(std::memory_order_acquire);
    lock.unlock();
    failure_.store(send_(slot_.take().data()), std::memory_order_relaxed);
    frames_.fetch_add(1, std::memory_order_relaxed);
    interval = nanoseconds(intervalNs_.load(std::memory_order_relaxed));
    const std::optional<int64_t> error = phaseError(deadline, interval);
    const int64_t slew = nanoseconds(kMaxSlew).count();
    locked = error && std::abs(*error) <= nanoseconds(kLockedWithin).count();
    deadline += interval + nanoseconds(error ? std::clamp(-*error / 2, -slew, slew) : 0);
    // A frame that took longer than a period: the next one follows at once.
    const Clock::time_point now = Clock::now();
    if (deadline < now) deadline = now;
    lock.lock();
  }
}

}  // namespace q
