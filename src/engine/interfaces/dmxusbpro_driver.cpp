#include "engine/interfaces/dmxusbpro_driver.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace q {

namespace {
constexpr int kFirmwarePages = 96;
constexpr int kPageSize = 64;
constexpr int kLevelsAt = 5;  // DMXOut: 4 header bytes, then the start code
}  // namespace

DMXUSBPRO_Driver::DMXUSBPRO_Driver(FtdiDevice& link, Host host)
    : link_(link), host_(std::move(host)) {
  SetParamsPacket = {kSom, kSetParameters, 5, 0, 0, 0, BreakTime, MABTime, FPS};
}

DMXUSBPRO_Driver::~DMXUSBPRO_Driver() {
  if (Handle != 0) Done();
}

// ---- configuration -------------------------------------------------------

uint8_t DMXUSBPRO_Driver::Get_FPS() const { return param(4); }
int32_t DMXUSBPRO_Driver::Get_BreakTime() const { return param(2); }
int32_t DMXUSBPRO_Driver::Get_MABTime() const { return param(3); }

void DMXUSBPRO_Driver::Set_FPS(uint8_t fps) {
  if (fps >= 1 && fps <= 40) FPS = fps;
}
void DMXUSBPRO_Driver::Set_BreakTime(uint8_t t) {
  if (t >= 9 && t <= 127) BreakTime = t;
}
void DMXUSBPRO_Driver::Set_MABTime(uint8_t t) {
  if (t >= 1 && t <= 127) MABTime = t;
}

std::string DMXUSBPRO_Driver::Get_FirmwareVersion() const {
  return std::to_string(param(1)) + "." + std::to_string(param(0));
}

void DMXUSBPRO_Driver::Set_ApplyConfig() {
  if (!IsOpenFlag) return;
  SetParamsPacket = {kSom, kSetParameters, 5, 0, 0, 0, BreakTime, MABTime, FPS};
  uint8_t bytes[10];
  std::memcpy(bytes, SetParamsPacket.data(), SetParamsPacket.size());
  bytes[9] = kEom;
  writePacket(bytes, sizeof bytes);
}

void DMXUSBPRO_Driver::RequestConfig() { sendGetParameters(kMaxUserSize); }

uint8_t DMXUSBPRO_Driver::Get_DMX_OUT(int32_t channel) const {
  return channel >= 0 && channel < 512 ? DMXOut[kLevelsAt + channel] : 0;
}

uint8_t DMXUSBPRO_Driver::Get_DMX_IN(int32_t channel) const {
  return channel >= 0 && channel < 512 ? DMXIn[1 + channel] : 0;
}

// ---- output ----------------------------------------------------------------

void DMXUSBPRO_Driver::Set_DMX_OUT(const uint8_t* frame) {
  bool changed = false;
  for (int i = 0; i < 512; ++i) {
    if (DMXOut[kLevelsAt + i] == frame[i]) continue;
    DMXOut[kLevelsAt + i] = frame[i];
    changed = true;
  }
  // The widget repeats the last frame on the line by itself, so the link
  // stays quiet while the levels stand. Before the widget has answered, the
  // packet header is not built yet and nothing may go out.
  if (!changed || !IsOpenFlag) return;
  writeFrame();
}

void DMXUSBPRO_Driver::writeFrame() {
  std::array<uint8_t, sizeof(DMXOut) + 1> packet;
  std::memcpy(packet.data(), DMXOut.data(), DMXOut.size());
  packet.back() = kEom;
  writePacket(packet.data(), int(packet.size()));
}

void DMXUSBPRO_Driver::writePacket(const uint8_t* bytes, int size) {
  if (Handle == 0) return;
  int written = 0;
  if (link_.write(bytes, size, written) == FT_OK) return;
  trace("TX-> Write Failed to Index: " + std::to_string(DeviceNumber));
  Done();
}

void DMXUSBPRO_Driver::sendPacket(uint8_t label, const std::vector<uint8_t>& data) {
  std::vector<uint8_t> p = {kSom, label, uint8_t(data.size() & 0xFF), uint8_t(data.size() >> 8)};
  p.insert(p.end(), data.begin(), data.end());
  p.push_back(kEom);
  writePacket(p.data(), int(p.size()));
}

void DMXUSBPRO_Driver::sendGetParameters(int userSize) {
  userSize = std::clamp(userSize, 0, kMaxUserSize);
  sendPacket(kGetParameters, {uint8_t(userSize & 0xFF), uint8_t(userSize >> 8)});
}

