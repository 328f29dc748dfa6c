#include "platform/serial/termios_port.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>

namespace q {

namespace {
using Clock = std::chrono::steady_clock;

int msLeft(Clock::time_point deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
  return left.count() > 0 ? int(left.count()) : 0;
}

// Waits until fd is ready for events or the deadline passes: 1 ready, 0 timeout, -1 error.
int waitFor(int fd, short events, Clock::time_point deadline) {
  for (;;) {
    pollfd p{fd, events, 0};
    const int r = ::poll(&p, 1, msLeft(deadline));
    if (r < 0 && errno == EINTR) continue;
    if (r <= 0) return r;
    if (p.revents & (POLLERR | POLLNVAL)) return -1;
    // A hang-up with nothing left to read is an error for a reader.
    if ((p.revents & POLLHUP) && !(p.revents & POLLIN)) return -1;
    return 1;
  }
}
}  // namespace

bool makeRaw(int fd) {
  termios t{};
  if (tcgetattr(fd, &t) != 0) return false;
  cfmakeraw(&t);
  t.c_cflag |= CLOCAL | CREAD;
  t.c_cflag &= ~(CRTSCTS | CSTOPB);
  t.c_cc[VMIN] = 0;
  t.c_cc[VTIME] = 0;
  // The widget's USB link runs at whatever rate is set; 57600 is the usual.
  cfsetispeed(&t, B57600);
  cfsetospeed(&t, B57600);
  return tcsetattr(fd, TCSANOW, &t) == 0;
}

bool TermiosPort::open(const std::string& path) {
  close();
  const int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (fd < 0) return false;
  if (!isatty(fd) || !makeRaw(fd)) {
    ::close(fd);
    return false;
  }
  fd_ = fd;
  return true;
}

void TermiosPort::close() {
  if (fd_ < 0) return;
  ::close(fd_);
  fd_ = -1;
}

bool TermiosPort::flushInput() { return fd_ >= 0 && tcflush(fd_, TCIFLUSH) == 0; }
bool TermiosPort::flushOutput() { return fd_ >= 0 && tcflush(fd_, TCOFLUSH) == 0; }

int TermiosPort::available() {
  if (fd_ < 0) return -1;
  int n = 0;
  if (ioctl(fd_, FIONREAD, &n) != 0) return -1;
  return n;
}

int TermiosPort::read(uint8_t* buf, int size, int timeoutMs) {
  if (fd_ < 0) return -1;
  const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
  int got = 0;
  while (got < size) {
    const ssize_t n = ::read(fd_, buf + got, size_t(size - got));
    if (n > 0) {
      got += int(n);
      continue;
    }
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && errno != EAGAIN) return got > 0 ? got : -1;
    const int ready = waitFor(fd_, POLLIN, deadline);
    if (ready < 0) return got > 0 ? got : -1;
    if (ready == 0) break;
  }
  return got;
}

bool TermiosPort::write(const uint8_t* buf, int size) {
  if (fd_ < 0) return false;
  const Clock::time_point deadline = Clock::now() + std::chrono::seconds(1);
  int done = 0;
  while (done < size) {
    const ssize_t n = ::write(fd_, buf + done, size_t(size - done));
    if (n > 0) {
      done += int(n);
      continue;
    }
    if (n < 0 && errno == EINTR) continue;
    if (n < 0 && errno != EAGAIN) return false;
    if (waitFor(fd_, POLLOUT, deadline) <= 0) return false;
  }
  return true;
}

}  // namespace q
