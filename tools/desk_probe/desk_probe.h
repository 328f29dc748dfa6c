#pragma once
// What the desk measuring tools share: a listener on an OLA universe that
// timestamps every frame the desk hands olad, the desk's remote port, and the
// process figures of /proc.

#include <ola/DmxBuffer.h>
#include <ola/client/OlaClient.h>
#include <ola/io/SelectServer.h>
#include <ola/network/TCPSocket.h>
#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace probe {

using Clock = std::chrono::steady_clock;
double msSince(Clock::time_point a, Clock::time_point b);

struct Frame {
  Clock::time_point at;
  uint8_t slot9 = 0;  // channel 9: the demo show's test channel
  uint8_t peak = 0;   // the highest level of the frame: 0 is a dark frame
};

// Listens to one universe of an olad on loopback.
class OlaProbe {
 public:
  // False when no olad answers on the port.
  bool connect(int olaPort, unsigned universe);
  // Runs the OLA loop until stop() or ms pass; false on time-out.
  bool runFor(unsigned ms);
  void stop() { ss_.Terminate(); }
  // Calls f every ms while the loop runs, until f returns false or cancel().
  int every(unsigned ms, std::function<bool()> f);
  void cancel(int id);
  ola::io::SelectServer& loop() { return ss_; }

  std::vector<Frame> frames;
  bool recording = true;
  // Heard with every frame, after it was recorded.
  std::function<void(const Frame&)> onFrame;

 private:
  void onDmx(const ola::client::DMXMetadata&, const ola::DmxBuffer& data);
  void timeOut(bool* timedOut);
  bool tick(size_t id);

  ola::io::SelectServer ss_;
  std::unique_ptr<ola::network::TCPSocket> socket_;
  std::unique_ptr<ola::client::OlaClient> client_;
  struct Repeating {
    std::function<bool()> f;
    ola::thread::timeout_id id;
  };
  std::vector<Repeating> repeating_;
};

// A connection to the desk's remote port; lines go out whole.
class Remote {
 public:
  Remote() = default;
  Remote(const Remote&) = delete;
  Remote& operator=(const Remote&) = delete;
  ~Remote() { close(); }
  // Tries for about five seconds.
  bool open(int port);
  void close();
  bool send(const std::string& line);
  // Reads and drops whatever the desk has answered so far.
  void drain();
  // Reads what the desk answered so far; true once a line beginning with
  // prefix has come (what came before it is dropped with it).
  bool answered(const std::string& prefix);
  bool isOpen() const { return fd_ >= 0; }

 private:
  int fd_ = -1;
  std::string pending_;
};

// Where a measuring tool finds olad and the desk, and the desk's own command
// line (everything after "--").
struct DeskOptions {
  int olaPort = 9010;
  int universe = 1;
  int listen = 9000;
  std::vector<char*> desk;
};
// A number option of a tool: --name N.
struct NumberOption {
  const char* name;
  int* value;
};
// Reads --ola-port, --universe, --listen, the tool's own number options, a
// repeatable text option if the tool has one, and the desk's command line.
// False on a word it does not know or without a desk to start.
bool parseOptions(int argc, char** argv, DeskOptions& desk, std::vector<NumberOption> numbers,
                  const char* textOption = nullptr, std::vector<std::string>* texts = nullptr);

struct ProcStat {
  double cpuSeconds = 0;
  long rssKb = 0, hwmKb = 0;
};
ProcStat readProc(pid_t pid);
// The X server serving DISPLAY (an Xvfb started by xvfb-run), or 0.
pid_t xServerPid();

double percentile(std::vector<double> v, double p);
std::vector<double> intervalsOf(const std::vector<Frame>& frames);
double largest(const std::vector<double>& v);

// Starts the desk; the child's pid.
pid_t launch(std::vector<char*> argv);
void terminate(pid_t pid);

}  // namespace probe
