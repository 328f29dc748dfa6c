#include "engine/showfiles/file_set.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "engine/showfiles/file_error.h"

namespace q {

namespace fs = std::filesystem;

namespace {
constexpr const char* kTemporary = ".~new";
constexpr const char* kJournal = ".~journal";
constexpr const char* kJournalEnd = "END";

std::string reasonOf(int err) { return std::strerror(err); }

void writeDurably(const std::string& path, const std::string& text, const std::string& forName) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) throw FileError(forName, 0, reasonOf(errno));
  size_t done = 0;
  bool ok = true;
  while (ok && done < text.size()) {
    const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
    if (n < 0 && errno == EINTR) continue;
    ok = n > 0;
    if (ok) done += size_t(n);
  }
  ok = ok && ::fsync(fd) == 0;
  const int err = errno;
  if (::close(fd) != 0 || !ok) {
    ::unlink(path.c_str());
    throw FileError(forName, 0, reasonOf(ok ? errno : err));
  }
}

// Renames reach the disk only when their folder is synced.
void syncFolder(const std::string& anyFileInIt) {
  const std::string folder = fs::path(anyFileInIt).parent_path().string();
  const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

bool endsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

// Finishes the renames a complete journal lists; a journal cut short is none.
void replay(const fs::path& journal) {
  std::ifstream in(journal);
  std::vector<std::string> targets;
  std::string line;
  bool complete = false;
  while (std::getline(in, line)) {
    if (line == kJournalEnd) {
      complete = true;
      break;
    }
    targets.push_back(line);
  }
  in.close();
  if (complete)
    for (const std::string& target : targets) {
      std::error_code ec;
      if (fs::exists(temporaryOf(target), ec)) fs::rename(temporaryOf(target), target, ec);
    }
  std::error_code ec;
  fs::remove(journal, ec);
}
}  // namespace

std::string temporaryOf(const std::string& path) { return path + kTemporary; }

void FileSet::add(std::string path, std::string text) {
  files_.emplace_back(std::move(path), std::move(text));
}

void FileSet::check() const {
  std::set<std::string> seen;
  for (const auto& [path, text] : files_) {
    if (path.empty()) throw FileError(path, 0, "no file name");
    std::error_code ec;
    const fs::path p(path);
    if (fs::is_directory(p, ec)) throw FileError(path, 0, "is a folder");
    const fs::path folder = p.has_parent_path() ? p.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, ec)) throw FileError(path, 0, "its folder does not exist");
    if (::access(folder.c_str(), W_OK | X_OK) != 0)
      throw FileError(path, 0, "its folder can't be written: " + reasonOf(errno));
    if (fs::exists(p, ec) && !fs::is_regular_file(p, ec))
      throw FileError(path, 0, "is no ordinary file");
    if (!seen.insert(fs::weakly_canonical(p, ec).string()).second)
      throw FileError(path, 0, "named twice in one save");
  }
}

void FileSet::write() {
  check();
  if (files_.empty()) return;
  recover(files_.front().first);
  // Every file whole on disk first, under its temporary name.
  for (size_t i = 0; i < files_.size(); ++i) {
    try {
      writeDurably(temporaryOf(files_[i].first), files_[i].second, files_[i].first);
    } catch (...) {
      for (size_t k = 0; k <= i; ++k) ::unlink(temporaryOf(files_[k].first).c_str());
      throw;
    }
  }
  // From the journal on, the new show is the one a recovery completes.
  std::ostringstream journal;
  for (const auto& f : files_) journal << f.first << '\n';
  journal << kJournalEnd << '\n';
  // Named after the last file, the one that makes the set whole (a show's index).
  const std::string journalPath = files_.back().first + kJournal;
  try {
    writeDurably(journalPath, journal.str(), files_.front().first);
  } catch (...) {
    for (const auto& f : files_) ::unlink(temporaryOf(f.first).c_str());
    throw;
  }
  syncFolder(journalPath);
  for (size_t i = 0; i < files_.size(); ++i) {
    const std::string& target = files_[i].first;
    if (::rename(temporaryOf(target).c_str(), target.c_str()) != 0) {
      const int err = errno;
      // The journal stays: the next look at the folder finishes the rest.
      throw FileError(target, 0, reasonOf(err));
    }
    if (afterRename) afterRename(i + 1);
  }
  syncFolder(journalPath);
  ::unlink(journalPath.c_str());
}

void FileSet::recover(const std::string& path) {
  const fs::path p(path);
  const fs::path folder = p.has_parent_path() ? p.parent_path() : fs::path(".");
  std::error_code ec;
  std::vector<fs::path> journals, temporaries;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    const std::string name = it->path().filename().string();
    if (endsWith(name, kJournal)) journals.push_back(it->path());
    if (endsWith(name, kTemporary)) temporaries.push_back(it->path());
  }
  for (const fs::path& j : journals) replay(j);
  // What no journal claims is a save that died before its journal: its old files stand.
  for (const fs::path& t : temporaries) fs::remove(t, ec);
}

}  // namespace q
