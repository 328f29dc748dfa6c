#pragma once
// CDialog1: the one file chooser the main window shares. It remembers the
// last file name it was given or returned, and several handlers rely on
// that memory (a cancelled chooser leaves the old name, which some callers
// then use as it stands), so callers go through this object rather than the
// bare dialog.

#include <string>

#include "engine/core/dialogs.h"

namespace q {

class CommonDialog {
 public:
  explicit CommonDialog(Dialogs& dialogs) : dialogs_(dialogs) {}

  std::string FileName;
  // "Text (*.ext)|*.ext|..." as the console writes its filters.
  std::string Filter;
  std::string DialogTitle;
  // The folder the chooser starts in; empty for wherever it was.
  std::string InitDir;

  // Show the chooser; a chosen name replaces FileName, a cancel leaves it.
  void ShowOpen() { show(FileDialogKind::Open); }
  void ShowSave() { show(FileDialogKind::Save); }

 private:
  void show(FileDialogKind kind) {
    FileDialogRequest r;
    r.kind = kind;
    r.title = DialogTitle;
    r.filter = Filter;
    r.fileName = FileName;
    r.initDir = InitDir;
    std::string chosen = dialogs_.fileDialog(r);
    if (!chosen.empty()) FileName = std::move(chosen);
  }
  Dialogs& dialogs_;
};

}  // namespace q
