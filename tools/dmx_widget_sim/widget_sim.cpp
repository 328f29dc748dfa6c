#include "widget_sim.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

namespace q::sim {

namespace {
constexpr uint8_t kSom = 0x7E;
constexpr uint8_t kEom = 0xE7;
constexpr size_t kMaxLength = 600;

bool rawSlave(int fd) {
  termios t{};
  if (tcgetattr(fd, &t) != 0) return false;
  cfmakeraw(&t);
  return tcsetattr(fd, TCSANOW, &t) == 0;
}
}  // namespace

WidgetSim::WidgetSim(Options options)
    : options_(options), silent_(options.silent), replyDelayMs_(options.replyDelayMs) {}

WidgetSim::~WidgetSim() { stop(); }

bool WidgetSim::start() {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (master_ < 0) return false;
  if (grantpt(master_) != 0 || unlockpt(master_) != 0) return false;
  const char* name = ptsname(master_);
  if (!name) return false;
  slavePath_ = name;
  slaveKeeper_ = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slaveKeeper_ < 0 || !rawSlave(slaveKeeper_)) return false;
  running_ = true;
  thread_ = std::thread([this] { run(); });
  return true;
}

void WidgetSim::stop() {
  if (running_.exchange(false)) thread_.join();
  if (slaveKeeper_ >= 0) ::close(slaveKeeper_);
  if (master_ >= 0) ::close(master_);
  slaveKeeper_ = master_ = -1;
}

void WidgetSim::run() {
  uint8_t buf[4096];
  while (running_) {
    pollfd p{master_, POLLIN, 0};
    if (::poll(&p, 1, 20) <= 0 || !(p.revents & POLLIN)) continue;
    const ssize_t n = ::read(master_, buf, sizeof buf);
    if (n > 0) take(buf, size_t(n));
  }
}

// Collects bytes into packets; anything that is not a whole packet is
// skipped up to the next start byte, as the widget's own firmware does.
void WidgetSim::take(const uint8_t* bytes, size_t n) {
  pending_.insert(pending_.end(), bytes, bytes + n);
  for (;;) {
    size_t som = 0;
    while (som < pending_.size() && pending_[som] != kSom) ++som;
    if (som > 0) {
      ++bad_;
      pending_.erase(pending_.begin(), pending_.begin() + long(som));
    }
    if (pending_.size() < 4) return;
    const size_t length = pending_[2] | size_t(pending_[3]) << 8;
    if (length > kMaxLength) {
      ++bad_;
      pending_.erase(pending_.begin());
      continue;
    }
    if (pending_.size() < length + 5) return;
    if (pending_[4 + length] != kEom) {
      ++bad_;
      pending_.erase(pending_.begin());
      continue;
    }
    const uint8_t label = pending_[1];
    std::vector<uint8_t> data(pending_.begin() + 4, pending_.begin() + 4 + long(length));
    pending_.erase(pending_.begin(), pending_.begin() + long(length) + 5);
    handle(label, data);
  }
}

void WidgetSim::handle(uint8_t label, const std::vector<uint8_t>& data) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    received_.push_back({std::chrono::steady_clock::now(), label, data});
  }
  switch (label) {
    case 3:  // get parameters
      if (!silent_ && data.size() >= 2) answerParameters(data[0] | data[1] << 8);
      break;
    case 4:  // set parameters
      if (data.size() >= 5) {
        options_.breakTime = data[2];
        options_.mabTime = data[3];
        options_.fps = data[4];
      }
      break;
    case 2:  // a firmware page: always accepted
      sendPacket(2, {'T', 'R', 'U', 'E'});
      break;
    default:
      break;
  }
}

void WidgetSim::answerParameters(int userSize) {
  if (const int delay = replyDelayMs_.load(); delay > 0)
    std::this_thread::sleep_for(std::chrono::milliseconds(delay));
  std::vector<uint8_t> data = {options_.firmwareMinor, options_.firmwareMajor, options_.breakTime,
                               options_.mabTime, options_.fps};
  data.resize(data.size() + size_t(std::max(0, userSize)), 0);
  sendPacket(3, data);
}

void WidgetSim::sendPacket(uint8_t label, const std::vector<uint8_t>& data) {
  std::vector<uint8_t> p = {kSom, label, uint8_t(data.size() & 0xFF), uint8_t(data.size() >> 8)};
  p.insert(p.end(), data.begin(), data.end());
  p.push_back(kEom);
  sendRaw(p);
}

void WidgetSim::sendRaw(const std::vector<uint8_t>& bytes) {
  std::lock_guard<std::mutex> lock(writeMutex_);
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(master_, bytes.data() + done, bytes.size() - done);
    if (n > 0) {
      done += size_t(n);
    } else if (n < 0 && errno != EINTR && errno != EAGAIN) {
      return;
    }
  }
}

void WidgetSim::sendReceivedDmx(uint8_t status, const std::vector<uint8_t>& startCodeAndLevels) {
  std::vector<uint8_t> data = {status};
  data.insert(data.end(), startCodeAndLevels.begin(), startCodeAndLevels.end());
  sendPacket(5, data);
}

void WidgetSim::sendChangeOfState(uint8_t block, const std::vector<uint8_t>& bits,
                                  const std::vector<uint8_t>& values) {
  std::vector<uint8_t> data = {block};
  data.insert(data.end(), bits.begin(), bits.end());
  data.resize(6, 0);
  data.insert(data.end(), values.begin(), values.end());
  sendPacket(9, data);
}

std::vector<WidgetSim::Frame> WidgetSim::frames() const {
  std::lock_guard<std::mutex> lock(mutex_);
  std::vector<Frame> out;
  for (const Frame& f : received_)
    if (f.label == 6 || f.label == 7) out.push_back(f);
  return out;
}

int WidgetSim::packetsWithLabel(uint8_t label) const {
  std::lock_guard<std::mutex> lock(mutex_);
  int n = 0;
  for (const Frame& f : received_) n += f.label == label;
  return n;
}

std::vector<uint8_t> WidgetSim::lastDataWithLabel(uint8_t label) const {
  std::lock_guard<std::mutex> lock(mutex_);
  for (auto it = received_.rbegin(); it != received_.rend(); ++it)
    if (it->label == label) return it->data;
  return {};
}

}  // namespace q::sim
