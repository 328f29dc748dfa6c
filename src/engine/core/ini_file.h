#pragma once
// The settings file format: [Section] headers and key=value lines, matched
// without regard to case as the console has always read them. A read value
// is cut to its first 128 characters. A write rewrites that one key and keeps
// every other line of the file as it was; the file is replaced atomically.

#include <string>

namespace q {

class IniFile {
 public:
  explicit IniFile(std::string path) : path_(std::move(path)) {}
  const std::string& path() const { return path_; }

  std::string read(const std::string& section, const std::string& key,
                   const std::string& defaultValue) const;
  // False when the file could not be written (the old file is then untouched).
  bool write(const std::string& section, const std::string& key, const std::string& value);

  static constexpr size_t kReadLimit = 128;

 private:
  std::string path_;
};

// Writes text to path through a temporary file in the same folder and a rename,
// so a crash or a full disk never leaves half a file. False on failure.
bool writeFileAtomically(const std::string& path, const std::string& text);

}  // namespace q
