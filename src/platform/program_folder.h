#pragma once
// "The program's own folder": where the settings file, the clipboard files and
// the skins live. The executable's folder when it is writable (a portable
// install, the build tree), otherwise $XDG_CONFIG_HOME/quintara.

#include <string>

namespace q {

std::string executableDir();
std::string programFolder();
// Where the shipped skins are when the program's folder has none.
std::string sharedDataDir();

}  // namespace q
