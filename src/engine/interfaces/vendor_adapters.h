#pragma once
// The adapters that came with a vendor library of their own. None of these
// libraries exists on Linux; each module talks to whatever library the
// device factory gives (a "library not found" stand-in unless a test or a
// port provides one) through exactly the calls the console has always made.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/interfaces/devices.h"

namespace q {

// Sunlite USB 256 (interface 5): one command call for everything.
class Sunlite {
 public:
  explicit Sunlite(SunliteLibrary& lib) : lib_(lib) {}
  void open(uint8_t* dmxData);
  void send(int16_t maxChans, uint8_t* dmxData);
  void close(int16_t maxChans, uint8_t* dmxData);

  int16_t SunliteCommand = 0;
  int16_t SunliteHandle = 0;
  int16_t SunliteResult = 0;
  // Formed at open for a status line the console does not show.
  std::string status;

 private:
  SunliteLibrary& lib_;
};

// OksiD DMX 3/1 (interface 7): a read and a write of the frame on every tick,
// no start or stop. A failure says so and turns the output off.
class Oksid {
 public:
  struct Hooks {
    std::function<void(const std::string& title, const std::string& text)> warning;
    std::function<void()> turnOff;  // sets InterfaceType to 0
  };
  Oksid(OksidLibrary& lib, Hooks hooks) : lib_(lib), hooks_(std::move(hooks)) {}
  void tick(int16_t portBase, uint8_t* dmxData);

  static constexpr const char* kTitle = " DMX ERROR";
  static constexpr const char* kText = " 3-1 DMX Adapter Not Connected or Not Responding";

 private:
  void fail();
  OksidLibrary& lib_;
  Hooks hooks_;
};

// Velleman K8062 / VM116 (interface 8): channels go out one by one from
// inside the mix.
class Velleman {
 public:
  explicit Velleman(VellemanLibrary& lib) : lib_(lib) {}
  void start(int16_t maxChans);
  void setData(int channel, uint8_t level) { lib_.SetData(channel, level); }
  void stop() { lib_.StopDevice(); }

 private:
  VellemanLibrary& lib_;
};

}  // namespace q
