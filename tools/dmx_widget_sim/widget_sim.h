#pragma once
// A simulated DMX USB PRO on a pseudo-terminal. It speaks the widget's
// packet protocol (0x7E, label, 16-bit length, data, 0xE7): it answers a
// get-parameters request, takes set-parameters, records every output frame
// with the time it came, and can stay silent, answer late, or send received
// DMX and change-of-state packets of its own. The console reaches it through
// the slave side of the pty as if it were /dev/ttyUSB0.

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace q::sim {

class WidgetSim {
 public:
  struct Options {
    bool silent = false;   // never answers a get-parameters request
    int replyDelayMs = 0;  // answers that much later
    uint8_t firmwareMajor = 1, firmwareMinor = 44;
    uint8_t breakTime = 9, mabTime = 1, fps = 40;
  };
  struct Frame {
    std::chrono::steady_clock::time_point at;
    uint8_t label;
    std::vector<uint8_t> data;  // start code, then the levels
  };

  explicit WidgetSim(Options options);
  WidgetSim() : WidgetSim(Options{}) {}
  ~WidgetSim();
  WidgetSim(const WidgetSim&) = delete;
  WidgetSim& operator=(const WidgetSim&) = delete;

  // Opens the pty and starts answering. False when no pty could be had.
  bool start();
  void stop();
  const std::string& path() const { return slavePath_; }

  void setSilent(bool silent) { silent_ = silent; }
  void setReplyDelay(int ms) { replyDelayMs_ = ms; }

  // What the console sent.
  std::vector<Frame> frames() const;
  int packetsWithLabel(uint8_t label) const;
  std::vector<uint8_t> lastDataWithLabel(uint8_t label) const;
  int badPackets() const { return bad_; }

  // What the widget sends of its own accord.
  void sendPacket(uint8_t label, const std::vector<uint8_t>& data);
  void sendRaw(const std::vector<uint8_t>& bytes);
  void sendReceivedDmx(uint8_t status, const std::vector<uint8_t>& startCodeAndLevels);
  // block: number of the first changed byte in eights; bits: 5 change-bit bytes.
  void sendChangeOfState(uint8_t block, const std::vector<uint8_t>& bits,
                         const std::vector<uint8_t>& values);

 private:
  void run();
  void take(const uint8_t* bytes, size_t n);
  void handle(uint8_t label, const std::vector<uint8_t>& data);
  void answerParameters(int userSize);

  Options options_;
  std::atomic<bool> silent_;
  std::atomic<int> replyDelayMs_;
  std::atomic<bool> running_{false};
  std::atomic<int> bad_{0};
  int master_ = -1;
  int slaveKeeper_ = -1;  // keeps the pty up while the console has it closed
  std::string slavePath_;
  std::thread thread_;
  std::vector<uint8_t> pending_;
  mutable std::mutex mutex_;
  std::vector<Frame> received_;
  std::mutex writeMutex_;
};

}  // namespace q::sim
