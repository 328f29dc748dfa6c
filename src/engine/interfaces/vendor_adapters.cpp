#include "engine/interfaces/vendor_adapters.h"

namespace q {

namespace {
enum SunliteCommands : int16_t { kOpen = 1, kClose = 2, kFirstFrame = 3, kSend = 4 };
}

void Sunlite::open(uint8_t* dmxData) {
  uint8_t zero = 0;
  SunliteCommand = kOpen;
  SunliteHandle = lib_.DasHardCommand(kOpen, 0, &zero);
  status = SunliteHandle >= 1 ? "Interface: found" : "Interface: not found";
  if (SunliteHandle < 1) return;
  SunliteCommand = kFirstFrame;
  SunliteResult = lib_.DasHardCommand(kFirstFrame, 0, dmxData);
}

// A send to a device that was not found is not prevented: the library
// answers for itself.
void Sunlite::send(int16_t maxChans, uint8_t* dmxData) {
  if (maxChans <= 0) return;
  SunliteCommand = kSend;
  SunliteResult = lib_.DasHardCommand(kSend, maxChans, dmxData);
}

void Sunlite::close(int16_t maxChans, uint8_t* dmxData) {
  if (maxChans <= 0) return;
  SunliteCommand = kClose;
  SunliteResult = lib_.DasHardCommand(kClose, maxChans, dmxData);
}

void Oksid::fail() {
  if (hooks_.warning) hooks_.warning(kTitle, kText);
  if (hooks_.turnOff) hooks_.turnOff();
}

void Oksid::tick(int16_t portBase, uint8_t* dmxData) {
  if (lib_.Okdmx31Read(portBase, 0, dmxData) != 0) fail();
  // The write is tried even after a failed read, so a dead adapter says so twice.
  if (lib_.Okdmx31Write(portBase, 0, dmxData) != 0) fail();
}

void Velleman::start(int16_t maxChans) {
  lib_.StartDevice();
  // A later change of MaxChans reaches the library only at the next start.
  lib_.SetChannelCount(maxChans);
}

}  // namespace q
