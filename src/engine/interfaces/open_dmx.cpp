#include "engine/interfaces/open_dmx.h"

#include <cstring>

namespace q {

namespace {
struct SetupStep {
  int (*call)(FtdiDevice&);
  const char* failure;
};

// The set-up sequence, in order; the first failing step ends it.
const SetupStep kSetup[] = {
    {[](FtdiDevice& d) { return d.resetDevice(); }, "Failed To Reset Enttec Open DMX USB Device!"},
    {[](FtdiDevice& d) { return d.setDivisor(12); }, "Failed To Set Baud Rate!"},
    {[](FtdiDevice& d) { return d.setDataCharacteristics(8, 2, 0); },
     "Failed To Set Data Characteristics!"},
    {[](FtdiDevice& d) { return d.setFlowControl(0, 0, 0); }, "Failed to set flow control!"},
    {[](FtdiDevice& d) { return d.clrRts(); }, "Failed to set RS485 to send!"},
    {[](FtdiDevice& d) { return d.purge(2); }, "Failed to purge TX buffer!"},
    {[](FtdiDevice& d) { return d.purge(1); }, "Failed to purge RX buffer!"},
};
}  // namespace

bool OpenDmx::OpenDmxOpenDevice() { return setUp(true); }

bool OpenDmx::OpenDmxReopen() { return setUp(false); }

bool OpenDmx::setUp(bool tell) {
  OpenDmxOpen = false;
  if (dev_.open(0) != FT_OK) {
    if (tell && hooks_.dismissSplash) hooks_.dismissSplash();
    if (tell && hooks_.message) hooks_.message("Failed to open Enttec Open DMX USB device!");
    OpenDmxClose();
    return false;
  }
  for (const SetupStep& step : kSetup) {
    if (step.call(dev_) == FT_OK) continue;
    if (tell && hooks_.message) hooks_.message(step.failure);
    OpenDmxClose();
    // The adapter is not marked open, so the close above leaves the chip
    // alone; let go of it quietly all the same, or the USB device would stay
    // claimed and a second start from the setup window could never open it.
    dev_.close();
    return false;
  }
  OpenDmxBuffer.fill(0);
  OpenDmxBytesWritten = 0;
  OpenDmxStartCode = 0;
  OpenDmxOpen = true;
  return true;
}

void OpenDmx::OpenDmxClose() {
  if (OpenDmxOpen && dev_.close() != FT_OK && hooks_.message)
    hooks_.message("Close Enttec Open DMX USB Failed");
  OpenDmxOpen = false;
}

void OpenDmx::OpenDmxCopyFrame(const uint8_t* frame) {
  std::memcpy(OpenDmxBuffer.data(), frame, OpenDmxBuffer.size());
}

OpenDmx::SendResult OpenDmx::OpenDmxSend() {
  if (!OpenDmxOpen) return kSent;
  // The break and the mark after it last as long as the two calls take.
  dev_.setBreakOn();
  dev_.setBreakOff();
  int written = 0;
  if (dev_.write(&OpenDmxStartCode, 1, written) != FT_OK) return kStartCodeFailed;
  OpenDmxBytesWritten = uint32_t(written);
  if (dev_.write(OpenDmxBuffer.data(), int(OpenDmxBuffer.size()), written) != FT_OK)
    return kDmxFailed;
  OpenDmxBytesWritten = uint32_t(written);
  return kSent;
}

const char* OpenDmx::failureText(SendResult result) {
  switch (result) {
    case kStartCodeFailed:
      return "Write Start Code Failed!";
    case kDmxFailed:
      return "Write DMX Failed!";
    default:
      return nullptr;
  }
}

}  // namespace q
