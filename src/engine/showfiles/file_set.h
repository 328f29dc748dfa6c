#pragma once
// Several files written as one: a show is its index and five companions, and
// a crash or a full disk in the middle of a save must leave either the whole
// old show or the whole new one, never a mix.
//
// Every name is checked before the first byte is written (its folder is
// there and writable, no name is a folder, no name comes twice). Each file
// is then written whole to a temporary beside it; only when all are on disk
// does a journal beside the first file list them, and the temporaries are
// renamed over their files. A save that dies before its journal leaves the
// old files and some temporaries, which the next look at that folder takes
// away; one that dies after it leaves a journal, from which the next look
// finishes the renames.

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace q {

class FileSet {
 public:
  void add(std::string path, std::string text);
  // Throws FileError naming the first file that can't be written there.
  void check() const;
  // Checks, then writes every file; throws FileError and leaves the old files when it fails.
  void write();

  // Finishes or takes back what an interrupted save left in the folder of
  // path: run before a show there is read or written.
  static void recover(const std::string& path);

  // For tests: runs after each rename; a throw stands for a crash there.
  std::function<void(size_t renamed)> afterRename;

 private:
  std::vector<std::pair<std::string, std::string>> files_;
};

// The temporary a file is written to before it is renamed over the file.
std::string temporaryOf(const std::string& path);

}  // namespace q
