#include "platform/ola/ola_client_sender.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <ola/DmxBuffer.h>
#include <ola/client/OlaClient.h>
#include <ola/network/IPV4Address.h>
#include <ola/network/SocketAddress.h>
#include <ola/network/TCPSocket.h>

#include <chrono>
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
  socket_.reset(ola::network::TCPSocket::Connect(
      ola::network::IPV4SocketAddress(ola::network::IPV4Address::Loopback(), uint16_t(rpcPort))));
  if (!socket_) return false;
  timeval wait{0, kSendTimeoutMs * 1000};
  setsockopt(socket_->WriteDescriptor(), SOL_SOCKET, SO_SNDTIMEO, &wait, sizeof wait);
  client_ = std::make_unique<ola::client::OlaClient>(socket_.get());
  closed_ = false;
  if (!client_->Setup()) {
    disconnect();
    return false;
  }
  return true;
}

bool OlaClientSender::send(unsigned universe, const uint8_t* frame, int size) {
  if (!client_ || closed_) return false;
  // olad has closed its end, or has stopped taking frames and its socket is
  // full: the link is lost, and the console connects again later.
  pollfd link{socket_->WriteDescriptor(), POLLOUT | POLLRDHUP, 0};
  if (poll(&link, 1, 0) < 0 || (link.revents & (POLLERR | POLLHUP | POLLRDHUP)) ||
      !(link.revents & POLLOUT)) {
    closed_ = true;
    return false;
  }
  const auto start = std::chrono::steady_clock::now();
  client_->SendDMX(universe, ola::DmxBuffer(frame, unsigned(size)), ola::client::SendDMXArgs());
  // A write that had to wait out its timeout may have gone in part, and the
  // client then drops the link by itself: start again on a fresh one.
  if (std::chrono::steady_clock::now() - start >= std::chrono::milliseconds(kSendTimeoutMs / 2))
    closed_ = true;
  return true;
}

void OlaClientSender::disconnect() {
  if (client_) client_->Stop();
  client_.reset();
  socket_.reset();
}

}  // namespace q
