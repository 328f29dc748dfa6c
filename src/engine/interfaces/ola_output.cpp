#include "engine/interfaces/ola_output.h"

#include <chrono>

#include "engine/interfaces/held_frame_gate.h"

namespace q {

namespace {
int64_t steadyMs() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
}  // namespace

OlaOutput::OlaOutput(Hooks hooks) : hooks_(std::move(hooks)) {}

OlaOutput::~OlaOutput() { stop(); }

void OlaOutput::start(std::unique_ptr<OlaSender> sender, unsigned universe, int rpcPort,
                      int intervalMs) {
  stop();
  sender_ = std::move(sender);
  universe_ = universe;
  rpcPort_ = rpcPort;
  announced_ = false;
  onWire_ = hooks_.wireThread && hooks_.wireThread();
  const int64_t now = onWire_ ? steadyMs() : hooks_.nowMs ? hooks_.nowMs() : 0;
  report(tryConnect(now));
  if (!onWire_ || !sender_) return;
  WireStyle style = WireStyle::heldFrames(!continuous);
  // The output tick hands over a keep-alive once a second; the line's own
  // stands in only while the console is too busy to tick.
  style.keepAlive = std::chrono::milliseconds(2 * HeldFrameGate::kKeepAliveMs);
  wire_ = std::make_unique<WireThread>(
      [this](const uint8_t* frame) { return deliver(frame, steadyMs()) ? 0 : 1; }, intervalMs,
      hooks_.prepareWireThread, style);
}

bool OlaOutput::tryConnect(int64_t nowMs) {
  lastAttempt_ = nowMs;
  const bool up = sender_ && sender_->connect(rpcPort_);
  connected_.store(up, std::memory_order_relaxed);
  return up;
}

bool OlaOutput::deliver(const uint8_t* frame, int64_t nowMs) {
  if (!sender_) return false;
  if (!connected() && (nowMs - lastAttempt_ < kRetryMs || !tryConnect(nowMs))) return false;
  if (sender_->send(universe_, frame, 512)) return true;
  sender_->disconnect();
  connected_.store(false, std::memory_order_relaxed);
  lastAttempt_ = nowMs;
  return false;
}

void OlaOutput::sendFrame(const uint8_t* frame, int intervalMs) {
  if (!sender_) return;
  if (wire_) {
    wire_->handOver(frame, intervalMs);
    // What the line found on its last frame; before the line's first
    // frame, the link as start found it.
    report(wire_->framesSent() ? wire_->lastFailure() == 0 : connected());
    return;
  }
  report(deliver(frame, hooks_.nowMs ? hooks_.nowMs() : 0));
}

// One message per outage: said when the link is found down, and again only
// after it has been up.
void OlaOutput::report(bool delivered) {
  if (delivered) {
    announced_ = false;
    return;
  }
  if (announced_) return;
  // Marked before the box opens: a modal box lets ticks run underneath it.
  announced_ = true;
  if (hooks_.message) hooks_.message(kNotRunning);
}

void OlaOutput::stop() {
  wire_.reset();
  if (sender_) sender_->disconnect();
  sender_.reset();
  connected_.store(false, std::memory_order_relaxed);
}

}  // namespace q