std::vector<uint8_t> DMXUSBPRO_Driver::ENTER_FLASH_MODE() const {
  return {kSom, kFlashMode, 0, 0, kEom};
}

// ---- opening and closing -------------------------------------------------------

bool DMXUSBPRO_Driver::Init(int32_t deviceNumber, uint8_t outLabel, bool flashMode) {
  DeviceNumber = deviceNumber;
  OutLabel = outLabel;
  ++InitTries;
  if (outLabel != kOutputDmx && outLabel != kOutputDmxAlt) return false;
  int count = 0;
  if (link_.countDevices(count) != FT_OK) return false;
  if (deviceNumber > count - 1) return false;

  auto fail = [&] {
    if (!flashMode) Done();
    return false;
  };
  if (!openLink()) return fail();
  if (flashMode) {
    IsOpenFlag = true;
    return true;
  }

  wait(50);
  doEvents();
  wait(40);
  doEvents();
  sendGetParameters(0);
  doEvents();
  wait(40);
  doEvents();
  const std::vector<uint8_t> reply = receivePacket();
  if (reply.empty()) {
    // A widget that stays silent gets one more try, and only one in the
    // console's life: the count of tries is never reset.
    if (InitTries >= 2) return fail();
    Done();
    Init(deviceNumber, outLabel, false);
    return false;
  }
  if (reply.size() < 4) return false;
  if (reply[0] != kSom || reply[1] != kGetParameters) return false;
  IsOpenFlag = true;
  ProParams.assign(reply.begin() + 4, reply.end() - 1);
  if (link_.setTimeouts(40, 0) != FT_OK) return fail();
  return finishInit();
}

bool DMXUSBPRO_Driver::openLink() {
  if (link_.open(DeviceNumber) != FT_OK) return false;
  Handle = uint32_t(DeviceNumber) + 1;
  return link_.purge(1) == FT_OK && link_.purge(2) == FT_OK && link_.setLatencyTimer(1) == FT_OK &&
         link_.setTimeouts(40, 0) == FT_OK;
}

bool DMXUSBPRO_Driver::finishInit() {
  DMXOut.fill(0);
  DMXOut[0] = kSom;
  DMXOut[1] = uint8_t(OutLabel);
  DMXOut[2] = 513 & 0xFF;
  DMXOut[3] = 513 >> 8;
  DMXIn.fill(0);
  writeFrame();
  if (OutLabel != kOutputDmx) sendPacket(kReceiveMode, {1});
  trace("PRO_INFO-> Enttec DMX USB PRO Version " + Get_FirmwareVersion());
  return true;
}

bool DMXUSBPRO_Driver::Reopen() {
  Done();
  if (!openLink()) {
    Done();
    return false;
  }
  sendGetParameters(0);
  return Handle != 0;
}

bool DMXUSBPRO_Driver::ReopenAnswered() {
  if (Handle == 0 || IsOpenFlag) return IsOpenFlag;
  const std::vector<uint8_t> reply = receivePacket();
  if (reply.size() < 5 || reply[1] != kGetParameters) return false;
  ProParams.assign(reply.begin() + 4, reply.end() - 1);
  IsOpenFlag = true;
  DMXOut[0] = kSom;
  DMXOut[1] = uint8_t(OutLabel);
  DMXOut[2] = 513 & 0xFF;
  DMXOut[3] = 513 >> 8;
  writeFrame();
  if (IsOpenFlag && OutLabel != kOutputDmx) sendPacket(kReceiveMode, {1});
  trace("PRO_INFO-> Enttec DMX USB PRO Version " + Get_FirmwareVersion());
  return IsOpenFlag;
}

void DMXUSBPRO_Driver::RefreshDMX() {
  if (IsOpenFlag) writeFrame();
}

void DMXUSBPRO_Driver::Done() {
  if (Handle != 0) link_.close();
  Handle = 0;
  IsOpenFlag = false;
}

// ---- receiving -----------------------------------------------------------------

bool DMXUSBPRO_Driver::readExactly(std::vector<uint8_t>& into, int want, const char* timeoutText,
                                   const char* errorText, const std::string& detail) {
  std::vector<uint8_t> chunk(size_t(std::max(want, 1)));
  int count = 0;
  bool timeout = false, error = false;
  // Each read asks for the whole count again, even after a part came: the
  // widget's packets come whole, and a surplus means the packet is no good.
  while (count < want) {
    int got = 0;
    const int status = link_.read(chunk.data(), want, got);
    if (status != 0 && status != 4) {
      error = true;
    } else if (got > 0) {
      into.insert(into.end(), chunk.begin(), chunk.begin() + got);
      count += got;
    } else {
      timeout = true;
    }
    if (timeout || error) break;
  }
  if (error) trace(errorText + detail);
  if (timeout) trace(timeoutText + detail);
  return !timeout && !error && count == want;
}

