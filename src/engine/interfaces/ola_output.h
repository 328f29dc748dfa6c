#pragma once
// Output through the OLA daemon (interface 10): the frames of the output
// tick go to one OLA universe, and from there to any device or network olad
// drives. olad holds the universe, so while nothing changes the tick hands
// over the frame only about once a second (HeldFrameGate), which also finds
// out soon when olad has gone.
//
// With a real olad the frames leave from a resting WireThread, on an even
// period that a busy console thread does not shake. When olad is not running
// the console says so once and goes on; it tries again by itself, at most
// once a second, and says nothing more until the link has been up and is
// lost again.

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/interfaces/devices.h"
#include "engine/interfaces/wire_thread.h"

namespace q {

class OlaOutput {
 public:
  struct Hooks {
    std::function<int64_t()> nowMs;
    std::function<void(const std::string& text)> message;
    // Whether frames leave from a wire thread (real devices), asked at start.
    std::function<bool()> wireThread;
    std::function<void()> prepareWireThread;
  };
  explicit OlaOutput(Hooks hooks);
  ~OlaOutput();

  void start(std::unique_ptr<OlaSender> sender, unsigned universe, int rpcPort, int intervalMs);
  // Console thread, at each output tick.
  void sendFrame(const uint8_t* frame, int intervalMs);
  void stop();
  bool connected() const { return connected_.load(std::memory_order_relaxed); }
  // A continuous line sends every period, new frame or not; set before start.
  bool continuous = false;
  const WireThread* wire() const { return wire_.get(); }

  static constexpr int kRetryMs = 1000;
  static constexpr const char* kNotRunning =
      "OLA is not running (olad could not be reached): no DMX goes out through OLA until it "
      "starts. The console keeps trying.";

 private:
  // Sends one frame, reconnecting first when the link is down and the last
  // try is a second old; false when the frame did not reach olad. On the
  // wire thread when there is one, else inside the tick.
  bool deliver(const uint8_t* frame, int64_t nowMs);
  bool tryConnect(int64_t nowMs);
  void report(bool delivered);

  Hooks hooks_;
  std::unique_ptr<OlaSender> sender_;
  std::unique_ptr<WireThread> wire_;
  unsigned universe_ = 1;
  int rpcPort_ = 9010;
  std::atomic<bool> connected_{false};
  bool announced_ = false;  // console thread only
  int64_t lastAttempt_ = 0;
  bool onWire_ = false;
};

}  // namespace q
