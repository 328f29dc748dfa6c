#pragma once
// The real output devices, for the desk and the headless console: FTDI chips
// through libftdi1, serial devices through termios, OLA through libola. The
// vendor libraries of the older adapters do not exist on Linux and are left
// to the console's "library not found" stand-ins.

#include "engine/interfaces/devices.h"

namespace q {

class RealDevices : public DeviceFactory {
 public:
  std::unique_ptr<FtdiDevice> ftdi() override;
  std::unique_ptr<SerialPort> serialPort() override;
  std::unique_ptr<OlaSender> ola() override;
  void wait(int ms) override;
  bool wireThread() const override { return true; }
  // Real-time priority when the system allows it, and a fine timer slack
  // otherwise, so frames leave on time while the machine is busy.
  void prepareWireThread() override;
};

// One instance for the process.
DeviceFactory& realDevices();

}  // namespace q
