#include "engine/interfaces/ftdi_frame_sender.h"

#include <chrono>

namespace q {

FtdiFrameSender::FtdiFrameSender(std::unique_ptr<FtdiDevice> device, OpenDmx::Hooks hooks,
                                 Options options)
    : device_(std::move(device)),
      dmx_(*device_, hooks),
      message_(hooks.message),
      options_(std::move(options)) {}

FtdiFrameSender::~FtdiFrameSender() {
  wire_.reset();
  // Closing here shows nothing: a sender is dropped without a stop only when
  // the console goes down or the adapter was switched away without a stop.
  if (dmx_.OpenDmxOpen) device_->close();
}

bool FtdiFrameSender::startDMX() {
  close();
  // An adapter that does not come up at start is not tried again: the start
  // has shown what failed, and choosing the adapter again starts it anew.
  if (!dmx_.OpenDmxOpenDevice()) return false;
  dmx_.OpenDmxStartCode = 0;
  startLine();
  policy_.up();
  return true;
}

void FtdiFrameSender::startLine() {
  if (options_.wireThread)
    wire_ = std::make_unique<WireThread>([this](const uint8_t* f) { return sendOnWire(f); },
                                         options_.intervalMs, options_.prepareWireThread);
}

int FtdiFrameSender::sendOnWire(const uint8_t* frame) {
  dmx_.OpenDmxCopyFrame(frame);
  return dmx_.OpenDmxSend();
}

void FtdiFrameSender::sendFrame(const uint8_t* frame, int intervalMs) {
  const int64_t nowMs = now();
  if (policy_.lost() && !comeBack(nowMs)) return;
  if (!policy_.isUp()) return;
  if (wire_) {
    wire_->handOver(frame, intervalMs);
    // What the line found on its last frame; nothing yet before its first.
    if (wire_->framesSent() == 0) return;
    const int failure = wire_->lastFailure();
    if (failure != OpenDmx::kSent)
      return lose(OpenDmx::failureText(OpenDmx::SendResult(failure)), nowMs);
    policy_.sent();
    return;
  }
  dmx_.OpenDmxCopyFrame(frame);
  const OpenDmx::SendResult result = dmx_.OpenDmxSend();
  if (result != OpenDmx::kSent) return lose(OpenDmx::failureText(result), nowMs);
  policy_.sent();
}

void FtdiFrameSender::lose(const char* failure, int64_t nowMs) {
  wire_.reset();
  // The chip is gone or in trouble: let go of it without a word, so that
  // the next set-up starts from a clean open.
  if (dmx_.OpenDmxOpen) device_->close();
  dmx_.OpenDmxOpen = false;
  if (!policy_.lose(nowMs)) return;
  const std::string text = std::string(failure) + " " + ReconnectPolicy::lostText(adapterName);
  if (options_.notice) {
    options_.notice(text);
  } else if (message_) {
    message_(text);
  }
}

bool FtdiFrameSender::comeBack(int64_t nowMs) {
  if (!policy_.tryNow(nowMs) || !dmx_.OpenDmxReopen()) return false;
  dmx_.OpenDmxStartCode = 0;
  startLine();
  policy_.up();
  return true;
}

int64_t FtdiFrameSender::now() const {
  if (options_.nowMs) return options_.nowMs();
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void FtdiFrameSender::close() {
  wire_.reset();
  dmx_.OpenDmxClose();
  policy_.off();
}

}  // namespace q
