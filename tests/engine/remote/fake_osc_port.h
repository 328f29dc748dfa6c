#pragma once
// An OSC socket in memory: what the console sends is kept, what a test
// delivers arrives as from the network.

#include <string>
#include <vector>

#include "engine/remote/osc_port.h"

namespace q::test {

class FakeOscPort : public OscPort {
 public:
  bool listen(const std::string& address, int port, std::string& error) override {
    open = port != 0 && !refuse;
    if (refuse) error = "Address already in use";
    listenedOn = address + ":" + std::to_string(port);
    return !refuse || port == 0;
  }
  void close() override { open = false; }
  bool isOpen() const override { return open; }
  bool setDestination(const std::string& host, int port, std::string&) override {
    destination = host + ":" + std::to_string(port);
    return true;
  }
  void send(const OscMessage& m) override { sent.push_back(m); }

  void deliver(const OscMessage& m) { onMessage(m); }

  bool open = false, refuse = false;
  std::string listenedOn, destination;
  std::vector<OscMessage> sent;
};

}  // namespace q::test
