#include "engine/showfiles/line_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "engine/showfiles/file_error.h"
#include "engine/showfiles/file_set.h"
#include "engine/showfiles/text_codec.h"

namespace q {

namespace fs = std::filesystem;

LineReader::LineReader(std::string path) : path_(std::move(path)) {
  std::error_code ec;
  const auto st = fs::status(path_, ec);
  if (path_.empty() || !fs::exists(st)) throw FileError(path_, 0, "file not found");
  // A folder, a pipe or a device would read as nothing or block the console.
  if (!fs::is_regular_file(st)) throw FileError(path_, 0, "not a file");
  in_.open(path_, std::ios::binary);
  if (!in_) throw FileError(path_, 0, "cannot be opened");
}

bool LineReader::next() {
  if (!std::getline(in_, line_)) {
    if (in_.bad()) fail("read error");
    return false;
  }
  if (!line_.empty() && line_.back() == '\r') line_.pop_back();
  ++lineNumber_;
  return true;
}

std::string_view LineReader::rest(size_t n) const {
  if (line_.size() < n) fail("line shorter than its keyword");
  return std::string_view(line_).substr(n);
}

std::string LineReader::restText(size_t n) const { return cp1252ToUtf8(rest(n)); }

void LineReader::fail(const std::string& reason) const {
  throw FileError(path_, lineNumber_, reason);
}

void TextOut::line(std::string_view text) {
  text_ += utf8ToCp1252(text);
  text_ += "\r\n";
}

void TextOut::line2(std::string_view a, std::string_view b) {
  text_ += utf8ToCp1252(a);
  text_ += utf8ToCp1252(b);
  text_ += "\r\n";
}

void TextOut::save(const std::string& path) const { writeFileWhole(path, text_); }

namespace {
std::string systemReason(int err) { return std::strerror(err); }

bool writeAll(int fd, const std::string& text) {
  size_t done = 0;
  while (done < text.size()) {
    const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += size_t(n);
  }
  return true;
}
}  // namespace

void writeFileWhole(const std::string& path, const std::string& text) {
  if (path.empty()) throw FileError(path, 0, "no file name");
  std::error_code ec;
  if (fs::is_directory(path, ec)) throw FileError(path, 0, "is a folder");
  // One temporary name per file: a save killed half-way leaves one the next save takes over.
  const std::string tmp = temporaryOf(path);
  const int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) throw FileError(path, 0, systemReason(errno));
  const bool ok = writeAll(fd, text) && ::fsync(fd) == 0;
  const int err = errno;
  if (::close(fd) != 0 || !ok) {
    ::unlink(tmp.c_str());
    throw FileError(path, 0, systemReason(ok ? errno : err));
  }
  if (::rename(tmp.c_str(), path.c_str()) != 0) {
    const int renameErr = errno;
    ::unlink(tmp.c_str());
    throw FileError(path, 0, systemReason(renameErr));
  }
}

}  // namespace q
