#pragma once
// Quintara.INI in the program's own folder: the machine-level settings,
// read at start and written at exit. Show content never goes here.

#include <string>

#include "engine/core/ini_file.h"

namespace q {

class Console;

class Settings {
 public:
  explicit Settings(Console& c);

  IniFile& ini() { return ini_; }
  const std::string& path() const { return ini_.path(); }

  // The start-up read; with useDefaults ("-default") the Setup and Midi
  // sections are not read and the built-in values apply.
  void readAtStart(bool useDefaults);
  // The exit write: every key the console writes at exit, from the current state.
  void writeAtExit();
  // Fills the recent-files menu from Snap0..Snap4 (read whatever "-default" says).
  void readRecentFiles();

  // Where the players' sound goes ([Setup] AudioSink), as the players take it.
  std::string audioSink;
  // The background picture of the main window.
  std::string skinFile;
  std::string defaultSkinFile() const;

  // An integer setting; a value that is no number reads as the default.
  int readInt(const std::string& section, const std::string& key, int defaultValue) const;

 private:
  void applyDefaults();
  Console& c_;
  IniFile ini_;
};

}  // namespace q
