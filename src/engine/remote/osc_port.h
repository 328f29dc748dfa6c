#pragma once
// The console's OSC socket: it listens on one address and port, hands every
// message it decodes to the console thread, and sends feedback to one
// destination. The desk and the headless console give a real one (liblo);
// tests give fakes. Without one the console has no OSC, quietly.

#include <functional>
#include <string>

#include "engine/remote/osc_message.h"

namespace q {

class OscPort {
 public:
  virtual ~OscPort() = default;

  // Listens on address:port (UDP), closing what was open before; false with
  // the reason when it can't. Port 0 only closes.
  virtual bool listen(const std::string& address, int port, std::string& error) = 0;
  virtual void close() = 0;
  virtual bool isOpen() const = 0;
  // Where feedback goes; port 0 sends none. False with the reason when the
  // host can't be reached by that name.
  virtual bool setDestination(const std::string& host, int port, std::string& error) = 0;
  // Sends one message to the destination, never waiting: a message the
  // network can't take now is lost, as UDP loses it.
  virtual void send(const OscMessage& m) = 0;

  // Raised on the console thread for every message received.
  std::function<void(const OscMessage&)> onMessage;
  // Raised on the console thread for a packet that is no OSC message.
  std::function<void()> onMalformed;
};

class NoOscPort : public OscPort {
 public:
  bool listen(const std::string&, int port, std::string& error) override {
    if (port != 0) error = "this console has no OSC";
    return port == 0;
  }
  void close() override {}
  bool isOpen() const override { return false; }
  bool setDestination(const std::string&, int, std::string&) override { return true; }
  void send(const OscMessage&) override {}
};

}  // namespace q
