// Where an installed console keeps its settings: ~/.config/quintara (or
// $XDG_CONFIG_HOME/quintara), created on first use; beside the executable
// only when a portable-install marker is there, never merely because the
// executable's folder is writable (a build tree is).

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "platform/program_folder.h"

namespace q::test {
namespace {

namespace fs = std::filesystem;

class ProgramFolder : public ::testing::Test {
 protected:
  void SetUp() override {
    root_ = fs::temp_directory_path() / ("quintara-folder-" + std::to_string(::getpid()));
    fs::create_directories(exeDir());
    keep("XDG_CONFIG_HOME", xdg_);
    keep("HOME", home_);
  }
  void TearDown() override {
    restore("XDG_CONFIG_HOME", xdg_);
    restore("HOME", home_);
    fs::remove_all(root_);
  }
  // A program folder of the test's own, so that tests running side by side
  // never see each other's marker.
  fs::path exeDir() const { return root_ / "bin"; }
  fs::path marker() const { return exeDir() / kPortableMarker; }
  static void keep(const char* name, std::optional<std::string>& into) {
    if (const char* v = std::getenv(name)) into = v;
  }
  static void restore(const char* name, const std::optional<std::string>& value) {
    if (value)
      ::setenv(name, value->c_str(), 1);
    else
      ::unsetenv(name);
  }

  fs::path root_;
  std::optional<std::string> xdg_, home_;
};

TEST_F(ProgramFolder, AnInstalledConsoleKeepsItsSettingsInTheUsersConfigFolder) {
  ::setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
  const fs::path folder = programFolder();
  EXPECT_EQ(folder, root_ / "config" / "quintara");
  EXPECT_TRUE(fs::is_directory(folder));
  // The test program's own folder is writable, and still not used.
  EXPECT_NE(folder, fs::path(executableDir()));
}

TEST_F(ProgramFolder, WithoutXdgConfigHomeTheFolderIsUnderHome) {
  ::unsetenv("XDG_CONFIG_HOME");
  ::setenv("HOME", root_.c_str(), 1);
  EXPECT_EQ(fs::path(programFolder()), root_ / ".config" / "quintara");
  ::setenv("XDG_CONFIG_HOME", "", 1);  // set but empty counts as unset
  EXPECT_EQ(fs::path(programFolder()), root_ / ".config" / "quintara");
}

TEST_F(ProgramFolder, APortableMarkerKeepsEverythingBesideTheProgram) {
  ::setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
  std::ofstream(marker()) << "";
  EXPECT_EQ(fs::path(programFolderBeside(exeDir())), exeDir());
  EXPECT_FALSE(fs::exists(root_ / "config" / "quintara"));
  fs::remove(marker());
  EXPECT_EQ(fs::path(programFolderBeside(exeDir())), root_ / "config" / "quintara");
}

}  // namespace
}  // namespace q::test
