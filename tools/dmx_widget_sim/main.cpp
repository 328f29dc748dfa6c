// dmx_widget_sim: a simulated DMX USB PRO on a pseudo-terminal, for trying
// the console without the widget. Point the console's WidgetPort setting at
// the path it prints (or at --link PATH), choose "Enttec DMXUSB PRO", and
// watch the frames arrive.
//
//   dmx_widget_sim [--silent] [--late MS] [--link PATH]

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>

#include "widget_sim.h"

namespace {
volatile std::sig_atomic_t stopRequested = 0;
void onSignal(int) { stopRequested = 1; }
}  // namespace

int main(int argc, char** argv) {
  q::sim::WidgetSim::Options options;
  std::string link;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--silent") == 0) {
      options.silent = true;
    } else if (std::strcmp(argv[i], "--late") == 0 && i + 1 < argc) {
      options.replyDelayMs = std::atoi(argv[++i]);
    } else if (std::strcmp(argv[i], "--link") == 0 && i + 1 < argc) {
      link = argv[++i];
    } else {
      std::fprintf(stderr, "usage: dmx_widget_sim [--silent] [--late MS] [--link PATH]\n");
      return 2;
    }
  }
  q::sim::WidgetSim sim(options);
  if (!sim.start()) {
    std::perror("dmx_widget_sim: no pseudo-terminal");
    return 1;
  }
  if (!link.empty()) {
    ::unlink(link.c_str());
    if (::symlink(sim.path().c_str(), link.c_str()) != 0) std::perror("dmx_widget_sim: --link");
  }
  std::printf("%s\n", sim.path().c_str());
  std::fflush(stdout);
  std::signal(SIGINT, onSignal);
  std::signal(SIGTERM, onSignal);
  size_t shown = 0;
  while (!stopRequested) {
    ::usleep(200000);
    const auto frames = sim.frames();
    for (; shown < frames.size(); ++shown) {
      const auto& d = frames[shown].data;
      std::printf("frame %zu:", shown + 1);
      for (size_t k = 1; k < d.size() && k <= 16; ++k) std::printf(" %u", d[k]);
      std::printf("%s\n", d.size() > 17 ? " ..." : "");
    }
    std::fflush(stdout);
  }
  if (!link.empty()) ::unlink(link.c_str());
  return 0;
}
