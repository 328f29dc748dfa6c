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
};

class Console {
  // Declared first: everything below is built from the host.
  std::unique_ptr<Dialogs> fallbackDialogs_;
  ConsoleHost host_;

 public:
  explicit Console(ConsoleHost host);
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  const ConsoleHost& host() const { return host_; }
  Dialogs& dialogs() { return *host_.dialogs; }
  const std::string& homeDir() const { return host_.homeDir; }

  Variables v;
  Registry registry;
  Scheduler scheduler;
  MainWindow form1;
};

}  // namespace q
