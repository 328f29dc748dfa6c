#pragma once
// "The program's own folder": where the settings file, the clipboard files and
// the skins live. An installed console keeps them in $XDG_CONFIG_HOME/quintara
// (~/.config/quintara); a portable install keeps them beside the executable,
// and says so with a marker file there. --home overrides both.

#include <string>

namespace q {

// The file whose presence beside the executable makes the install portable.
inline constexpr const char* kPortableMarker = "quintara.portable";

std::string executableDir();
// The program's folder by the rule above, created if missing. The
// environment is read afresh at every call.
std::string programFolder();
// The same rule for a program in exeDir.
std::string programFolderBeside(const std::string& exeDir);
// $XDG_CONFIG_HOME/quintara, or ~/.config/quintara.
std::string userConfigFolder();
// Where the shipped skins and the demo show are: <prefix>/share/quintara.
std::string sharedDataDir();

}  // namespace q
