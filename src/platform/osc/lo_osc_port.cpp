#include "platform/osc/lo_osc_port.h"

#include <lo/lo.h>
#include <netdb.h>
#include <sys/epoll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <span>

#include "engine/remote/osc_packet.h"

namespace q {

namespace {
// The largest UDP datagram; a longer one can't arrive whole.
constexpr size_t kDatagramLimit = 65536;
// More arguments than any address of the console takes: the message is no command.
constexpr int kArgLimit = 16;

int openSocket(const std::string& host, int port, bool passive, sockaddr_storage& where,
               socklen_t& size, std::string& error) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_DGRAM;
  hints.ai_flags = AI_NUMERICSERV | (passive ? AI_PASSIVE : 0);
  addrinfo* found = nullptr;
  const int rc = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
  if (rc != 0 || !found) {
    error = rc == EAI_SYSTEM ? std::strerror(errno) : gai_strerror(rc);
    return -1;
  }
  const int fd = ::socket(found->ai_family, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (fd < 0) error = std::strerror(errno);
  std::memcpy(&where, found->ai_addr, found->ai_addrlen);
  size = found->ai_addrlen;
  freeaddrinfo(found);
  return fd;
}

// liblo packs the arguments as the wire does, four bytes apart, so an
// eight-byte one may stand misaligned: each is copied out, never read in place.
template <class T>
T copied(const lo_arg* a) {
  T value;
  std::memcpy(&value, a, sizeof value);
  return value;
}

OscArg decode(char type, const lo_arg* a) {
  switch (type) {
    case LO_INT32:
      return OscArg::integer(copied<int32_t>(a));
    case LO_FLOAT:
      return OscArg::real(copied<float>(a));
    case LO_DOUBLE:
      return OscArg::precise(copied<double>(a));
    case LO_INT64:
      return OscArg::precise(double(copied<int64_t>(a)));
    case LO_STRING:
    case LO_SYMBOL:
      return OscArg::string(reinterpret_cast<const char*>(a));
    default:
      return OscArg::other();
  }
}

void encode(lo_message m, const OscArg& a) {
  switch (a.type) {
    case OscArg::Type::Int:
      lo_message_add_int32(m, int32_t(a.number));
      break;
    case OscArg::Type::Float:
      lo_message_add_float(m, float(a.number));
      break;
    case OscArg::Type::Double:
      lo_message_add_double(m, a.number);
      break;
    case OscArg::Type::String:
      lo_message_add_string(m, a.text.c_str());
      break;
    case OscArg::Type::Other:
      lo_message_add_nil(m);
      break;
  }
}
}  // namespace

LoOscPort::LoOscPort() : epoll_(epoll_create1(EPOLL_CLOEXEC)), buffer_(kDatagramLimit) {}

LoOscPort::~LoOscPort() {
  close();
  if (sender_ >= 0) ::close(sender_);
  if (epoll_ >= 0) ::close(epoll_);
}

bool LoOscPort::listen(const std::string& address, int port, std::string& error) {
  close();
  if (port == 0) return true;
  sockaddr_storage where{};
  socklen_t size = 0;
  const int fd = openSocket(address, port, true, where, size, error);
  if (fd < 0) return false;
  if (::bind(fd, reinterpret_cast<sockaddr*>(&where), size) != 0) {
    error = std::strerror(errno);
    ::close(fd);
    return false;
  }
  epoll_event e{};
  e.events = EPOLLIN;
  if (epoll_ < 0 || epoll_ctl(epoll_, EPOLL_CTL_ADD, fd, &e) != 0) {
    error = "no event descriptor";
    ::close(fd);
    return false;
  }
  socket_ = fd;
  return true;
}

void LoOscPort::close() {
  if (socket_ < 0) return;
  if (epoll_ >= 0) epoll_ctl(epoll_, EPOLL_CTL_DEL, socket_, nullptr);
  ::close(socket_);
  socket_ = -1;
}

bool LoOscPort::setDestination(const std::string& host, int port, std::string& error) {
  if (sender_ >= 0) ::close(sender_);
  sender_ = -1;
  destinationSize_ = 0;
  if (port == 0) return true;
  sender_ = openSocket(host, port, false, destination_, destinationSize_, error);
  return sender_ >= 0;
}

void LoOscPort::send(const OscMessage& m) {
  if (sender_ < 0) return;
  lo_message out = lo_message_new();
  if (!out) return;
  for (const OscArg& a : m.args) encode(out, a);
  size_t size = lo_message_length(out, m.address.c_str());
  std::vector<uint8_t> bytes(size);
  if (size > 0 && lo_message_serialise(out, m.address.c_str(), bytes.data(), &size))
    // Never waits: a full network buffer loses this message, and the next change sends anew.
    ::sendto(sender_, bytes.data(), size, MSG_DONTWAIT | MSG_NOSIGNAL,
             reinterpret_cast<const sockaddr*>(&destination_), destinationSize_);
  lo_message_free(out);
}

void LoOscPort::pump() {
  for (int k = 0; k < kDatagramsPerPump && socket_ >= 0; ++k) {
    const ssize_t n = ::recv(socket_, buffer_.data(), buffer_.size(), MSG_DONTWAIT | MSG_TRUNC);
    if (n < 0) {
      if (errno == EINTR) continue;
      return;  // nothing more waits (or the network told of a lost packet)
    }
    if (size_t(n) > buffer_.size()) {
      if (onMalformed) onMalformed();
      continue;
    }
    datagram(buffer_.data(), size_t(n));
  }
}

void LoOscPort::datagram(const uint8_t* data, size_t size) {
  const bool whole = splitOscPacket(
      {data, size}, [this](std::span<const uint8_t> m) { message(m.data(), m.size()); });
  if (!whole && onMalformed) onMalformed();
}

void LoOscPort::message(const uint8_t* data, size_t size) {
  int result = 0;
  lo_message m = lo_message_deserialise(const_cast<uint8_t*>(data), size, &result);
  if (!m) {
    if (onMalformed) onMalformed();
    return;
  }
  OscMessage out;
  out.address.assign(reinterpret_cast<const char*>(data),
                     strnlen(reinterpret_cast<const char*>(data), size));
  const int argc = lo_message_get_argc(m);
  const char* types = lo_message_get_types(m);
  lo_arg** argv = lo_message_get_argv(m);
  if (argc > kArgLimit || !types) {
    out.args.push_back(OscArg::other());
  } else {
    for (int i = 0; i < argc; ++i) out.args.push_back(decode(types[i], argv[i]));
  }
  lo_message_free(m);
  if (onMessage) onMessage(out);
}

}  // namespace q
