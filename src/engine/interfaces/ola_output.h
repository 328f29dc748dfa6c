#pragma once
// Output through the OLA daemon (interface 10): the frame of each output
// tick goes to one OLA universe, and from there to any device or network
// olad drives. olad holds the universe, so the output tick may rest while
// nothing changes (InterfaceLayer::outputMayRest): then a frame goes once a
// second, which also finds out soon when olad has gone. When olad is not running the console says
// so once and goes on; it tries again by itself, at most once a second, and says nothing more until
// the link has been up and is lost again.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/interfaces/devices.h"

namespace q {

class OlaOutput {
 public:
  struct Hooks {
    std::function<int64_t()> nowMs;
    std::function<void(const std::string& text)> message;
  };
  explicit OlaOutput(Hooks hooks) : hooks_(std::move(hooks)) {}

  void start(std::unique_ptr<OlaSender> sender, unsigned universe, int rpcPort);
  void sendFrame(const uint8_t* frame);
  void stop();
  bool connected() const { return connected_; }

  static constexpr int kRetryMs = 1000;
  static constexpr const char* kNotRunning =
      "OLA is not running (olad could not be reached): no DMX goes out through OLA until it "
      "starts. The console keeps trying.";

 private:
  bool tryConnect();
  void lost();

  Hooks hooks_;
  std::unique_ptr<OlaSender> sender_;
  unsigned universe_ = 1;
  int rpcPort_ = 9010;
  bool connected_ = false;
  bool announced_ = false;
  int64_t lastAttempt_ = 0;
};

}  // namespace q
