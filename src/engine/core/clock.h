#pragma once
// The console's sense of time, in milliseconds. The desk and the headless
// runner use the machine's steady clock; tests and show checks use a virtual
// clock that moves only when told to, so every run is identical.

#include <cstdint>

namespace q {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual int64_t nowMs() const = 0;
};

class VirtualClock : public Clock {
 public:
  int64_t nowMs() const override { return now_; }
  void set(int64_t ms) { now_ = ms; }

 private:
  int64_t now_ = 0;
};

class SteadyClock : public Clock {
 public:
  SteadyClock();
  int64_t nowMs() const override;

 private:
  int64_t origin_;
};

}  // namespace q
