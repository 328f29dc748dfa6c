#include "engine/interfaces/ftdi_frame_sender.h"

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
  if (!dmx_.OpenDmxOpenDevice()) return false;
  dmx_.OpenDmxStartCode = 0;
  if (options_.wireThread)
    wire_ = std::make_unique<WireThread>([this](const uint8_t* f) { return sendOnWire(f); },
                                         options_.intervalMs, options_.prepareWireThread);
  return true;
}

int FtdiFrameSender::sendOnWire(const uint8_t* frame) {
  dmx_.OpenDmxCopyFrame(frame);
  return dmx_.OpenDmxSend();
}

void FtdiFrameSender::sendFrame(const uint8_t* frame, int intervalMs) {
  if (wire_) {
    wire_->handOver(frame, intervalMs);
    report(OpenDmx::failureText(OpenDmx::SendResult(wire_->lastFailure())));
    return;
  }
  dmx_.OpenDmxCopyFrame(frame);
  report(OpenDmx::failureText(dmx_.OpenDmxSend()));
}

void FtdiFrameSender::report(const char* failure) {
  if (!failure) {
    failureShown_ = false;
    return;
  }
  if (failureShown_) return;
  // Marked before the box opens: a modal box lets ticks run underneath it.
  failureShown_ = true;
  if (message_) message_(failure);
}

void FtdiFrameSender::close() {
  wire_.reset();
  dmx_.OpenDmxClose();
  failureShown_ = false;
}

}  // namespace q
