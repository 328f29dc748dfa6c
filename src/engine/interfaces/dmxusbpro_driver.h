#pragma once
// DMXUSBPRO_Driver: the Enttec DMX USB PRO, a widget with a processor of its
// own that refreshes the DMX line by itself. The host talks to it in packets:
// 0x7E, a label, a 16-bit length (low byte first), the data, 0xE7. The link
// is an FTDI chip, reached through libftdi1 or through the kernel's tty.
//
// Errors make no noise: they show as IsOpen() false and a quiet output. Only
// the firmware path shows boxes. The texts of each decision point of the
// receive and write paths go to a debugging trace, off unless one is given.

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/interfaces/devices.h"

namespace q {

class DMXUSBPRO_Driver {
 public:
  struct Host {
    // A real pause, for the widget to answer.
    std::function<void(int ms)> wait;
    // Lets pending console events run.
    std::function<void()> doEvents;
    // A plain modal box (firmware path only).
    std::function<void(const std::string& text)> message;
    // The debugging trace; null keeps it off.
    std::function<void(const std::string& line)> trace;
  };

  DMXUSBPRO_Driver(FtdiDevice& link, Host host);
  ~DMXUSBPRO_Driver();
  DMXUSBPRO_Driver(const DMXUSBPRO_Driver&) = delete;
  DMXUSBPRO_Driver& operator=(const DMXUSBPRO_Driver&) = delete;

  bool IsOpen() const { return IsOpenFlag; }
  uint8_t Get_FPS() const;
  void Set_FPS(uint8_t fps);
  void Set_BreakTime(uint8_t t);
  int32_t Get_BreakTime() const;
  void Set_MABTime(uint8_t t);
  int32_t Get_MABTime() const;
  void Set_ApplyConfig();
  uint8_t Get_DMX_OUT(int32_t channel) const;
  uint8_t Get_DMX_IN(int32_t channel) const;
  std::string Get_FirmwareVersion() const;
  // Writes the frame to the widget only when a level changed.
  void Set_DMX_OUT(const uint8_t* frame);
  void RequestConfig();
  bool Init(int32_t deviceNumber, uint8_t outLabel, bool flashMode);
  void Done();

  // Coming back after the widget was lost, without a word and without
  // holding up the output tick (Init's waits would): Reopen opens the link
  // and asks for the parameters; ReopenAnswered, at the ticks after it,
  // takes the answer and sends the levels the widget had, so that the
  // stage comes back as it was. InitTries is left alone.
  bool Reopen();
  bool ReopenAnswered();
  // The levels held, written again while they stand: a write is the only
  // way to find out that the link has gone.
  void RefreshDMX();
  std::vector<uint8_t> ENTER_FLASH_MODE() const;
  bool Firmware_Flash(const std::string& fileName);

  // One packet from the widget, whole, or empty when none came whole.
  std::vector<uint8_t> receivePacket();
  // Takes a received packet into the driver's state, by the label of its
  // header: 254 a firmware page accepted, 255 or 0 refused, 1 an unknown label.
  int parsePacket(const std::vector<uint8_t>& packet);

  // Packet labels.
  enum Label : uint8_t {
    kFlashMode = 1,
    kFirmwarePage = 2,
    kGetParameters = 3,
    kSetParameters = 4,
    kReceivedDmx = 5,
    kOutputDmx = 6,
    kOutputDmxAlt = 7,
    kReceiveMode = 8,
    kChangeOfState = 9,
  };
  static constexpr uint8_t kSom = 0x7E;
  static constexpr uint8_t kEom = 0xE7;
  static constexpr int kMaxUserSize = 508;

  // The class's state, in the order the widget's protocol uses it.
  std::array<uint8_t, 4 + 513> DMXOut{};
  std::array<uint8_t, 513> DMXIn{};
  std::vector<uint8_t> ProParams;
  std::array<uint8_t, 9> SetParamsPacket{};
  uint8_t BreakTime = 9;
  uint8_t MABTime = 1;
  uint8_t FPS = 40;
  std::array<uint8_t, 4> RxPacketHeader{};
  uint32_t Handle = 0;
  int32_t DeviceNumber = 0;
  int32_t OutLabel = 0;
  int32_t InitTries = 0;
  bool IsOpenFlag = false;
  // Change-of-state data as last received, and the reply to a firmware page.
  std::vector<uint8_t> ChangeOfState;
  std::vector<uint8_t> ReplyBuffer;

 private:
  bool openLink();
  bool finishInit();
  void writePacket(const uint8_t* bytes, int size);
  // DMXOut and the end byte, in one write.
  void writeFrame();
  void sendPacket(uint8_t label, const std::vector<uint8_t>& data);
  void sendGetParameters(int userSize);
  bool readExactly(std::vector<uint8_t>& into, int want, const char* timeoutText,
                   const char* errorText, const std::string& detail);
  void applyChangeOfState(const uint8_t* data, int size);
  void trace(const std::string& line) const {
    if (host_.trace) host_.trace(line);
  }
  void wait(int ms) const {
    if (host_.wait) host_.wait(ms);
  }
  void doEvents() const {
    if (host_.doEvents) host_.doEvents();
  }
  uint8_t param(size_t i) const { return IsOpenFlag && i < ProParams.size() ? ProParams[i] : 0; }

  FtdiDevice& link_;
  Host host_;
};

}  // namespace q
