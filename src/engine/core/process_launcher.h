#pragma once
// Starting an outside program without waiting for it, as a cue can ask.
// The desk and the headless console start real processes; tests record the
// command lines.

#include <string>

namespace q {

class ProcessLauncher {
 public:
  virtual ~ProcessLauncher() = default;
  // Starts the command line (a program and its arguments, double quotes
  // grouping words) and returns at once. False, with why, when it could not start.
  virtual bool start(const std::string& commandLine, std::string& why) = 0;
};

// Used when the host gives no launcher: refuses every start.
class NoProcessLauncher : public ProcessLauncher {
 public:
  bool start(const std::string&, std::string& why) override {
    why = "starting programs is not available here";
    return false;
  }
};

}  // namespace q
