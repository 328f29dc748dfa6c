#pragma once
// The OLA daemon through libola's client on a socket of our own: one frame
// at a time streamed to a universe. It never starts olad by itself; a
// console that finds no olad says so and tries again later.
//
// Owning the socket lets a send give up: an olad that has stopped reading
// (hung, or stopped in a debugger) fails a frame after a short wait instead
// of holding the line, or the console's exit, for ever.

#include <memory>

#include "engine/interfaces/devices.h"

namespace ola::client {
class OlaClient;
}
namespace ola::network {
class TCPSocket;
}

namespace q {

class OlaClientSender : public OlaSender {
 public:
  OlaClientSender();
  ~OlaClientSender() override;
  bool connect(int rpcPort) override;
  bool send(unsigned universe, const uint8_t* frame, int size) override;
  void disconnect() override;

  // How long one frame may wait for olad to take it.
  static constexpr int kSendTimeoutMs = 200;

 private:
  std::unique_ptr<ola::network::TCPSocket> socket_;
  std::unique_ptr<ola::client::OlaClient> client_;
  bool closed_ = false;
};

}  // namespace q
