// The headless console's process loop: builds the console, starts it, feeds
// it lines, and between lines lets its timers run. All console logic is in
// the Interpreter and the engine; this file only moves lines and time.

#include "headless/runner.h"

#include <poll.h>

#include <signal.h>
#include <unistd.h>

#include <fcntl.h>

#include <cerrno>
#include <climits>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <system_error>
#include <thread>
#include <vector>

#include "engine/core/console.h"
#include "engine/core/scripted_dialogs.h"
#include "headless/interpreter.h"
#include "headless/line_splitter.h"
#include "headless/options.h"
#include "platform/dmx_devices.h"
#include "platform/media/gst_media_player.h"
#include "platform/midi/rtmidi_ports.h"
#include "platform/missing_services.h"
#include "platform/osc/lo_osc_port.h"
#include "platform/process/posix_process_launcher.h"
#include "platform/program_folder.h"

namespace q {

namespace {

volatile sig_atomic_t stopRequested = 0;

// Ctrl-C or a service manager's stop ends the run like the end of input, so
// the settings are still written and the interface is stopped.
void installSignals() {
  struct sigaction sa {};
  sa.sa_handler = [](int) { stopRequested = 1; };
  sigemptyset(&sa.sa_mask);
  sigaction(SIGINT, &sa, nullptr);
  sigaction(SIGTERM, &sa, nullptr);
  // A reader that goes away must not take the console down with it.
  signal(SIGPIPE, SIG_IGN);
}

// What other threads hand to the console (MIDI input, the players' news):
// each makes its descriptor readable, and the console takes it on its own
// thread by pumping it.
struct Waker {
  int fd;
  std::function<void()> pump;
};

// Waits at most timeoutMs (-1: until something comes) for the wakers and one
// more descriptor; pumps those that are readable. True when `extra` is.
bool waitAndPump(const std::vector<Waker>& wakers, int extra, int timeoutMs) {
  std::vector<pollfd> p;
  p.push_back({extra, POLLIN, 0});
  for (const Waker& w : wakers) p.push_back({w.fd, POLLIN, 0});
  if (poll(p.data(), nfds_t(p.size()), timeoutMs) <= 0) return false;
  for (size_t i = 1; i < p.size(); ++i)
    if (p[i].revents & POLLIN) wakers[i - 1].pump();
  return p[0].revents & (POLLIN | POLLHUP | POLLERR);
}

// Standard input read as it comes, without blocking the timers.
class InputLines {
 public:
  // Waits at most timeoutMs (-1: until input or a signal) and takes what
  // arrived; the wakers are watched beside the input.
  void wait(int timeoutMs, const std::vector<Waker>& wakers) {
    if (!waitAndPump(wakers, STDIN_FILENO, timeoutMs)) return;
    char buf[4096];
    const ssize_t n = read(STDIN_FILENO, buf, sizeof buf);
    if (n > 0)
      lines_.feed(buf, size_t(n));
    else if (n == 0 || (errno != EINTR && errno != EAGAIN))
      lines_.finish();
  }
  LineSplitter::Got next(std::string& line) { return lines_.next(line); }
  bool ended() const { return lines_.ended(); }

 private:
  LineSplitter lines_{Interpreter::kMaxLineBytes};
};

// A long file read on a thread of its own on the real clock. The command that
// started it is still running: the next line is read only once it has ended,
// while the timers and the news go on meanwhile.
class PollBackgroundWork : public BackgroundWork {
 public:
  // Waits, the console running, until fd is readable; set once the loop exists.
  std::function<void(int fd)> waitFor;

  void run(const std::function<void()>& job) override {
    // The job's end is told through a pipe, closed however the job ends.
    struct Pipe {
      int ends[2] = {-1, -1};
      ~Pipe() {
        if (ends[0] >= 0) close(ends[0]);
        if (ends[1] >= 0) close(ends[1]);
      }
    } endPipe;
    if (!waitFor || pipe2(endPipe.ends, O_CLOEXEC) != 0) return job();
    runBeside(
        job,
        [&endPipe] {
          const char done = 1;
          while (write(endPipe.ends[1], &done, 1) < 0 && errno == EINTR) {
          }
        },
        [&] { waitFor(endPipe.ends[0]); });
  }
};

class Run {
 public:
  Run(Console& c, ScriptedDialogs& d, Interpreter& in, bool realTime, std::vector<Waker> wakers)
      : c_(c), dialogs_(d), in_(in), realTime_(realTime), wakers_(std::move(wakers)) {
    // `advance` on the real clock waits with the console running, news included.
    if (realTime_) in_.waitRealTime = [this](int64_t ms) { sleepRun(ms); };
  }

  // Runs the timers and the news until fd is readable.
  void runUntilReadable(int fd) {
    for (;;) {
      letTimeRun();
      if (waitAndPump(wakers_, fd, msToNextTick())) return;
    }
  }

  bool over() const { return c_.closed() || stopRequested; }

  // Runs what the splitter found: a line, or the error for one too long.
  // False when it found nothing.
  bool take(LineSplitter::Got got, const std::string& text) {
    if (got == LineSplitter::Got::Nothing) return false;
    letTimeRun();
    if (got == LineSplitter::Got::Line)
      in_.execute(text, ++lineNo_);
    else
      in_.lineTooLong(++lineNo_);
    // The boxes are printed as they open; a console that runs for weeks keeps no log of them.
    dialogs_.shown.clear();
    return true;
  }

