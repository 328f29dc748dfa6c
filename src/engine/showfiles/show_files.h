#pragma once
// The show-file operations as the operator reaches them: the file menu, the
// recent list, the channel clipboard and channel files, a file dropped on
// the main window, and the command language's load and save. Every failure
// of a reader or writer ends here as the error box; the console goes on
// with what was applied before the bad line.

#include <functional>
#include <string>

namespace q {

class Console;
class FileError;

class ShowFiles {
 public:
  explicit ShowFiles(Console& c);
  // kind: show, cuelist, submasters, chaser1, chaser2, patch, channels.
  // False when the kind is unknown. A reader's failure is shown as a message box.
  bool load(const std::string& kind, const std::string& path);
  bool save(const std::string& kind, const std::string& path);
  // A file dropped on the main window with the left button.
  void dropOnForm1(const std::string& path);

  // Runs a reader or writer on path; a failure becomes the error box. False when it failed.
  bool tryLoad(const std::string& path, const std::function<void()>& read);
  bool trySave(const std::string& path, const std::function<void()>& write);
  // Runs a reader's parse into a table of its own on the host's background
  // work, the console's timers going on meanwhile; in place when the host
  // has none, and inside another such read (a load started by a tick while
  // one is being read), so that reads never overlap.
  void readAside(const std::function<void()>& parse);

  // The file menu.
  void mnuOpen();
  void mnuSaveAs();
  void mnuSaveSubmastersAs();
  void mnuRecent(int index);
  // Enters a name in the recent list and the settings file.
  void AddRecent(const std::string& name);

  // The channel clipboard and channel files, all on the EditColumn.
  void mnuChanCopy();
  void mnuChanCut();
  void mnuChanPaste();
  void mnuChanZero();
  void mnuLoadChan();
  void mnuSaveChan();

  // Files in the program's own folder.
  std::string channelClipboardPath() const;  // temp.qch
  std::string cueClipboardPath() const;      // tempcue.qcl
  std::string printListPath() const;         // temp.qcl

  // The cue list's current file name: the last one loaded or saved.
  std::string cueListFileName;
  // For tests: runs after each file of a show save is renamed into place.
  std::function<void(size_t renamed)> afterShowRename;

 private:
  void showError(const std::string& text);
  Console& c_;
  bool readingAside_ = false;
};

}  // namespace q
