// desk_bench: measures the desk as an operator's machine runs it, with its
// output going through OLA. It listens to the universe on olad, starts the
// desk, and reports:
//   - the first frame on the wire after launch,
//   - CPU time and resident memory over an idle stretch with chaser 1
//     running, and how many frames went to olad meanwhile,
//   - the interval between frames while a fader moves (median, 99th
//     percentile, largest gap): every output tick then has a new frame,
//   - how long a command on the remote port takes to reach the wire.
// While nothing changes the desk hands olad the same frame only about once a
// second, unless it runs with ContinuousOutput=1; run.sh measures either way.
//
//   desk_bench --ola-port P [--universe U] [--listen PORT] [--idle S]
//              [--move-seconds S] [--moves N] [--before COMMAND]... -- QUINTARA ARGS...
//
// Each --before command goes to the remote port once the desk listens,
// before anything is measured: to open a window (`click mnuMatrix`).
//
// The desk must be set up to send to universe U of that olad every 25 ms
// (Interface=10, DMXRate=25), to listen on PORT, and to have strip 2 (Fader(4))
// holding channel 9 at full, as the demo show does. tools/desk_bench/run.sh
// prepares all of that under Xvfb.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ola/Callback.h>
#include <ola/DmxBuffer.h>
#include <ola/client/OlaClient.h>
#include <ola/io/SelectServer.h>
#include <ola/network/IPV4Address.h>
#include <ola/network/SocketAddress.h>
#include <ola/network/TCPSocket.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
double msSince(Clock::time_point a, Clock::time_point b) {
  return std::chrono::duration<double, std::milli>(b - a).count();
}

struct Options {
  int olaPort = 9010;
  unsigned universe = 1;
  int listen = 9000;
  int idleSeconds = 60;
  int moveSeconds = 10;
  int moves = 200;
  std::vector<std::string> before;
  std::vector<char*> desk;
};

struct Frame {
  Clock::time_point at;
  uint8_t slot9 = 0;
};

struct Bench {
  ola::io::SelectServer ss;
  std::unique_ptr<ola::network::TCPSocket> socket;
  std::unique_ptr<ola::client::OlaClient> client;
  std::vector<Frame> frames;
  bool recording = true;
  // Wait for a level on channel 9; set when seen.
  int awaiting = -1;
  Clock::time_point seenAt;

  void onDmx(const ola::client::DMXMetadata&, const ola::DmxBuffer& data) {
    const auto now = Clock::now();
    const uint8_t v = data.Size() > 8 ? data.Get(8) : 0;
    if (recording) frames.push_back({now, v});
    if (awaiting >= 0 && v == awaiting) {
      awaiting = -1;
      seenAt = now;
      ss.Terminate();
    }
  }

  // The desk's remote port.
  int remote = -1;
  int faderLevel = 0;
  bool command(const std::string& line) {
    const std::string text = line + "\n";
    return write(remote, text.data(), text.size()) == ssize_t(text.size());
  }
  bool moveFader() {
    faderLevel = (faderLevel + 3) % 256;
    return command("set Fader(4) " + std::to_string(faderLevel));
  }

  // Runs the OLA loop until the callback stops it or ms pass; false on time-out.
  bool runFor(unsigned ms) {
    bool timedOut = false;
    auto* t = ss.RegisterSingleTimeout(ms, ola::NewSingleCallback(this, &Bench::stop, &timedOut));
    ss.Run();
    if (!timedOut) ss.RemoveTimeout(t);
    return !timedOut;
  }
  void stop(bool* timedOut) {
    *timedOut = true;
    ss.Terminate();
  }
};

struct ProcStat {
  double cpuSeconds = 0;
  long rssKb = 0, hwmKb = 0;
};

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

int connectPort(int port) {
  for (int tries = 0; tries < 100; ++tries) {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(uint16_t(port));
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0) return fd;
    close(fd);
    usleep(50000);
  }
  return -1;
}

bool parse(int argc, char** argv, Options& o) {
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    auto next = [&]() { return i + 1 < argc ? std::atoi(argv[++i]) : 0; };
    if (a == "--ola-port")
      o.olaPort = next();
    else if (a == "--universe")
      o.universe = unsigned(next());
    else if (a == "--listen")
      o.listen = next();
    else if (a == "--idle")
      o.idleSeconds = next();
    else if (a == "--move-seconds")
      o.moveSeconds = next();
    else if (a == "--moves")
      o.moves = next();
    else if (a == "--before" && i + 1 < argc)
      o.before.push_back(argv[++i]);
    else if (a == "--") {
      for (++i; i < argc; ++i) o.desk.push_back(argv[i]);
    } else
      return false;
  }
  o.desk.push_back(nullptr);
  return o.desk.size() > 1;
}

void verdict(const char* what, double value, double limit, const char* unit) {
  std::printf("%-34s %9.2f %-4s (target <= %.2f)  %s\n", what, value, unit, limit,
              value <= limit ? "ok" : "OVER");
}

}  // namespace

