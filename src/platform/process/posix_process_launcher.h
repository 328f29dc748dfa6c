#pragma once
// Starts the programs that cues name with posix_spawnp, without waiting.
// Children that have ended are reaped at the next start and at the end.

#include <string>
#include <vector>

#include <sys/types.h>

#include "engine/core/process_launcher.h"

namespace q {

class PosixProcessLauncher : public ProcessLauncher {
 public:
  ~PosixProcessLauncher() override;
  bool start(const std::string& commandLine, std::string& why) override;

 private:
  void reapEnded();
  std::vector<pid_t> children_;
};

// The words of a command line: blanks separate them, double quotes group them.
std::vector<std::string> splitCommandLine(const std::string& commandLine);

}  // namespace q
