#include "engine/interfaces/ola_output.h"

namespace q {

void OlaOutput::start(std::unique_ptr<OlaSender> sender, unsigned universe, int rpcPort) {
  stop();
  sender_ = std::move(sender);
  universe_ = universe;
  rpcPort_ = rpcPort;
  announced_ = false;
  if (!tryConnect()) lost();
}

bool OlaOutput::tryConnect() {
  lastAttempt_ = hooks_.nowMs ? hooks_.nowMs() : 0;
  connected_ = sender_ && sender_->connect(rpcPort_);
  if (connected_) announced_ = false;
  return connected_;
}

void OlaOutput::lost() {
  connected_ = false;
  if (announced_) return;
  announced_ = true;
  if (hooks_.message) hooks_.message(kNotRunning);
}

void OlaOutput::sendFrame(const uint8_t* frame) {
  if (!sender_) return;
  if (!connected_) {
    const int64_t now = hooks_.nowMs ? hooks_.nowMs() : 0;
    if (now - lastAttempt_ < kRetryMs || !tryConnect()) return;
  }
  if (sender_->send(universe_, frame, 512)) return;
  sender_->disconnect();
  lastAttempt_ = hooks_.nowMs ? hooks_.nowMs() : 0;
  lost();
}

void OlaOutput::stop() {
  if (sender_) sender_->disconnect();
  sender_.reset();
  connected_ = false;
}

}  // namespace q
