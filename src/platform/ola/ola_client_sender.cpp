#include "platform/ola/ola_client_sender.h"

#include <ola/DmxBuffer.h>
#include <ola/client/StreamingClient.h>

#include <csignal>

namespace q {

OlaClientSender::OlaClientSender() {
  // A frame written to an olad that has just gone away must not end the
  // console: a broken link shows as a failed send instead of SIGPIPE.
  std::signal(SIGPIPE, SIG_IGN);
}

OlaClientSender::~OlaClientSender() { disconnect(); }

bool OlaClientSender::connect(int rpcPort) {
  disconnect();
  ola::client::StreamingClient::Options options;
  options.auto_start = false;
  options.server_port = uint16_t(rpcPort);
  auto client = std::make_unique<ola::client::StreamingClient>(options);
  if (!client->Setup()) return false;
  client_ = std::move(client);
  return true;
}

bool OlaClientSender::send(unsigned universe, const uint8_t* frame, int size) {
  if (!client_) return false;
  ola::DmxBuffer buffer;
  buffer.Set(frame, unsigned(size));
  return client_->SendDmx(universe, buffer);
}

void OlaClientSender::disconnect() {
  if (!client_) return;
  client_->Stop();
  client_.reset();
}

}  // namespace q
