#pragma once
// The show-file operations as the file menu, the drops and the command
// language reach them.

#include <string>

namespace q {

class Console;

class ShowFiles {
 public:
  explicit ShowFiles(Console& c) : c_(c) {}
  // kind: show, cuelist, submasters, chaser1, chaser2, patch, channels.
  // False when the kind is unknown. A reader's failure is shown as a message box.
  bool load(const std::string& kind, const std::string& path);
  bool save(const std::string& kind, const std::string& path);
  // A file dropped on the main window with the left button.
  void dropOnForm1(const std::string& path);

 private:
  [[maybe_unused]] Console& c_;
};

}  // namespace q