  void script(std::istream& s) {
    LineSplitter lines(Interpreter::kMaxLineBytes);
    std::string text;
    char buf[65536];
    while (!over()) {
      if (take(lines.next(text), text)) continue;
      if (lines.ended()) break;
      s.read(buf, sizeof buf);
      lines.feed(buf, size_t(s.gcount()));
      if (!s) lines.finish();
    }
  }

  void standardInput() {
    InputLines input;
    std::string text;
    while (!over()) {
      if (take(input.next(text), text)) continue;
      if (input.ended()) break;
      letTimeRun();
      input.wait(msToNextTick(), wakers_);
    }
  }

 private:
  void letTimeRun() {
    if (!realTime_) return;
    waitAndPump(wakers_, -1, 0);
    c_.scheduler.runDue();
  }
  void sleepRun(int64_t ms) {
    const int64_t end = c_.scheduler.now() + ms;
    for (;;) {
      letTimeRun();
      const int64_t now = c_.scheduler.now();
      if (now >= end || over()) return;
      const int64_t next = c_.scheduler.nextDue();
      const int64_t until = next < 0 ? end : std::clamp(next, now, end);
      waitAndPump(wakers_, -1, int(until - now));
    }
  }
  // How long the loop may sleep: until the next tick, or for ever on a virtual clock.
  int msToNextTick() const {
    if (!realTime_) return -1;
    const int64_t due = c_.scheduler.nextDue();
    if (due < 0) return -1;
    return int(std::clamp<int64_t>(due - c_.scheduler.now(), 0, INT_MAX));
  }

  Console& c_;
  ScriptedDialogs& dialogs_;
  Interpreter& in_;
  bool realTime_;
  std::vector<Waker> wakers_;
  int lineNo_ = 0;
};

}  // namespace

int runHeadless(int argc, char** argv, Printer* printer) {
  const HeadlessOptions opt = parseHeadlessOptions(argc, argv);
  if (!opt.error.empty()) {
    std::cerr << "quintara: " << opt.error << "\n";
    return 1;
  }
  std::ifstream script;
  if (!opt.script.empty()) {
    script.open(opt.script, std::ios::binary);
    if (!script) {
      std::cerr << "quintara: cannot read the script " << opt.script << "\n";
      return 1;
    }
  }
  const std::string home = opt.home.empty() ? programFolder() : opt.home;
  std::error_code ec;
  std::filesystem::create_directories(home, ec);
  installSignals();

  VirtualClock virtualClock;
  SteadyClock steadyClock;
  ScriptedDialogs dialogs;
  ConsoleHost host;
  host.clock = opt.virtualClock ? static_cast<Clock*>(&virtualClock) : &steadyClock;
  host.dialogs = &dialogs;
  host.homeDir = home;
  host.commandLine = opt.commandLine;
  host.devices = &realDevices();
  PosixProcessLauncher processes;
  host.processes = &processes;
  host.printer = printer;
  PollBackgroundWork background;
  if (!opt.virtualClock) host.background = &background;
  // Real MIDI ports only on the real clock: a virtual-clock run must come out
  // the same every time, whatever a surface plugged into the machine sends.
  std::unique_ptr<RtMidiInPort> midiIn;
  std::unique_ptr<RtMidiOutPort> midiOut;
  // On the real clock the players play through GStreamer; on the virtual
  // clock they stay silent, so that every run comes out the same.
  std::unique_ptr<GstMediaPlayer> players[2];
  // OSC, like MIDI, only on the real clock.
  std::unique_ptr<LoOscPort> osc;
  std::vector<Waker> wakers;
  if (!opt.virtualClock) {
    midiIn = std::make_unique<RtMidiInPort>();
    midiOut = std::make_unique<RtMidiOutPort>();
    host.midiIn = midiIn.get();
    host.midiOut = midiOut.get();
    if (midiIn->wakeFd() >= 0) wakers.push_back({midiIn->wakeFd(), [&midiIn] { midiIn->pump(); }});
    osc = std::make_unique<LoOscPort>();
    host.osc = osc.get();
    if (osc->wakeFd() >= 0) wakers.push_back({osc->wakeFd(), [&osc] { osc->pump(); }});
    for (int k = 0; k < 2; ++k) {
      players[k] = std::make_unique<GstMediaPlayer>();
      host.players[k] = players[k].get();
      GstMediaPlayer* p = players[k].get();
      wakers.push_back({p->wakeFd(), [p] { p->pump(); }});
    }
  }
  if (!opt.virtualClock) {
    const ServicesFound found{midiIn->systemPresent(), soundOutputPresent()};
    for (const std::string& news : missingServiceNews(found))
      std::cerr << "quintara: " << news << "\n";
  }
  Console console(host);
  // An installed console's skins are beside its program: <prefix>/share/quintara.
  console.look.shippedSkinDirs.insert(console.look.shippedSkinDirs.begin(),
                                      sharedDataDir() + "/skins");
  // The interpreter exists before start-up, so boxes shown while starting are printed too.
  Interpreter interpreter(console, dialogs, opt.virtualClock ? &virtualClock : nullptr, std::cout);
  console.start();
  if (console.osc.failed()) std::cerr << "quintara: " << console.osc.status() << "\n";

  Run run(console, dialogs, interpreter, !opt.virtualClock, std::move(wakers));
  background.waitFor = [&run](int fd) { run.runUntilReadable(fd); };
  if (script.is_open())
    run.script(script);
  else
    run.standardInput();
  // The end of input closes the console without asking.
  if (!console.closed()) console.unload();
  std::cout.flush();
  return interpreter.errorCount() > 0 ? 1 : 0;
}

}  // namespace q
