#pragma once
// The MIDI ports of the machine through RtMidi (ALSA sequencer, JACK).
//
// RtMidi delivers incoming messages on a thread of its own; they are queued
// here and handed to the console on its one thread. The host watches
// wakeFd() (poll, QSocketNotifier) and calls pump() when it is readable, or
// simply calls pump() from its loop: pump() raises the port's events.
// Without a MIDI system (no sequencer, no server) the ports list no device
// and never open, and the console goes on without MIDI.

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "engine/input/midi_ports.h"

class RtMidiIn;
class RtMidiOut;

namespace q {

class RtMidiInPort : public MidiInPort {
 public:
  RtMidiInPort();
  ~RtMidiInPort() override;

  int deviceCount() override;
  std::string deviceName(int device) override;
  // False when the machine has no MIDI system at all (no ALSA sequencer).
  bool systemPresent() const { return midi_ != nullptr; }
  void setDevice(int device) override { device_ = device; }
  void open() override;
  void start() override { receiving_ = true; }
  void stop() override { receiving_ = false; }
  void close() override;
  bool isOpen() const override { return open_; }
  void enableLongMessages() override;

  int waiting() override;
  MidiMessage oldest() override;
  void removeOldest() override;

  // Readable while messages or errors wait for pump(); -1 when none can come.
  int wakeFd() const { return wakeFd_; }
  // On the console thread: raises onError for reported failures, then
  // onArrived when messages wait.
  void pump();

  // What RtMidi's thread hands over: one message as its raw bytes.
  void received(const unsigned char* bytes, size_t size);
  void reportError(int code, std::string text);

  // Beyond this many unhandled messages the newest are dropped: a console
  // that stopped pumping must not eat the machine's memory.
  static constexpr size_t kQueueLimit = 1 << 16;

 private:
  void wake();
  void clearWake();

  std::unique_ptr<RtMidiIn> midi_;
  int device_ = 0;
  bool open_ = false;
  std::atomic<bool> receiving_{false};
  std::atomic<bool> opening_{false};
  int wakeFd_ = -1;
  std::mutex mutex_;
  std::deque<MidiMessage> queue_;
  std::vector<std::pair<int, std::string>> errors_;
};

class RtMidiOutPort : public MidiOutPort {
 public:
  RtMidiOutPort();
  ~RtMidiOutPort() override;

  int deviceCount() override;
  // Device -1, the default destination, is a port of the console's own that
  // other programs and desks connect to.
  std::string deviceName(int device) override;
  void setDevice(int device) override { device_ = device; }
  void open() override;
  void close() override;
  bool isOpen() const override { return open_; }
  void send(int status, int d1, int d2) override;

 private:
  std::unique_ptr<RtMidiOut> midi_;
  int device_ = 0;
  bool open_ = false;
};

}  // namespace q
