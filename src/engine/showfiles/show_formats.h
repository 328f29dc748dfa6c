#pragma once
// The readers and writers of every show file. Readers apply a file line by
// line and throw FileError at the first line they can't take, with what
// came before it still applied; writers replace the file whole or not at
// all and throw FileError when they can't. Callers that face the operator go
// through ShowFiles, which turns a FileError into the error box.

#include <cstdint>
#include <string>

#include "engine/core/variables.h"
#include "engine/showfiles/file_set.h"

namespace q {

class Console;

// Raises MixDirty when a reader ends, however it ends, so that what it
// applied reaches the output also after a bad line.
class DirtyOnExit {
 public:
  explicit DirtyOnExit(Variables& v) : v_(v) {}
  ~DirtyOnExit() { v_.MixDirty = kTrue; }
  DirtyOnExit(const DirtyOnExit&) = delete;
  DirtyOnExit& operator=(const DirtyOnExit&) = delete;

 private:
  Variables& v_;
};

// Cue list (.qcl): rows 1..CueCount of Cues, with the show's name and date.
void LoadCueList(Console& c, const std::string& path);
void SaveCueList(Console& c, const std::string& path);
std::string cueListText(Console& c);
// The cue grid's clipboard: one row under a header of its own; a paste
// appends by the list reader's rules without wiping and without the header keys.
void SaveCueClipboard(Console& c, const std::string& path, int16_t row);
void PasteCueClipboard(Console& c, const std::string& path);

// Submasters (.qsm): the twenty strips and their columns.
void LoadSubmasters(Console& c, const std::string& path);
void SaveSubmasters(Console& c, const std::string& path);
std::string submastersText(Console& c);

// Chaser (.qfx) of chaser 0 or 1.
void LoadChaser(Console& c, const std::string& path, int chaser);
void SaveChaser(Console& c, const std::string& path, int chaser, VBool random);
std::string chaserText(const Console& c, int chaser, VBool random);

// Patch (.qpf).
void LoadPatch(Console& c, const std::string& path);
void SavePatch(Console& c, const std::string& path);
std::string patchText(const Console& c);

// Channels (.qch): one column, always the EditColumn of the moment.
void LoadChannels(Console& c, const std::string& path);
void SaveChannels(Console& c, const std::string& path, const std::string& name);

// Show bundle (.qsh): the index and its five companions.
void LoadShow(Console& c, const std::string& path);
void SaveShow(Console& c, const std::string& path);
// The six files of the show as SaveShow writes them under indexPath, made
// and not yet written; nothing of the console's state changes.
FileSet ShowFileSet(Console& c, const std::string& indexPath);

// The show name as the cue list window holds it (txt_Show, txt_Date), which
// the cue list file reads and writes; the window mirrors ShowName/ShowDate.
std::string cueListShowName(Console& c);
std::string cueListShowDate(Console& c);
void setCueListShowName(Console& c, const std::string& text);
void setCueListShowDate(Console& c, const std::string& text);

}  // namespace q
