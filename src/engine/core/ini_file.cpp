#include "engine/core/ini_file.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace q {

namespace {

std::string lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return s;
}

std::string trim(const std::string& s) {
  size_t b = s.find_first_not_of(" \t\r");
  if (b == std::string::npos) return {};
  size_t e = s.find_last_not_of(" \t\r");
  return s.substr(b, e - b + 1);
}

std::vector<std::string> readLines(const std::string& path) {
  std::vector<std::string> lines;
  std::ifstream in(path, std::ios::binary);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

// "[Name]" gives "name"; anything else gives nullopt-like empty with ok=false.
bool sectionOf(const std::string& line, std::string& name) {
  std::string t = trim(line);
  if (t.size() < 2 || t.front() != '[' || t.back() != ']') return false;
  name = lower(trim(t.substr(1, t.size() - 2)));
  return true;
}

bool keyOf(const std::string& line, std::string& key, std::string& value) {
  auto eq = line.find('=');
  if (eq == std::string::npos) return false;
  key = lower(trim(line.substr(0, eq)));
  value = trim(line.substr(eq + 1));
  return !key.empty() && key[0] != ';';
}

}  // namespace

std::string IniFile::read(const std::string& section, const std::string& key,
                          const std::string& defaultValue) const {
  const std::string s = lower(section), k = lower(key);
  std::string current, name, lineKey, value;
  for (const std::string& line : readLines(path_)) {
    if (sectionOf(line, name)) {
      current = name;
    } else if (current == s && keyOf(line, lineKey, value) && lineKey == k) {
      // Quoted values lose their quotes, as the platform's reader did.
      if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
        value = value.substr(1, value.size() - 2);
      return value.substr(0, kReadLimit);
    }
  }
  return defaultValue.substr(0, kReadLimit);
}

bool IniFile::write(const std::string& section, const std::string& key, const std::string& value) {
  const std::string s = lower(section), k = lower(key);
  std::vector<std::string> lines = readLines(path_);
  std::string current, name, lineKey, old;
  int sectionEnd = -1;  // index after the last line of the wanted section
  bool done = false;
  for (size_t i = 0; i < lines.size() && !done; ++i) {
    if (sectionOf(lines[i], name)) {
      current = name;
      if (current == s) sectionEnd = int(i) + 1;
    } else if (current == s) {
      if (keyOf(lines[i], lineKey, old) && lineKey == k) {
        lines[i] = key + "=" + value;
        done = true;
      } else if (!trim(lines[i]).empty()) {
        sectionEnd = int(i) + 1;
      }
    }
  }
  if (!done) {
    if (sectionEnd < 0) {
      if (!lines.empty() && !trim(lines.back()).empty()) lines.push_back("");
      lines.push_back("[" + section + "]");
      lines.push_back(key + "=" + value);
    } else {
      lines.insert(lines.begin() + sectionEnd, key + "=" + value);
    }
  }
  std::string text;
  for (const std::string& l : lines) text += l + "\r\n";
  return writeFileAtomically(path_, text);
}

bool writeFileAtomically(const std::string& path, const std::string& text) {
  namespace fs = std::filesystem;
  fs::path target(path);
  fs::path tmp = target;
  tmp += ".tmp" + std::to_string(getpid());
  {
    std::ofstream out(tmp, std::ios::binary | std::ios::trunc);
    if (!out) return false;
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.flush();
    if (!out) {
      out.close();
      std::error_code ec;
      fs::remove(tmp, ec);
      return false;
    }
  }
  std::error_code ec;
  fs::rename(tmp, target, ec);
  if (ec) {
    fs::remove(tmp, ec);
    return false;
  }
  return true;
}

}  // namespace q
