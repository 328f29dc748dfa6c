#pragma once
// An FTDI chip through libftdi1: the adapters' FTDI calls carried out on the
// first, second ... FTDI device found on the USB bus. libftdi1 detaches the
// kernel's ftdi_sio driver from the chip while it holds it.

#include <vector>

#include "engine/interfaces/devices.h"

struct ftdi_context;

namespace q {

class LibFtdiDevice : public FtdiDevice {
 public:
  LibFtdiDevice();
  ~LibFtdiDevice() override;

  // Vendor and products of the FTDI chips the DMX adapters are built on.
  static constexpr int kVendor = 0x0403;
  static constexpr int kProducts[] = {0x6001, 0x6010, 0x6011, 0x6014, 0x6015};

  int countDevices(int& count) override;
  int open(int index) override;
  int close() override;
  int resetDevice() override;
  int setDivisor(int divisor) override;
  int setDataCharacteristics(int wordLength, int stopBits, int parity) override;
  int setFlowControl(int mode, uint8_t xon, uint8_t xoff) override;
  int clrRts() override;
  int purge(int mask) override;
  int setBreakOn() override;
  int setBreakOff() override;
  int setLatencyTimer(int ms) override;
  int setTimeouts(int readMs, int writeMs) override;
  int getQueueStatus(int& bytes) override;
  int read(uint8_t* buf, int size, int& got) override;
  int write(const uint8_t* buf, int size, int& written) override;

 private:
  int lineProperties(bool breakOn);
  int fillPending();
  ftdi_context* ctx_ = nullptr;
  bool open_ = false;
  int wordLength_ = 8, stopBits_ = 2, parity_ = 0;
  int readTimeoutMs_ = 0;
  std::vector<uint8_t> pending_;  // bytes read from the chip, not yet taken
};

}  // namespace q
