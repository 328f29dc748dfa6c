#pragma once
// The widget reached through the kernel's serial driver (/dev/ttyUSB*, or a
// pseudo-terminal in tests) instead of libftdi1: the FTDI calls the widget's
// driver makes, carried out on a serial port. There is one device, the one
// at the configured path; what a tty has no notion of (latency timer, line
// settings) simply succeeds.

#include <memory>
#include <string>

#include "engine/interfaces/devices.h"

namespace q {

class SerialLink : public FtdiDevice {
 public:
  SerialLink(std::unique_ptr<SerialPort> port, std::string path)
      : port_(std::move(port)), path_(std::move(path)) {}

  int countDevices(int& count) override {
    count = 1;
    return FT_OK;
  }
  int open(int index) override;
  int close() override;
  int resetDevice() override { return state(); }
  int setDivisor(int) override { return state(); }
  int setDataCharacteristics(int, int, int) override { return state(); }
  int setFlowControl(int, uint8_t, uint8_t) override { return state(); }
  int clrRts() override { return state(); }
  int purge(int mask) override;
  int setBreakOn() override { return state(); }
  int setBreakOff() override { return state(); }
  int setLatencyTimer(int) override { return state(); }
  int setTimeouts(int readMs, int writeMs) override;
  int getQueueStatus(int& bytes) override;
  int read(uint8_t* buf, int size, int& got) override;
  int write(const uint8_t* buf, int size, int& written) override;

 private:
  int state() const { return open_ ? FT_OK : FT_INVALID_HANDLE; }
  std::unique_ptr<SerialPort> port_;
  std::string path_;
  bool open_ = false;
  int readTimeoutMs_ = 0;
};

}  // namespace q
