#pragma once
// A serial device through termios: raw bytes, no echo, no line discipline,
// no flow control. Serves the DMX USB PRO through the kernel's ftdi_sio
// driver (/dev/ttyUSB*) and the simulated widget on a pseudo-terminal.

#include "engine/interfaces/devices.h"

namespace q {

class TermiosPort : public SerialPort {
 public:
  ~TermiosPort() override { close(); }
  bool open(const std::string& path) override;
  void close() override;
  bool flushInput() override;
  bool flushOutput() override;
  int available() override;
  int read(uint8_t* buf, int size, int timeoutMs) override;
  bool write(const uint8_t* buf, int size) override;

 private:
  int fd_ = -1;
};

// Puts a descriptor of a tty into raw 8-bit mode (both ends of a pty use it).
bool makeRaw(int fd);

}  // namespace q
