#include "engine/interfaces/wire_thread.h"

#include <algorithm>

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
}

WireThread::Clock::duration WireThread::phaseCorrection(Clock::time_point deadline,
                                                        Clock::duration interval) const {
  const int64_t tick = lastTickNs_.load(std::memory_order_acquire);
  const int64_t iv = interval.count();
  const int64_t sinceTick = nanos(deadline) - tick;
  // No tick for two periods: the console is busy; keep the line's own pace.
  if (tick == 0 || sinceTick > 2 * iv || sinceTick < -iv) return {};
  // How far the frame lies from its aim, folded into half a period either way.
  int64_t error = sinceTick - std::chrono::nanoseconds(kLeadAfterTick).count();
  error %= iv;
  if (error > iv / 2) error -= iv;
  if (error <= -iv / 2) error += iv;
  const int64_t slew = std::chrono::nanoseconds(kMaxSlew).count();
  return std::chrono::nanoseconds(std::clamp(-error / 2, -slew, slew));
}

void WireThread::run(std::function<void()> prepare) {
  if (prepare) prepare();
  Clock::duration interval = std::chrono::nanoseconds(intervalNs_.load());
  Clock::time_point deadline = Clock::now() + interval;
  std::unique_lock<std::mutex> lock(mutex_);
  while (!stop_) {
    if (wake_.wait_until(lock, deadline, [this] { return stop_; })) break;
    lock.unlock();
    failure_.store(send_(slot_.take().data()), std::memory_order_relaxed);
    frames_.fetch_add(1, std::memory_order_relaxed);
    interval = std::chrono::nanoseconds(intervalNs_.load(std::memory_order_relaxed));
    deadline += interval + phaseCorrection(deadline, interval);
    // A frame that took longer than a period: the next one follows at once.
    const Clock::time_point now = Clock::now();
    if (deadline < now) deadline = now;
    lock.lock();
  }
}

}  // namespace q
