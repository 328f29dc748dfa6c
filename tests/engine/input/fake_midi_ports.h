#pragma once
// MIDI ports for tests: a device list, a switch that makes opening fail, a
// log of the calls in order, and the messages sent or waiting.

#include <deque>
#include <string>
#include <vector>

#include "engine/input/midi_ports.h"

namespace q::test {

class FakeMidiIn : public MidiInPort {
 public:
  std::vector<std::string> devices{"Desk In", "Keys In"};
  bool failOpen = false;
  std::vector<std::string> log;
  std::deque<MidiMessage> queue;
  int device = 0;

  // Messages arrive as from the wire: queued, then the event.
  void arrive(std::vector<MidiMessage> ms) {
    for (auto m : ms) queue.push_back(m);
    if (onArrived) onArrived();
  }

  int deviceCount() override { return int(devices.size()); }
  std::string deviceName(int d) override {
    return d >= 0 && d < deviceCount() ? devices[d] : std::string();
  }
  void setDevice(int d) override {
    device = d;
    log.push_back("device " + std::to_string(d));
  }
  void open() override {
    log.push_back("open");
    open_ = !failOpen && device >= 0 && device < deviceCount();
  }
  void start() override { log.push_back("start"); }
  void stop() override { log.push_back("stop"); }
  void close() override {
    log.push_back("close");
    open_ = false;
  }
  bool isOpen() const override { return open_; }
  void enableLongMessages() override { log.push_back("long"); }
  int waiting() override { return int(queue.size()); }
  MidiMessage oldest() override { return queue.front(); }
  void removeOldest() override { queue.pop_front(); }

 private:
  bool open_ = false;
};

class FakeMidiOut : public MidiOutPort {
 public:
  std::vector<std::string> devices{"Desk Out"};
  std::string mapper = "Quintara MIDI Out";
  bool failOpen = false;
  std::vector<std::string> log;
  std::vector<MidiMessage> sent;
  int device = 0;

  int deviceCount() override { return int(devices.size()); }
  std::string deviceName(int d) override {
    if (d == -1) return mapper;
    return d >= 0 && d < deviceCount() ? devices[d] : std::string();
  }
  void setDevice(int d) override {
    device = d;
    log.push_back("device " + std::to_string(d));
  }
  void open() override {
    log.push_back("open");
    open_ = !failOpen && device >= -1 && device < deviceCount();
  }
  void close() override {
    log.push_back("close");
    open_ = false;
  }
  bool isOpen() const override { return open_; }
  void send(int status, int d1, int d2) override { sent.push_back({status, d1, d2}); }

 private:
  bool open_ = false;
};

}  // namespace q::test
