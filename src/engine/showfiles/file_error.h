#pragma once
// The one failure a show file can raise. A reader stops at the bad line with
// what it applied before still in force and throws this; the caller shows it
// to the operator and the console goes on.

#include <stdexcept>
#include <string>

namespace q {

class FileError : public std::runtime_error {
 public:
  // line 0: the file as a whole (it can't be opened, written or named).
  FileError(std::string path, int line, std::string reason)
      : std::runtime_error(describe(path, line, reason)),
        path_(std::move(path)),
        line_(line),
        reason_(std::move(reason)) {}

  const std::string& path() const { return path_; }
  int line() const { return line_; }
  const std::string& reason() const { return reason_; }
  // "line 12: level above 255", or the reason alone for the whole file.
  std::string where() const {
    return line_ > 0 ? "line " + std::to_string(line_) + ": " + reason_ : reason_;
  }

 private:
  static std::string describe(const std::string& p, int line, const std::string& r) {
    return p + ", " + (line > 0 ? "line " + std::to_string(line) + ": " + r : r);
  }
  std::string path_;
  int line_;
  std::string reason_;
};

}  // namespace q
