#include "engine/core/clock.h"

#include <chrono>

namespace q {

static int64_t steadyMs() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

SteadyClock::SteadyClock() : origin_(steadyMs()) {}

int64_t SteadyClock::nowMs() const { return steadyMs() - origin_; }

}  // namespace q