std::vector<uint8_t> DMXUSBPRO_Driver::receivePacket() {
  if (Handle == 0) return {};
  int queued = 0;
  if (link_.getQueueStatus(queued) != FT_OK) {
    trace("Usbread()-> Failed GetQueueStatus on Index: " + std::to_string(DeviceNumber));
    Done();
    return {};
  }
  if (queued == 0) return {};
  std::vector<uint8_t> packet;
  if (!readExactly(packet, 4, "RX-> timeout! expected header! ", "RX-> error! expected header!",
                   ""))
    return {};
  std::copy_n(packet.begin(), 4, RxPacketHeader.begin());
  // No resynchronisation: a bad first byte costs the four bytes read.
  if (packet[0] != kSom) {
    trace("RX-> not start of message!!!");
    return {};
  }
  const int length = packet[2] | packet[3] << 8;
  if (!readExactly(packet, length + 1, "RX-> timeout! expected body length ",
                   "RX-> error! expected body lenght ", std::to_string(length)))
    return {};
  if (packet.back() != kEom) {
    trace("RX-> EOM is not valid");
    return {};
  }
  return packet;
}

int DMXUSBPRO_Driver::parsePacket(const std::vector<uint8_t>& packet) {
  if (packet.size() < 5) return 0;
  const uint8_t label = packet[1];
  const uint8_t* data = packet.data() + 4;
  const int size = int(packet.size()) - 5;
  switch (label) {
    case kReceivedDmx:
      // Data byte 0 is the receive status; from byte 1 on, the start code and the levels.
      if (size > 1) std::copy_n(data + 1, std::min<int>(size - 1, DMXIn.size()), DMXIn.begin());
      return 0;
    case kGetParameters:
      ProParams.assign(data, data + size);
      return 0;
    case kChangeOfState:
      ChangeOfState.assign(data, data + size);
      applyChangeOfState(data, size);
      return 0;
    case kFirmwarePage:
      ReplyBuffer.assign(packet.begin(), packet.end() - 1);
      if (size >= 4 && std::memcmp(data, "TRUE", 4) == 0) return 254;
      if (size < 1 || data[0] != 'T') return 255;
      return 0;
    default:
      trace("RX-> Unknown Packet Type: " + std::to_string(label));
      return 1;
  }
}

void DMXUSBPRO_Driver::applyChangeOfState(const uint8_t* data, int size) {
  if (size < 6) return;
  const int block = data[0];
  int next = 6;  // the changed values follow the block number and the five change-bit bytes
  for (int i = 0; i < 5; ++i)
    for (int j = 0; j < 8; ++j) {
      if ((data[1 + i] & (1 << j)) == 0) continue;
      if (next >= size) return;
      const int position = block * 8 + i * 8 + j;
      const uint8_t value = data[next++];
      if (position < int(DMXIn.size())) DMXIn[position] = value;
    }
}

// ---- firmware ----------------------------------------------------------------

bool DMXUSBPRO_Driver::Firmware_Flash(const std::string& fileName) {
  std::FILE* file = std::fopen(fileName.c_str(), "rb");
  const int openError = errno;
  const std::vector<uint8_t> enter = ENTER_FLASH_MODE();
  writePacket(enter.data(), int(enter.size()));
  wait(10);
  const int first = file ? std::fgetc(file) : EOF;
  if (first == EOF) {
    if (host_.message) host_.message(file ? "Input past end of file" : std::strerror(openError));
    if (file) std::fclose(file);
    return false;
  }
  std::ungetc(first, file);

  for (int page = 1; page <= kFirmwarePages; ++page) {
    std::vector<uint8_t> data(kPageSize, 0);
    const size_t got = std::fread(data.data(), 1, data.size(), file);
    (void)got;  // a short last page goes out padded with zeros
    sendPacket(kFirmwarePage, data);
    wait(50);
    doEvents();
    wait(20);
    if (parsePacket(receivePacket()) != 254) {
      trace("Firmware Update Failed Page: " + std::to_string(page));
      std::fclose(file);
      return false;
    }
  }
  if (host_.message) host_.message("Firmware Updated");
  std::fclose(file);
  RequestConfig();
  return true;
}

}  // namespace q
