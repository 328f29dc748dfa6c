#include "platform/process/posix_process_launcher.h"

#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstring>

extern char** environ;

namespace q {

std::vector<std::string> splitCommandLine(const std::string& commandLine) {
  std::vector<std::string> words;
  std::string word;
  bool inWord = false, quoted = false;
  for (char ch : commandLine) {
    if (ch == '"') {
      quoted = !quoted;
      inWord = true;
    } else if ((ch == ' ' || ch == '\t') && !quoted) {
      if (inWord) words.push_back(word);
      word.clear();
      inWord = false;
    } else {
      word += ch;
      inWord = true;
    }
  }
  if (inWord) words.push_back(word);
  return words;
}

PosixProcessLauncher::~PosixProcessLauncher() { reapEnded(); }

void PosixProcessLauncher::reapEnded() {
  children_.erase(std::remove_if(children_.begin(), children_.end(),
                                 [](pid_t pid) { return waitpid(pid, nullptr, WNOHANG) != 0; }),
                  children_.end());
}

bool PosixProcessLauncher::start(const std::string& commandLine, std::string& why) {
  reapEnded();
  const std::vector<std::string> words = splitCommandLine(commandLine);
  if (words.empty()) {
    why = "no program named";
    return false;
  }
  std::vector<char*> argv;
  for (const auto& w : words) argv.push_back(const_cast<char*>(w.c_str()));
  argv.push_back(nullptr);

  // The program starts in a session of its own and with default signals, so
  // that it neither shares the console's terminal nor inherits its handlers.
  posix_spawnattr_t attr;
  posix_spawnattr_init(&attr);
  sigset_t all;
  sigfillset(&all);
  posix_spawnattr_setsigdefault(&attr, &all);
  sigset_t none;
  sigemptyset(&none);
  posix_spawnattr_setsigmask(&attr, &none);
  posix_spawnattr_setflags(&attr,
                           POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);
  pid_t pid = 0;
  const int err = posix_spawnp(&pid, argv[0], nullptr, &attr, argv.data(), environ);
  posix_spawnattr_destroy(&attr);
  if (err != 0) {
    why = std::strerror(err);
    return false;
  }
  children_.push_back(pid);
  return true;
}

}  // namespace q
