#pragma once
// The outside world of the output adapters as the engine sees it: an FTDI
// USB serial chip, a serial port (the kernel's tty for the same chip, or a
// pseudo-terminal in tests) and the OLA daemon. The platform layer gives real
// ones (libftdi1, termios, libola), tests give fakes; whatever is missing is
// a stand-in that is never found, so the console runs on without output.

#include <cstdint>
#include <memory>
#include <string>

namespace q {

// Results of the FTDI calls: 0 is success, as the adapters' protocols expect.
enum FtStatus : int {
  FT_OK = 0,
  FT_INVALID_HANDLE = 1,
  FT_DEVICE_NOT_FOUND = 2,
  FT_DEVICE_NOT_OPENED = 3,
  FT_IO_ERROR = 4,
  FT_INVALID_PARAMETER = 6,
  FT_OTHER_ERROR = 18,
};

// One FTDI chip, reached by index among the attached adapters.
class FtdiDevice {
 public:
  virtual ~FtdiDevice() = default;
  virtual int countDevices(int& count) = 0;
  virtual int open(int index) = 0;
  virtual int close() = 0;
  virtual int resetDevice() = 0;
  // Baud rate as a divisor of the chip's 3 MHz base: 12 gives 250,000 bit/s.
  virtual int setDivisor(int divisor) = 0;
  // wordLength 7 or 8; stopBits 0 for one, 2 for two; parity 0 none.
  virtual int setDataCharacteristics(int wordLength, int stopBits, int parity) = 0;
  virtual int setFlowControl(int mode, uint8_t xon, uint8_t xoff) = 0;
  virtual int clrRts() = 0;
  // mask: 1 receive buffer, 2 transmit buffer.
  virtual int purge(int mask) = 0;
  virtual int setBreakOn() = 0;
  virtual int setBreakOff() = 0;
  virtual int setLatencyTimer(int ms) = 0;
  virtual int setTimeouts(int readMs, int writeMs) = 0;
  // Bytes waiting to be read.
  virtual int getQueueStatus(int& bytes) = 0;
  // Waits up to the read timeout for size bytes; got may be short on timeout.
  virtual int read(uint8_t* buf, int size, int& got) = 0;
  virtual int write(const uint8_t* buf, int size, int& written) = 0;
};

// A serial device by path, raw 8-bit, no echo, no line discipline.
class SerialPort {
 public:
  virtual ~SerialPort() = default;
  virtual bool open(const std::string& path) = 0;
  virtual void close() = 0;
  virtual bool flushInput() = 0;
  virtual bool flushOutput() = 0;
  // Bytes waiting, -1 on error.
  virtual int available() = 0;
  // Up to size bytes, waiting at most timeoutMs in all: the count read, 0 on timeout, -1 on error.
  virtual int read(uint8_t* buf, int size, int timeoutMs) = 0;
  virtual bool write(const uint8_t* buf, int size) = 0;
};

// A link to the OLA daemon.
class OlaSender {
 public:
  virtual ~OlaSender() = default;
  // False when olad cannot be reached on its RPC port (9010 unless set otherwise).
  virtual bool connect(int rpcPort) = 0;
  // False when the link to olad is lost.
  virtual bool send(unsigned universe, const uint8_t* frame, int size) = 0;
  virtual void disconnect() = 0;
};

// The vendor libraries of the adapters that came with their own driver.
class SunliteLibrary {
 public:
  virtual ~SunliteLibrary() = default;
  virtual int16_t DasHardCommand(int16_t command, int16_t param, uint8_t* data) = 0;
};

class OksidLibrary {
 public:
  virtual ~OksidLibrary() = default;
  virtual int16_t Okdmx31Read(int16_t portBase, uint8_t zero, uint8_t* frame) = 0;
  virtual int16_t Okdmx31Write(int16_t portBase, uint8_t zero, uint8_t* frame) = 0;
};

class VellemanLibrary {
 public:
  virtual ~VellemanLibrary() = default;
  virtual void StartDevice() = 0;
  virtual void SetChannelCount(int32_t count) = 0;
  virtual void SetData(int32_t channel, int32_t level) = 0;
  virtual void StopDevice() = 0;
};

// Port I/O for the parallel-port adapters; the console declares it and never calls it.
class ParallelPortLibrary {
 public:
  virtual ~ParallelPortLibrary() = default;
  virtual int16_t Inp32(int16_t port) = 0;
  virtual void Out32(int16_t port, int16_t value) = 0;
};

// Where the console gets its devices. A null result means "not found": the
// console then uses a stand-in that fails to open (or, for the vendor
// libraries, behaves as a missing library).
class DeviceFactory {
 public:
  virtual ~DeviceFactory() = default;
  virtual std::unique_ptr<FtdiDevice> ftdi() { return nullptr; }
  virtual std::unique_ptr<SerialPort> serialPort() { return nullptr; }
  virtual std::unique_ptr<OlaSender> ola() { return nullptr; }
  virtual std::unique_ptr<SunliteLibrary> sunlite() { return nullptr; }
  virtual std::unique_ptr<OksidLibrary> oksid() { return nullptr; }
  virtual std::unique_ptr<VellemanLibrary> velleman() { return nullptr; }

  // Real devices live in real time: the widget needs a real pause to answer,
  // and the frame senders put frames on the wire from a thread of their own.
  // Fakes answer at once, and their frames go out inside the output tick.
  virtual void wait(int ms) { (void)ms; }
  virtual bool wireThread() const { return false; }
  // Runs first on a wire thread: the real factory raises its priority.
  virtual void prepareWireThread() {}
};

// The stand-ins used where nothing was found.
std::unique_ptr<FtdiDevice> makeAbsentFtdi();
std::unique_ptr<SerialPort> makeAbsentSerialPort();
std::unique_ptr<OlaSender> makeAbsentOla();
std::unique_ptr<SunliteLibrary> makeMissingSunlite();
std::unique_ptr<OksidLibrary> makeMissingOksid();
std::unique_ptr<VellemanLibrary> makeMissingVelleman();

}  // namespace q
