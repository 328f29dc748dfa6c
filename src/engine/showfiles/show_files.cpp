#include "engine/showfiles/show_files.h"

#include <algorithm>

#include "engine/core/console.h"
#include "engine/showfiles/file_error.h"
#include "engine/showfiles/show_formats.h"

namespace q {

namespace {
const char* const kOpenFilter =
    "Quintara Save File (*.QSh)|*.qsh|Quintara Submaster File (*.qsm)|*.qsm";
const char* const kSaveShowFilter = "Quintara Save File (*.Qsh)|*.qsh";
const char* const kSaveSubmastersFilter = "Quintara Submaster File (*.qsm)|*.qsm";
const char* const kChannelsFilter = "Orvaldi Channels Document (*.qch)|*.qch";

// The last three characters, as the console tells file kinds apart.
bool endsWith(const std::string& s, const char* ext) {
  const size_t n = std::char_traits<char>::length(ext);
  return s.size() >= n && s.compare(s.size() - n, n, ext) == 0;
}
std::string lastThreeUpper(const std::string& s) {
  std::string t = s.size() >= 3 ? s.substr(s.size() - 3) : s;
  for (char& ch : t)
    if (ch >= 'a' && ch <= 'z') ch = char(ch - 'a' + 'A');
  return t;
}
}  // namespace

ShowFiles::ShowFiles(Console& c) : c_(c) {
  MainWindow& f = c.form1;
  f.menu("mnuOpen").onClick = [this] { mnuOpen(); };
  f.menu("mnuSaveAs").onClick = [this] { mnuSaveAs(); };
  f.menu("mnuSaveSubmastersAs").onClick = [this] { mnuSaveSubmastersAs(); };
  for (int i = 0; i < 5; ++i) f.mnuRecent(i).onClick = [this, i] { mnuRecent(i); };
  f.menu("mnuChanCopy").onClick = [this] { mnuChanCopy(); };
  f.menu("mnuChanCut").onClick = [this] { mnuChanCut(); };
  f.menu("mnuChanPaste").onClick = [this] { mnuChanPaste(); };
  f.menu("mnuChanZero").onClick = [this] { mnuChanZero(); };
  f.menu("mnuLoadChan").onClick = [this] { mnuLoadChan(); };
  f.menu("mnuSaveChan").onClick = [this] { mnuSaveChan(); };
}

void ShowFiles::showError(const std::string& text) {
  c_.dialogs().msgBox("ERROR", text, MsgButtons::OK, MsgIcon::Critical);
}

bool ShowFiles::tryLoad(const std::string& path, const std::function<void()>& read) {
  try {
    read();
    return true;
  } catch (const FileError& e) {
    showError("Error loading file : " + e.path() + ", " + e.where());
  } catch (const std::exception& e) {
    showError("Error loading file : " + path + ", " + e.what());
  }
  return false;
}

bool ShowFiles::trySave(const std::string& path, const std::function<void()>& write) {
  try {
    write();
    return true;
  } catch (const FileError& e) {
    showError("Error saving file : " + e.path() + ", " + e.where());
  } catch (const std::exception& e) {
    showError("Error saving file : " + path + ", " + e.what());
  }
  return false;
}

void ShowFiles::readAside(const std::function<void()>& parse) {
  BackgroundWork* work = c_.host().background;
  if (!work || readingAside_) {
    parse();
    return;
  }
  readingAside_ = true;
  try {
    work->run(parse);
  } catch (...) {
    readingAside_ = false;
    throw;
  }
  readingAside_ = false;
}

bool ShowFiles::load(const std::string& kind, const std::string& path) {
  Console& c = c_;
  std::function<void()> read;
  if (kind == "show")
    read = [&] { LoadShow(c, path); };
  else if (kind == "cuelist")
    read = [&] { LoadCueList(c, path); };
  else if (kind == "submasters")
    read = [&] { LoadSubmasters(c, path); };
  else if (kind == "chaser1")
    read = [&] { LoadChaser(c, path, 0); };
  else if (kind == "chaser2")
    read = [&] { LoadChaser(c, path, 1); };
  else if (kind == "patch")
    read = [&] { LoadPatch(c, path); };
  else if (kind == "channels")
    read = [&] { LoadChannels(c, path); };
  else
    return false;
  tryLoad(path, read);
  return true;
}

bool ShowFiles::save(const std::string& kind, const std::string& path) {
  Console& c = c_;
  std::function<void()> write;
  if (kind == "show")
    write = [&] { SaveShow(c, path); };
  else if (kind == "cuelist")
    write = [&] { SaveCueList(c, path); };
  else if (kind == "submasters")
    write = [&] { SaveSubmasters(c, path); };
  else if (kind == "chaser1")
    write = [&] { SaveChaser(c, path, 0, c.v.FXRandom[0]); };
  else if (kind == "chaser2")
    write = [&] { SaveChaser(c, path, 1, c.v.FXRandom[1]); };
  else if (kind == "patch")
    write = [&] { SavePatch(c, path); };
  else if (kind == "channels")
    write = [&] { SaveChannels(c, path, ""); };
  else
    return false;
  trySave(path, write);
  return true;
}

void ShowFiles::dropOnForm1(const std::string& path) {
  Console& c = c_;
  if (endsWith(path, "qch")) {
    tryLoad(path, [&] { LoadChannels(c, path); });
  } else if (endsWith(path, "qcl")) {
    tryLoad(path, [&] { LoadCueList(c, path); });
  } else if (endsWith(path, "qsm")) {
    if (tryLoad(path, [&] { LoadSubmasters(c, path); })) AddRecent(path);
  } else if (endsWith(path, "qsh")) {
    if (tryLoad(path, [&] { LoadShow(c, path); })) AddRecent(path);
  }
}

void ShowFiles::mnuOpen() {
  CommonDialog& d = c_.CDialog1;
  d.FileName.clear();
  d.Filter = kOpenFilter;
  d.ShowOpen();
  const std::string name = d.FileName;
  Console& c = c_;
  // The extension is tested in lower case only: an upper-case name loads
  // nothing but still enters the recent list. A failed load ends the command.
  if (!name.empty() && endsWith(name, "qsm") && !tryLoad(name, [&] { LoadSubmasters(c, name); }))
    return;
  if (!name.empty() && endsWith(name, "qsh") && !tryLoad(name, [&] { LoadShow(c, name); })) return;
  AddRecent(name);
}

void ShowFiles::mnuSaveAs() {
  CommonDialog& d = c_.CDialog1;
  d.FileName.clear();
  d.Filter = kSaveShowFilter;
  d.ShowSave();
  const std::string name = d.FileName;
  if (name.empty()) return;
  Console& c = c_;
  if (trySave(name, [&] { SaveShow(c, name); })) AddRecent(name);
}

void ShowFiles::mnuSaveSubmastersAs() {
  CommonDialog& d = c_.CDialog1;
  d.FileName.clear();
  d.Filter = kSaveSubmastersFilter;
  d.ShowSave();
  const std::string name = d.FileName;
  if (name.empty()) return;
  Console& c = c_;
  if (trySave(name, [&] { SaveSubmasters(c, name); })) AddRecent(name);
}

void ShowFiles::mnuRecent(int index) {
  const std::string caption = c_.form1.mnuRecent(index).caption();
  try {
    if (lastThreeUpper(caption) == "QSH") LoadShow(c_, caption);
    if (lastThreeUpper(caption) == "QSM") LoadSubmasters(c_, caption);
  } catch (const std::exception&) {
    // This entry keeps the text it has always shown: the caption alone.
    showError("Error loading file : " + caption);
  }
}

void ShowFiles::AddRecent(const std::string& name) {
  MainWindow& f = c_.form1;
  auto caption = [&f](int i) -> const std::string& { return f.mnuRecent(i).caption(); };
  for (int i = 0; i < 5; ++i)
    if (caption(i) == name) return;
  if (!caption(4).empty()) {
    // A full list shifts down from slot 1 and takes the chooser's last name,
    // not the argument; slot 0 keeps the first name ever entered.
    for (int i = 4; i >= 2; --i) f.mnuRecent(i).setCaption(caption(i - 1));
    f.mnuRecent(1).setCaption(c_.CDialog1.FileName);
  } else {
    int slot = 0;
    for (int i = 3; i >= 0; --i)
      if (!caption(i).empty()) {
        slot = i + 1;
        break;
      }
    f.mnuRecent(slot).setCaption(name);
  }
  for (int i = 0; i < 5; ++i) {
    if (caption(i).empty()) continue;
    c_.settings.ini().write("Recent", "Snap" + std::to_string(i), caption(i));
    f.mnuRecent(i).setVisible(true);
  }
}

std::string ShowFiles::channelClipboardPath() const { return c_.homeDir() + "/temp.qch"; }
std::string ShowFiles::cueClipboardPath() const { return c_.homeDir() + "/tempcue.qcl"; }
std::string ShowFiles::printListPath() const { return c_.homeDir() + "/temp.qcl"; }

void ShowFiles::mnuChanCopy() {
  const std::string path = channelClipboardPath();
  trySave(path, [&] { SaveChannels(c_, path, ""); });
}

void ShowFiles::mnuChanCut() {
  const std::string path = channelClipboardPath();
  // The column is only cleared once its levels are safely on the clipboard.
  if (trySave(path, [&] { SaveChannels(c_, path, ""); })) mnuChanZero();
}

void ShowFiles::mnuChanPaste() {
  const std::string path = channelClipboardPath();
  tryLoad(path, [&] { LoadChannels(c_, path); });
  c_.v.MixDirty = kTrue;
}

void ShowFiles::mnuChanZero() {
  Variables& v = c_.v;
  if (v.EditColumn < 1 || v.EditColumn > kColumns) return;
  const int channels = std::clamp<int>(v.MaxChans, 0, kChannels);
  auto batch = v.ChanTable.changes.batch();
  for (int ch = 1; ch <= channels; ++ch) v.ChanTable.set(ch, v.EditColumn - 1, 0);
  c_.v.MixDirty = kTrue;
}

void ShowFiles::mnuLoadChan() {
  CommonDialog& d = c_.CDialog1;
  d.Filter = kChannelsFilter;
  d.ShowOpen();
  // Not emptied first and not tested: a cancel loads what the chooser last held.
  const std::string name = d.FileName;
  tryLoad(name, [&] { LoadChannels(c_, name); });
  c_.v.MixDirty = kTrue;
}

void ShowFiles::mnuSaveChan() {
  CommonDialog& d = c_.CDialog1;
  d.FileName.clear();
  d.Filter = kChannelsFilter;
  d.ShowSave();
  const std::string name = d.FileName;
  if (name.empty()) return;
  const std::string title = c_.dialogs().inputBox("Save Channels", "Channels name ?", "");
  trySave(name, [&] { SaveChannels(c_, name, title); });
}

}  // namespace q
