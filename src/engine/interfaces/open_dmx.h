#pragma once
// OpenDmx: the FTDI adapters without a processor of their own (Enttec Open
// DMX USB, HumanData USB-003, Nextec Free USB DMX). The host times the line:
// every frame is a break, the start code and all 512 slots at 250,000 bit/s,
// 8 data bits, 2 stop bits, no parity.

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "engine/interfaces/devices.h"

namespace q {

class OpenDmx {
 public:
  struct Hooks {
    // A plain modal box with an OK button.
    std::function<void(const std::string& text)> message;
    // Takes the splash away so that a box at start is not hidden behind it.
    std::function<void()> dismissSplash;
  };

  OpenDmx(FtdiDevice& device, Hooks hooks) : dev_(device), hooks_(std::move(hooks)) {}

  // Opens and sets up the first device; a failing step shows its message,
  // closes, and leaves the adapter without output. True when set up in full.
  bool OpenDmxOpenDevice();
  // The same set-up after the adapter was lost, without a word: the operator
  // has been told of the loss once, and a try that finds nothing is no news.
  bool OpenDmxReopen();
  void OpenDmxClose();
  void OpenDmxCopyFrame(const uint8_t* frame);
  // What a frame's writes can come to.
  enum SendResult : int { kSent = 0, kStartCodeFailed = 1, kDmxFailed = 2 };
  // One frame on the line. The caller decides how a failure is shown.
  SendResult OpenDmxSend();
  // The message of a failed write.
  static const char* failureText(SendResult result);

  bool OpenDmxOpen = false;
  uint8_t OpenDmxStartCode = 0;
  std::array<uint8_t, 512> OpenDmxBuffer{};
  uint32_t OpenDmxBytesWritten = 0;

 private:
  bool setUp(bool tell);

  FtdiDevice& dev_;
  Hooks hooks_;
};

}  // namespace q
