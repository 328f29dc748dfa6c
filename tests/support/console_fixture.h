#pragma once
// A console on a virtual clock with scripted dialogs and a private program
// folder, for engine tests: advance() moves time and fires the due ticks.

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "engine/core/console.h"
#include "engine/core/scripted_dialogs.h"

namespace q::test {

class ConsoleFixture : public ::testing::Test {
 protected:
  ConsoleFixture();
  ~ConsoleFixture() override;

  // Builds the console; tests that need a settings file write it before calling this.
  Console& console();
  void advance(int64_t ms) { console().scheduler.advance(clock, ms); }
  Variables& v() { return console().v; }
  MainWindow& form1() { return console().form1; }
  Control& control(const std::string& name);
  std::string get(const std::string& name);  // a named value or a control's value
  std::string home() const { return home_.string(); }
  std::string path(const std::string& file) const { return (home_ / file).string(); }

  VirtualClock clock;
  ScriptedDialogs dialogs;
  // Players handed to the console as WMP(0), WMP(1); null for the silent ones.
  MediaPlayer* players[2] = {nullptr, nullptr};
  std::string commandLine = "quintara";
  // The output adapters the console finds; null finds none.
  DeviceFactory* devices = nullptr;
  // Starts the programs cues name; null refuses every start.
  ProcessLauncher* processes = nullptr;
  // The printer of the cue list; null has none.
  Printer* printer = nullptr;

 private:
  std::filesystem::path home_;
  std::unique_ptr<Console> console_;
};

}  // namespace q::test
