#pragma once
// The console: one object that owns the shared state, the timers, the main
// window and every subsystem for the life of the process. The desk, the
// headless runner and the tests each build one, giving it the outside world
// through the interfaces in ConsoleHost.

#include <memory>
#include <string>

#include "engine/controls/registry.h"
#include "engine/core/dialogs.h"
#include "engine/core/main_window.h"
#include "engine/core/named_values.h"
#include "engine/media/media_player.h"
#include "engine/core/scheduler.h"
#include "engine/core/variables.h"

namespace q {

// The outside world as the console sees it. Every pointer may be null: the
// console then uses a silent stand-in, so a missing device never stops it.
struct ConsoleHost {
  Clock* clock = nullptr;
  Dialogs* dialogs = nullptr;
  // The program's own folder: settings, clipboard files, skins.
  std::string homeDir;
  // The whole command line, searched for "-nosplash" and "-default".
  std::string commandLine;
  // The two media players WMP(0), WMP(1).
  MediaPlayer* players[2] = {nullptr, nullptr};
};

class Console {
  // Declared first: everything below is built from the host.
  std::unique_ptr<Dialogs> fallbackDialogs_;
  std::unique_ptr<MediaPlayer> fallbackPlayers_[2];
  ConsoleHost host_;

 public:
  explicit Console(ConsoleHost host);
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  const ConsoleHost& host() const { return host_; }
  Dialogs& dialogs() { return *host_.dialogs; }
  const std::string& homeDir() const { return host_.homeDir; }

  MediaPlayer& WMP(int k) { return *host_.players[k & 1]; }

  Variables v;
  Registry registry;
  NamedValues names;
  Scheduler scheduler;
  MainWindow form1;
  // Subsystems, each owning the controls of its own panel, follow here.
};

}  // namespace q
