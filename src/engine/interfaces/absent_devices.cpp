// Stand-ins for devices that are not there. An FTDI chip that is absent
// counts zero devices and fails to open; a missing vendor library answers as
// the console has always seen a missing adapter: the Sunlite open finds
// nothing, the OksiD calls fail, the Velleman calls do nothing.

#include "engine/interfaces/devices.h"

namespace q {

namespace {

class AbsentFtdi : public FtdiDevice {
 public:
  int countDevices(int& count) override {
    count = 0;
    return FT_OK;
  }
  int open(int) override { return FT_DEVICE_NOT_FOUND; }
  int close() override { return FT_INVALID_HANDLE; }
  int resetDevice() override { return FT_INVALID_HANDLE; }
  int setDivisor(int) override { return FT_INVALID_HANDLE; }
  int setDataCharacteristics(int, int, int) override { return FT_INVALID_HANDLE; }
  int setFlowControl(int, uint8_t, uint8_t) override { return FT_INVALID_HANDLE; }
  int clrRts() override { return FT_INVALID_HANDLE; }
  int purge(int) override { return FT_INVALID_HANDLE; }
  int setBreakOn() override { return FT_INVALID_HANDLE; }
  int setBreakOff() override { return FT_INVALID_HANDLE; }
  int setLatencyTimer(int) override { return FT_INVALID_HANDLE; }
  int setTimeouts(int, int) override { return FT_INVALID_HANDLE; }
  int getQueueStatus(int& bytes) override {
    bytes = 0;
    return FT_INVALID_HANDLE;
  }
  int read(uint8_t*, int, int& got) override {
    got = 0;
    return FT_INVALID_HANDLE;
  }
  int write(const uint8_t*, int, int& written) override {
    written = 0;
    return FT_INVALID_HANDLE;
  }
};

class AbsentSerialPort : public SerialPort {
 public:
  bool open(const std::string&) override { return false; }
  void close() override {}
  bool flushInput() override { return false; }
  bool flushOutput() override { return false; }
  int available() override { return -1; }
  int read(uint8_t*, int, int) override { return -1; }
  bool write(const uint8_t*, int) override { return false; }
};

class AbsentOla : public OlaSender {
 public:
  bool connect(int) override { return false; }
  bool send(unsigned, const uint8_t*, int) override { return false; }
  void disconnect() override {}
};

class MissingSunlite : public SunliteLibrary {
 public:
  // Handle 0: "not found"; every other command has no device to reach.
  int16_t DasHardCommand(int16_t, int16_t, uint8_t*) override { return 0; }
};

class MissingOksid : public OksidLibrary {
 public:
  int16_t Okdmx31Read(int16_t, uint8_t, uint8_t*) override { return 1; }
  int16_t Okdmx31Write(int16_t, uint8_t, uint8_t*) override { return 1; }
};

class MissingVelleman : public VellemanLibrary {
 public:
  void StartDevice() override {}
  void SetChannelCount(int32_t) override {}
  void SetData(int32_t, int32_t) override {}
  void StopDevice() override {}
};

}  // namespace

std::unique_ptr<FtdiDevice> makeAbsentFtdi() { return std::make_unique<AbsentFtdi>(); }
std::unique_ptr<SerialPort> makeAbsentSerialPort() { return std::make_unique<AbsentSerialPort>(); }
std::unique_ptr<OlaSender> makeAbsentOla() { return std::make_unique<AbsentOla>(); }
std::unique_ptr<SunliteLibrary> makeMissingSunlite() { return std::make_unique<MissingSunlite>(); }
std::unique_ptr<OksidLibrary> makeMissingOksid() { return std::make_unique<MissingOksid>(); }
std::unique_ptr<VellemanLibrary> makeMissingVelleman() {
  return std::make_unique<MissingVelleman>();
}

}  // namespace q
