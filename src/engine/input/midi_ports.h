#pragma once
// The two MIDI ports as the console drives them: an input that queues what
// arrives and raises an event, an output that sends short messages. The
// desk and the headless runner give real ports (RtMidi); tests give fakes.
// A console without ports gets ones that list no device and never open.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/input/midi_out.h"

namespace q {

struct MidiMessage {
  MidiMessage() = default;
  MidiMessage(int s, int d1, int d2) : status(s), data1(d1), data2(d2) {}

  int status = 0;
  int data1 = 0;
  int data2 = 0;
  // A system-exclusive message whole, F0 to F7 (status is then 0xF0); empty for the others.
  std::vector<uint8_t> sysex;

  // Longer system-exclusive messages are no show control and are dropped
  // where they arrive: a sender can't fill the console's memory with them.
  static constexpr size_t kSysexLimit = 256;
};

class MidiInPort {
 public:
  virtual ~MidiInPort() = default;

  virtual int deviceCount() = 0;
  // Name of device 0..deviceCount()-1; "" for any other number.
  virtual std::string deviceName(int device) = 0;
  virtual void setDevice(int device) = 0;
  // Opening may fail: the port then stays closed and isOpen() tells.
  virtual void open() = 0;
  virtual void start() = 0;
  virtual void stop() = 0;
  virtual void close() = 0;
  virtual bool isOpen() const = 0;
  // Lets system-exclusive messages through as well.
  virtual void enableLongMessages() = 0;

  // The queue of messages received and not yet handled, oldest first.
  virtual int waiting() = 0;
  virtual MidiMessage oldest() = 0;
  virtual void removeOldest() = 0;

  // Raised on the console thread when messages are waiting.
  std::function<void()> onArrived;
  // Raised on the console thread when the device reports a failure.
  std::function<void(int code, const std::string& text)> onError;
};

class MidiOutPort : public MidiOut {
 public:
  virtual int deviceCount() = 0;
  // Name of device 0..deviceCount()-1, and of -1, the system's default
  // destination; "" for any other number.
  virtual std::string deviceName(int device) = 0;
  virtual void setDevice(int device) = 0;
  virtual void open() = 0;
  virtual void close() = 0;
  virtual bool isOpen() const = 0;
};

// Ports with no device: nothing opens, nothing arrives, sends go nowhere.
class NoMidiIn : public MidiInPort {
 public:
  int deviceCount() override { return 0; }
  std::string deviceName(int) override { return {}; }
  void setDevice(int) override {}
  void open() override {}
  void start() override {}
  void stop() override {}
  void close() override {}
  bool isOpen() const override { return false; }
  void enableLongMessages() override {}
  int waiting() override { return 0; }
  MidiMessage oldest() override { return {}; }
  void removeOldest() override {}
};

class NoMidiOut : public MidiOutPort {
 public:
  int deviceCount() override { return 0; }
  std::string deviceName(int) override { return {}; }
  void setDevice(int) override {}
  void open() override {}
  void close() override {}
  bool isOpen() const override { return false; }
  void send(int, int, int) override {}
};

}  // namespace q
