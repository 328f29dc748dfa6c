#include "platform/runtime_dir.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace q {

void ensureRuntimeDir() {
  if (const char* dir = std::getenv("XDG_RUNTIME_DIR"); dir && *dir) return;
  const std::string dir = "/tmp/runtime-" + std::to_string(getuid());
  ::mkdir(dir.c_str(), 0700);
  struct stat st {};
  // Someone else's folder, or one others can read, is no private folder:
  // then Qt is left to say so itself.
  if (::lstat(dir.c_str(), &st) != 0 || !S_ISDIR(st.st_mode) || st.st_uid != getuid() ||
      (st.st_mode & 0077))
    return;
  setenv("XDG_RUNTIME_DIR", dir.c_str(), 1);
}

}  // namespace q
