#include "platform/dmx_devices.h"

#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>

#include <chrono>
#include <thread>

#include "platform/ftdi/libftdi_device.h"
#include "platform/ola/ola_client_sender.h"
#include "platform/serial/termios_port.h"

namespace q {

std::unique_ptr<FtdiDevice> RealDevices::ftdi() { return std::make_unique<LibFtdiDevice>(); }
std::unique_ptr<SerialPort> RealDevices::serialPort() { return std::make_unique<TermiosPort>(); }
std::unique_ptr<OlaSender> RealDevices::ola() { return std::make_unique<OlaClientSender>(); }

void RealDevices::wait(int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }

void RealDevices::prepareWireThread() {
  prctl(PR_SET_TIMERSLACK, 1UL);
  sched_param param{};
  param.sched_priority = 20;
  // Refused without the right to it; the thread then runs at normal priority.
  pthread_setschedparam(pthread_self(), SCHED_FIFO, &param);
}

DeviceFactory& realDevices() {
  static RealDevices devices;
  return devices;
}

}  // namespace q
