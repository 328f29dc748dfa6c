#pragma once
// The OLA daemon through libola's streaming client: one frame at a time to a
// universe. It never starts olad by itself; a console that finds no olad says
// so and tries again later.

#include <memory>

#include "engine/interfaces/devices.h"

namespace ola::client {
class StreamingClient;
}

namespace q {

class OlaClientSender : public OlaSender {
 public:
  OlaClientSender();
  ~OlaClientSender() override;
  bool connect(int rpcPort) override;
  bool send(unsigned universe, const uint8_t* frame, int size) override;
  void disconnect() override;

 private:
  std::unique_ptr<ola::client::StreamingClient> client_;
};

}  // namespace q
