#include "support/console_fixture.h"

#include <unistd.h>
#include <atomic>

namespace q::test {

ConsoleFixture::ConsoleFixture() {
  static std::atomic<int> n{0};
  home_ = std::filesystem::temp_directory_path() /
          ("quintara-test-" + std::to_string(getpid()) + "-" + std::to_string(n++));
  std::filesystem::create_directories(home_);
}

ConsoleFixture::~ConsoleFixture() {
  console_.reset();
  std::error_code ec;
  std::filesystem::remove_all(home_, ec);
}

Console& ConsoleFixture::console() {
  if (!console_) {
    ConsoleHost host;
    host.clock = &clock;
    host.dialogs = &dialogs;
    host.homeDir = home_.string();
    host.commandLine = commandLine;
    host.devices = devices;
    host.processes = processes;
    host.printer = printer;
    host.players[0] = players[0];
    host.players[1] = players[1];
    console_ = std::make_unique<Console>(host);
  }
  return *console_;
}

Control& ConsoleFixture::control(const std::string& name) {
  Control* c = console().registry.find(name);
  if (!c) throw std::runtime_error("no control " + name);
  return *c;
}

std::string ConsoleFixture::get(const std::string& name) {
  if (auto val = console().names.get(name)) return *val;
  return control(name).value();
}

}  // namespace q::test
