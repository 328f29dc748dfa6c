#pragma once
// The console's OSC socket on the real network: a UDP socket of its own,
// bound to the chosen address and port, read from the console thread when
// the host's event loop says it is readable. liblo reads and writes the
// messages' wire format; the socket, the pace and the limits are the console's.

#include <sys/socket.h>

#include <cstdint>
#include <vector>

#include "engine/remote/osc_port.h"

namespace q {

class LoOscPort : public OscPort {
 public:
  LoOscPort();
  ~LoOscPort() override;
  LoOscPort(const LoOscPort&) = delete;
  LoOscPort& operator=(const LoOscPort&) = delete;

  bool listen(const std::string& address, int port, std::string& error) override;
  void close() override;
  bool isOpen() const override { return socket_ >= 0; }
  bool setDestination(const std::string& host, int port, std::string& error) override;
  void send(const OscMessage& m) override;

  // The descriptor the host watches: readable while datagrams wait. It stays
  // the same through every listen() and close(), so the host sets it up once.
  int wakeFd() const { return epoll_; }
  // Takes at most kDatagramsPerPump datagrams and returns: a flood is read a
  // slice at a time, and the output timer runs between the slices.
  void pump();
  static constexpr int kDatagramsPerPump = 64;

 private:
  void datagram(const uint8_t* data, size_t size);
  void message(const uint8_t* data, size_t size);

  int epoll_ = -1;
  int socket_ = -1;
  int sender_ = -1;
  sockaddr_storage destination_{};
  socklen_t destinationSize_ = 0;
  std::vector<uint8_t> buffer_;
};

}  // namespace q
