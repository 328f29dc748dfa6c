#include "desk_probe.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ola/Callback.h>
#include <ola/network/IPV4Address.h>
#include <ola/network/SocketAddress.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace probe {

double msSince(Clock::time_point a, Clock::time_point b) {
  return std::chrono::duration<double, std::milli>(b - a).count();
}

bool OlaProbe::connect(int olaPort, unsigned universe) {
  socket_.reset(ola::network::TCPSocket::Connect(
      ola::network::IPV4SocketAddress(ola::network::IPV4Address::Loopback(), uint16_t(olaPort))));
  if (!socket_) return false;
  client_ = std::make_unique<ola::client::OlaClient>(socket_.get());
  if (!client_->Setup()) return false;
  ss_.AddReadDescriptor(socket_.get());
  client_->SetDMXCallback(ola::NewCallback(this, &OlaProbe::onDmx));
  client_->RegisterUniverse(universe, ola::client::REGISTER, nullptr);
  return true;
}

void OlaProbe::onDmx(const ola::client::DMXMetadata&, const ola::DmxBuffer& data) {
  Frame f{Clock::now(), data.Size() > 8 ? data.Get(8) : uint8_t(0)};
  for (unsigned i = 0; i < data.Size(); ++i) f.peak = std::max(f.peak, data.Get(i));
  if (recording) frames.push_back(f);
  if (onFrame) onFrame(f);
}

bool OlaProbe::runFor(unsigned ms) {
  bool timedOut = false;
  auto* t =
      ss_.RegisterSingleTimeout(ms, ola::NewSingleCallback(this, &OlaProbe::timeOut, &timedOut));
  ss_.Run();
  if (!timedOut) ss_.RemoveTimeout(t);
  return !timedOut;
}

void OlaProbe::timeOut(bool* timedOut) {
  *timedOut = true;
  ss_.Terminate();
}

int OlaProbe::every(unsigned ms, std::function<bool()> f) {
  const size_t id = repeating_.size();
  repeating_.push_back({std::move(f), {}});
  repeating_[id].id = ss_.RegisterRepeatingTimeout(ms, ola::NewCallback(this, &OlaProbe::tick, id));
  return int(id);
}

bool OlaProbe::tick(size_t id) { return repeating_[id].f && repeating_[id].f(); }

void OlaProbe::cancel(int id) {
  ss_.RemoveTimeout(repeating_[size_t(id)].id);
  repeating_[size_t(id)].f = nullptr;
}

bool Remote::open(int port) {
  close();
  for (int tries = 0; tries < 100; ++tries) {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(uint16_t(port));
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0) {
      fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK);
      fd_ = fd;
      return true;
    }
    ::close(fd);
    usleep(50000);
  }
  return false;
}

void Remote::close() {
  if (fd_ >= 0) ::close(fd_);
  fd_ = -1;
}

bool Remote::send(const std::string& line) {
  if (fd_ < 0) return false;
  const std::string text = line + "\n";
  size_t sent = 0;
  for (int spins = 0; sent < text.size() && spins < 1000; ++spins) {
    const ssize_t n = write(fd_, text.data() + sent, text.size() - sent);
    if (n > 0) {
      sent += size_t(n);
    } else {
      drain();  // a full socket: the desk is answering, take its answers
      usleep(1000);
    }
  }
  return sent == text.size();
}

void Remote::drain() {
  char buf[65536];
  pending_.clear();
  while (fd_ >= 0 && read(fd_, buf, sizeof buf) > 0) {
  }
}

bool Remote::answered(const std::string& prefix) {
  char buf[4096];
  ssize_t n;
  while (fd_ >= 0 && (n = read(fd_, buf, sizeof buf)) > 0) pending_.append(buf, size_t(n));
  for (size_t start = 0, end; (end = pending_.find('\n', start)) != std::string::npos;
       start = end + 1) {
    if (pending_.compare(start, prefix.size(), prefix) == 0) {
      pending_.erase(0, end + 1);
      return true;
    }
  }
  return false;
}

bool parseOptions(int argc, char** argv, DeskOptions& desk, std::vector<NumberOption> numbers,
                  const char* textOption, std::vector<std::string>* texts) {
  numbers.push_back({"--ola-port", &desk.olaPort});
  numbers.push_back({"--universe", &desk.universe});
  numbers.push_back({"--listen", &desk.listen});
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (a == "--") {
      desk.desk.assign(argv + i + 1, argv + argc);
      break;
    }
    if (i + 1 >= argc) return false;
    if (textOption && texts && a == textOption) {
      texts->push_back(argv[++i]);
      continue;
    }
    auto n = std::find_if(numbers.begin(), numbers.end(),
                          [&](const NumberOption& o) { return a == o.name; });
    if (n == numbers.end()) return false;
    *n->value = std::atoi(argv[++i]);
  }
  return !desk.desk.empty();
}

ProcStat readProc(pid_t pid) {
  ProcStat s;
  std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
  std::string text((std::istreambuf_iterator<char>(stat)), std::istreambuf_iterator<char>());
  const size_t close = text.rfind(')');
  if (close != std::string::npos) {
    std::istringstream rest(text.substr(close + 2));
    std::string field;
    unsigned long utime = 0, stime = 0;
    for (int i = 3; i <= 15 && rest >> field; ++i) {
      if (i == 14) utime = std::stoul(field);
      if (i == 15) stime = std::stoul(field);
    }
    s.cpuSeconds = double(utime + stime) / double(sysconf(_SC_CLK_TCK));
  }
  std::ifstream status("/proc/" + std::to_string(pid) + "/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind("VmRSS:", 0) == 0) s.rssKb = std::atol(line.c_str() + 6);
    if (line.rfind("VmHWM:", 0) == 0) s.hwmKb = std::atol(line.c_str() + 6);
  }
  return s;
}

pid_t xServerPid() {
  const char* display = std::getenv("DISPLAY");
  if (!display) return 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string name = entry.path().filename();
    if (name.find_first_not_of("0123456789") != std::string::npos) continue;
    std::ifstream cmdline(entry.path() / "cmdline");
    std::vector<std::string> args;
    for (std::string a; std::getline(cmdline, a, '\0');) args.push_back(a);
    if (args.empty() || args[0].find("Xvfb") == std::string::npos) continue;
    if (std::find(args.begin(), args.end(), display) != args.end()) return pid_t(std::stol(name));
  }
  return 0;
}

double percentile(std::vector<double> v, double p) {
  if (v.empty()) return 0;
  std::sort(v.begin(), v.end());
  const size_t i = std::min(v.size() - 1, size_t(p / 100.0 * double(v.size() - 1) + 0.5));
  return v[i];
}

std::vector<double> intervalsOf(const std::vector<Frame>& frames) {
  std::vector<double> out;
  for (size_t i = 1; i < frames.size(); ++i) out.push_back(msSince(frames[i - 1].at, frames[i].at));
  return out;
}

double largest(const std::vector<double>& v) {
  return v.empty() ? 0 : *std::max_element(v.begin(), v.end());
}

pid_t launch(std::vector<char*> argv) {
  argv.push_back(nullptr);
  const pid_t pid = fork();
  if (pid == 0) {
    execv(argv[0], argv.data());
    std::perror("exec");
    _exit(127);
  }
  return pid;
}

void terminate(pid_t pid) {
  kill(pid, SIGTERM);
  waitpid(pid, nullptr, 0);
}

}  // namespace probe
