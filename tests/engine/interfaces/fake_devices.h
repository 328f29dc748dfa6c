#pragma once
// Fakes of the output devices: an FTDI chip that logs every call and can be
// told to fail any of them, a widget that answers on that chip, an OLA link,
// and the vendor libraries. A factory hands them to the console and keeps a
// pointer to each one it made, for the test to look at.

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/interfaces/devices.h"

namespace q::test {

class FakeFtdi : public FtdiDevice {
 public:
  std::vector<std::string> calls;
  std::map<std::string, int> failures;  // call name -> status it returns
  int devices = 1;
  std::vector<std::vector<uint8_t>> writes;
  std::deque<uint8_t> incoming;
  // Runs after each write, e.g. to queue a widget's answer.
  std::function<void(const std::vector<uint8_t>&)> onWrite;

  int result(const std::string& name, const std::string& args = {}) {
    const std::string call = args.empty() ? name : name + " " + args;
    calls.push_back(call);
    // A failure may be set for a call ("purge") or for one argument of it ("purge 1").
    for (const std::string& key : {call, name}) {
      auto it = failures.find(key);
      if (it != failures.end()) return it->second;
    }
    return FT_OK;
  }
  int countDevices(int& count) override {
    count = devices;
    return result("countDevices");
  }
  int open(int index) override { return result("open", std::to_string(index)); }
  int close() override { return result("close"); }
  int resetDevice() override { return result("resetDevice"); }
  int setDivisor(int d) override { return result("setDivisor", std::to_string(d)); }
  int setDataCharacteristics(int w, int s, int p) override {
    return result("setDataCharacteristics",
                  std::to_string(w) + " " + std::to_string(s) + " " + std::to_string(p));
  }
  int setFlowControl(int m, uint8_t a, uint8_t b) override {
    return result("setFlowControl",
                  std::to_string(m) + " " + std::to_string(a) + " " + std::to_string(b));
  }
  int clrRts() override { return result("clrRts"); }
  int purge(int mask) override { return result("purge", std::to_string(mask)); }
  int setBreakOn() override { return result("setBreakOn"); }
  int setBreakOff() override { return result("setBreakOff"); }
  int setLatencyTimer(int ms) override { return result("setLatencyTimer", std::to_string(ms)); }
  int setTimeouts(int r, int w) override {
    return result("setTimeouts", std::to_string(r) + " " + std::to_string(w));
  }
  int getQueueStatus(int& bytes) override {
    bytes = int(incoming.size());
    return result("getQueueStatus");
  }
  int read(uint8_t* buf, int size, int& got) override {
    got = 0;
    while (got < size && !incoming.empty()) {
      buf[got++] = incoming.front();
      incoming.pop_front();
    }
    return result("read");
  }
  int write(const uint8_t* buf, int size, int& written) override {
    const int r = result("write", std::to_string(size));
    written = r == FT_OK ? size : 0;
    if (r == FT_OK) {
      writes.emplace_back(buf, buf + size);
      if (onWrite) onWrite(writes.back());
    }
    return r;
  }
  // The calls without the reads and queue queries, which depend on timing.
  std::vector<std::string> setupCalls() const {
    std::vector<std::string> out;
    for (const auto& c : calls)
      if (c != "read" && c != "getQueueStatus") out.push_back(c);
    return out;
  }
  void queue(const std::vector<uint8_t>& bytes) {
    incoming.insert(incoming.end(), bytes.begin(), bytes.end());
  }
};

// A packet of the widget's protocol.
inline std::vector<uint8_t> packet(uint8_t label, const std::vector<uint8_t>& data) {
  std::vector<uint8_t> p(data.size() + 5);
  p[0] = 0x7E;
  p[1] = label;
  p[2] = uint8_t(data.size() & 0xFF);
  p[3] = uint8_t(data.size() >> 8);
  std::copy(data.begin(), data.end(), p.begin() + 4);
  p.back() = 0xE7;
  return p;
}

// Makes a FakeFtdi answer get-parameters like a widget: firmware 1.44,
// break 9, MAB 1, 40 frames a second. `silentQueries` queries go unanswered first.
inline void answerLikeAWidget(FakeFtdi& f, int silentQueries = 0) {
  auto left = std::make_shared<int>(silentQueries);
  f.onWrite = [&f, left](const std::vector<uint8_t>& w) {
    if (w.size() < 2 || w[1] != 3) return;
    if ((*left)-- > 0) return;
    f.queue(packet(3, {44, 1, 9, 1, 40}));
  };
}

class FakeOla : public OlaSender {
 public:
  bool up = true;    // olad running
  int connects = 0;  // connection attempts
  int lastPort = 0;
  bool linked = false;
  std::vector<std::pair<unsigned, std::vector<uint8_t>>> sent;
  bool connect(int port) override {
    ++connects;
    lastPort = port;
    linked = up;
    return up;
  }
  bool send(unsigned universe, const uint8_t* frame, int size) override {
    if (!linked || !up) return false;
    sent.emplace_back(universe, std::vector<uint8_t>(frame, frame + size));
    return true;
  }
  void disconnect() override { linked = false; }
};

class FakeSunlite : public SunliteLibrary {
 public:
  int16_t handle = 1;
  std::vector<std::pair<int, int>> commands;  // command, parameter
  int16_t DasHardCommand(int16_t command, int16_t param, uint8_t*) override {
    commands.emplace_back(command, param);
    return command == 1 ? handle : 0;
  }
};

class FakeVelleman : public VellemanLibrary {
 public:
  std::vector<std::string> calls;
  std::map<int, int> levels;
  void StartDevice() override { calls.push_back("StartDevice"); }
  void SetChannelCount(int32_t n) override {
    calls.push_back("SetChannelCount " + std::to_string(n));
  }
  void SetData(int32_t ch, int32_t level) override { levels[ch] = level; }
  void StopDevice() override { calls.push_back("StopDevice"); }
};

// Fakes only answer what a test set up; pointers stay valid while the console lives.
class FakeFactory : public DeviceFactory {
 public:
  std::vector<FakeFtdi*> ftdis;
  std::function<void(FakeFtdi&)> prepareFtdi;
  FakeOla* olaLink = nullptr;
  bool olaUp = true;
  FakeSunlite* sunliteLib = nullptr;
  FakeVelleman* vellemanLib = nullptr;
  bool provideSunlite = false, provideVelleman = false;
  // Frame senders put frames on the wire from a thread of their own.
  bool wire = false;
  bool wireThread() const override { return wire; }

  std::unique_ptr<FtdiDevice> ftdi() override {
    auto f = std::make_unique<FakeFtdi>();
    if (prepareFtdi) prepareFtdi(*f);
    ftdis.push_back(f.get());
    return f;
  }
  std::unique_ptr<OlaSender> ola() override {
    auto o = std::make_unique<FakeOla>();
    o->up = olaUp;
    olaLink = o.get();
    return o;
  }
  std::unique_ptr<SunliteLibrary> sunlite() override {
    if (!provideSunlite) return nullptr;
    auto s = std::make_unique<FakeSunlite>();
    sunliteLib = s.get();
    return s;
  }
  std::unique_ptr<VellemanLibrary> velleman() override {
    if (!provideVelleman) return nullptr;
    auto v = std::make_unique<FakeVelleman>();
    vellemanLib = v.get();
    return v;
  }
};

}  // namespace q::test