int main(int argc, char** argv) {
  Options o;
  if (!parse(argc, argv, o)) {
    std::fprintf(stderr,
                 "usage: desk_bench --ola-port P [--universe U] [--listen PORT] "
                 "[--idle S] [--move-seconds S] [--moves N] [--before COMMAND]... "
                 "-- QUINTARA ARGS...\n");
    return 2;
  }
  Bench b;
  b.socket.reset(ola::network::TCPSocket::Connect(
      ola::network::IPV4SocketAddress(ola::network::IPV4Address::Loopback(), uint16_t(o.olaPort))));
  if (!b.socket) {
    std::fprintf(stderr, "desk_bench: no olad on port %d\n", o.olaPort);
    return 1;
  }
  b.client = std::make_unique<ola::client::OlaClient>(b.socket.get());
  if (!b.client->Setup()) return 1;
  b.ss.AddReadDescriptor(b.socket.get());
  b.client->SetDMXCallback(ola::NewCallback(&b, &Bench::onDmx));
  b.client->RegisterUniverse(o.universe, ola::client::REGISTER, nullptr);
  b.runFor(200);  // the registration goes through before the desk starts
  b.frames.clear();

  const auto launched = Clock::now();
  const pid_t pid = fork();
  if (pid == 0) {
    execv(o.desk[0], o.desk.data());
    std::perror("desk_bench: exec");
    _exit(127);
  }
  // First frame.
  b.runFor(5000);
  while (b.frames.empty() && msSince(launched, Clock::now()) < 5000) b.runFor(50);
  if (b.frames.empty()) {
    std::fprintf(stderr, "desk_bench: no frame reached olad in 5 s\n");
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
    return 1;
  }
  const double firstFrame = msSince(launched, b.frames.front().at);

  const int fd = connectPort(o.listen);
  if (fd < 0) {
    std::fprintf(stderr, "desk_bench: the desk does not listen on %d\n", o.listen);
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
    return 1;
  }
  b.remote = fd;
  for (const std::string& line : o.before) b.command(line);

  // Idle with chaser 1 running: nobody touches the desk.
  b.command("press FXbutton(0)");
  b.runFor(2000);  // start-up settles
  b.frames.clear();
  const ProcStat before = readProc(pid);
  const auto idleStart = Clock::now();
  b.runFor(unsigned(o.idleSeconds) * 1000);
  const ProcStat after = readProc(pid);
  const double idleMinutes = msSince(idleStart, Clock::now()) / 60000.0;
  const std::vector<double> idleIntervals = intervalsOf(b.frames);
  const size_t idleFrames = b.frames.size();

  // A fader in motion, as a hand or a MIDI fader moves it: a new level every
  // 10 ms, so every output tick has a new frame to send.
  b.frames.clear();
  auto* mover = b.ss.RegisterRepeatingTimeout(10, ola::NewCallback(&b, &Bench::moveFader));
  b.runFor(unsigned(o.moveSeconds) * 1000);
  b.ss.RemoveTimeout(mover);
  const std::vector<double> moving = intervalsOf(b.frames);

  // Command to wire: a strip goes up and down through the remote port.
  b.recording = false;
  std::vector<double> latencies;
  for (int i = 0; i < o.moves; ++i) {
    const bool up = i % 2 == 0;
    b.awaiting = up ? 255 : 0;
    const auto sent = Clock::now();
    if (!b.command(up ? "set Fader(4) 0" : "set Fader(4) 255")) break;
    if (!b.runFor(1500)) {
      std::fprintf(stderr, "desk_bench: move %d never reached the wire\n", i);
      continue;
    }
    latencies.push_back(msSince(sent, b.seenAt));
    b.runFor(7 + unsigned(i * 13) % 23);  // off the frame clock, so every phase is met
  }
  close(fd);
  kill(pid, SIGTERM);
  waitpid(pid, nullptr, 0);

  const double cpuPerMinute = (after.cpuSeconds - before.cpuSeconds) / idleMinutes;
  std::vector<double> deviation;
  for (double d : moving) deviation.push_back(std::abs(d - 25));
  std::printf("idle %.0f s with chaser 1 running: %zu frames to olad\n", idleMinutes * 60,
              idleFrames);
  verdict("first frame after launch", firstFrame, 150, "ms");
  verdict("CPU per minute, idle", cpuPerMinute, 0.3, "s");
  verdict("resident memory (peak)", double(after.hwmKb) / 1024.0, 60, "MB");
  std::printf("%-34s %9.2f ms\n", "idle: largest gap between frames", largest(idleIntervals));
  std::printf("fader moving %d s: %zu frames to olad\n", o.moveSeconds, moving.size() + 1);
  std::printf("%-34s %9.2f ms\n", "frame interval, median", percentile(moving, 50));
  verdict("frame interval |d-25|, p99", percentile(deviation, 99), 1, "ms");
  verdict("largest frame interval", largest(moving), 30, "ms");
  std::printf("%-34s %9.2f ms\n", "command to wire, median", percentile(latencies, 50));
  verdict("command to wire, p99", percentile(latencies, 99), 30, "ms");
  return 0;
}
