#include "platform/program_folder.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace q {

std::string executableDir() {
  std::error_code ec;
  fs::path exe = fs::read_symlink("/proc/self/exe", ec);
  if (ec) return fs::current_path(ec).string();
  return exe.parent_path().string();
}

std::string userConfigFolder() {
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  const char* home = std::getenv("HOME");
  const fs::path base =
      xdg && *xdg ? fs::path(xdg) : fs::path(home && *home ? home : "/tmp") / ".config";
  return (base / "quintara").string();
}

std::string programFolder() { return programFolderBeside(executableDir()); }

std::string programFolderBeside(const std::string& exeDir) {
  const fs::path exe = exeDir;
  std::error_code ec;
  // A folder that merely happens to be writable (a build tree, a home
  // folder's bin) is no reason to scatter settings beside the program.
  if (fs::exists(exe / kPortableMarker, ec)) return exe.string();
  const std::string folder = userConfigFolder();
  fs::create_directories(folder, ec);
  return folder;
}

std::string sharedDataDir() {
  return (fs::path(executableDir()).parent_path() / "share" / "quintara").string();
}

}  // namespace q
