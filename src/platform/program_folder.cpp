#include "platform/program_folder.h"

#include <unistd.h>

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

std::string programFolder() {
  std::string dir = executableDir();
  if (access(dir.c_str(), W_OK) == 0) return dir;
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  const char* home = std::getenv("HOME");
  fs::path base = xdg && *xdg ? fs::path(xdg) : fs::path(home ? home : "/tmp") / ".config";
  fs::path folder = base / "quintara";
  std::error_code ec;
  fs::create_directories(folder, ec);
  return folder.string();
}

std::string sharedDataDir() {
  return (fs::path(executableDir()).parent_path() / "share" / "quintara").string();
}

}  // namespace q
