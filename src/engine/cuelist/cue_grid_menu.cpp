// The menus of the cue list window: its files and their recent list, the
// list commands (sort, special cue, delete all), the commands on the
// selected row (cut, copy, paste, recall to Stage or Prog, delete), and
// staying on top.

#include "engine/core/console.h"
#include "engine/cuelist/cue_grid.h"
#include "engine/cuelist/cue_properties.h"
#include "engine/cuelist/cue_sort.h"
#include "engine/cuelist/special_cue.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/cue_list_printout.h"
#include "engine/showfiles/show_formats.h"

namespace q {

void Cuewin::buildMenus() {
  addMenu("mnuFile", "File", "");
  addMenu("mnuNew", "New", "mnuFile");
  addMenu("mnuOpen", "Open", "mnuFile");
  addMenu("mnuSaveAs", "Save As...", "mnuFile");
  addMenu("mnuPrint", "Print Cue list", "mnuFile");
  for (int i = 0; i <= 4; ++i) {
    recent_[size_t(i)] = &addMenu(indexed("mnuRecent", i), i == 0 ? "-" : "", "mnuFile");
    recent_[size_t(i)]->setVisible(false);
  }
  addMenu("mnuClose", "Close", "mnuFile");

  addMenu("mnuCues", "Cues", "");
  addMenu("mnuSort", "Sort by Cue number", "mnuCues");
  addMenu("mnuSpecialCue", "Add Special Cue", "mnuCues");
  addMenu("mnuDeleteallCues", "Delete all cues", "mnuCues");

  addMenu("mnuCue", "Cue", "");
  addMenu("mnuCut", "Cut", "mnuCue");
  addMenu("mnuCopy", "Copy", "mnuCue");
  addMenu("mnuPaste", "Paste", "mnuCue");
  addMenu("mnuLoadStage", "Load in Stage", "mnuCue");
  addMenu("mnuLoadInProg", "Load in Program", "mnuCue");
  addMenu("mnuDelete", "Delete", "mnuCue");
  addMenu("mnuDeleteAll", "Delete all", "mnuCue");

  addMenu("mnuWindow", "Window", "");
  addMenu("mnuStayOnTop", "Stay on top", "mnuWindow");
}

void Cuewin::wireMenus() {
  menu("mnuNew").onClick = [this] { mnuNew(); };
  menu("mnuOpen").onClick = [this] { mnuOpen(); };
  menu("mnuSaveAs").onClick = [this] { mnuSaveAs(); };
  menu("mnuPrint").onClick = [this] { mnuPrintCueList(c_); };
  for (int i = 1; i <= 4; ++i) mnuRecent(i).onClick = [this, i] { mnuRecentClick(i); };
  menu("mnuClose").onClick = [this] { unload(); };
  menu("mnuSort").onClick = [this] { mnuSort(); };
  menu("mnuSpecialCue").onClick = [this] { mnuSpecialCue(); };
  menu("mnuDeleteallCues").onClick = [this] { mnuDeleteAll(); };
  menu("mnuCut").onClick = [this] { mnuCut(); };
  menu("mnuCopy").onClick = [this] { mnuCopy(); };
  menu("mnuPaste").onClick = [this] { mnuPaste(); };
  menu("mnuLoadStage").onClick = [this] { c_.memories.loadStage(c_.v.SelectedCue); };
  menu("mnuLoadInProg").onClick = [this] { c_.memories.loadInProg(c_.v.SelectedCue); };
  menu("mnuDelete").onClick = [this] { mnuDelete(); };
  menu("mnuDeleteAll").onClick = [this] { mnuDeleteAll(); };
  menu("mnuStayOnTop").onClick = [this] { mnuStayOnTop(); };
}

// --- files ----------------------------------------------------------------------

void Cuewin::mnuNew() {
  mnuDeleteAll();
  txt_Show.setText("");
  txt_Date.setText("");
}

void Cuewin::mnuOpen() {
  CDialog1.FileName.clear();
  CDialog1.Filter = kFilter;
  CDialog1.ShowOpen();
  const std::string name = CDialog1.FileName;
  if (name.empty()) return;
  if (c_.files.tryLoad(name, [&] { LoadCueList(c_, name); })) addRecent(name);
}

void Cuewin::mnuSaveAs() {
  CDialog1.FileName.clear();
  CDialog1.Filter = kFilter;
  CDialog1.ShowSave();
  const std::string name = CDialog1.FileName;
  if (name.empty()) return;
  if (c_.files.trySave(name, [&] { SaveCueList(c_, name); })) addRecent(name);
}

// Loads the entry's file as it stands, without moving it in the list.
void Cuewin::mnuRecentClick(int i) {
  const std::string name = mnuRecent(i).caption();
  c_.files.tryLoad(name, [&] { LoadCueList(c_, name); });
}

// The newest first; the oldest of four drops out. Every entry is written
// back to the settings file, empty ones too.
void Cuewin::addRecent(const std::string& name) {
  if (name.empty()) return;
  for (int i = 4; i >= 2; --i) mnuRecent(i).setCaption(mnuRecent(i - 1).caption());
  mnuRecent(1).setCaption(name);
  showRecent();
  for (int i = 1; i <= 4; ++i)
    c_.settings.ini().write("Recent", "Cue" + std::to_string(i), mnuRecent(i).caption());
}

void Cuewin::readRecent() {
  for (int i = 1; i <= 4; ++i)
    mnuRecent(i).setCaption(c_.settings.ini().read("Recent", "Cue" + std::to_string(i), ""));
  showRecent();
}

void Cuewin::showRecent() {
  bool any = false;
  for (int i = 1; i <= 4; ++i) {
    const bool shown = !mnuRecent(i).caption().empty();
    mnuRecent(i).setVisible(shown);
    any = any || shown;
  }
  mnuRecent(0).setVisible(any);
}

// --- the list -------------------------------------------------------------------

void Cuewin::mnuSort() {
  if (!SortCues(c_.v))
    c_.dialogs().msgBox(
        "Sort by Cue number",
        "A list of more than " + std::to_string(kMaxSortedCues) + " cues cannot be sorted.",
        MsgButtons::OK, MsgIcon::Exclamation);
}

void Cuewin::mnuSpecialCue() { c_.windows.load("SpCue").showModal(); }

void Cuewin::mnuDeleteAll() {
  auto batch = c_.v.Cues.changes.batch();
  wipeCues(c_.v);
}

// --- the selected row -----------------------------------------------------------

// The row is emptied where it stands: later rows keep their places and the list its length.
void Cuewin::mnuDelete() {
  auto batch = c_.v.Cues.changes.batch();
  wipeCue(c_.v, c_.v.SelectedCue);
}

void Cuewin::mnuCopy() {
  const std::string path = c_.files.cueClipboardPath();
  c_.files.trySave(path, [&] { SaveCueClipboard(c_, path, c_.v.SelectedCue); });
}

// The row is only emptied once it is safely on the clipboard.
void Cuewin::mnuCut() {
  const std::string path = c_.files.cueClipboardPath();
  if (c_.files.trySave(path, [&] { SaveCueClipboard(c_, path, c_.v.SelectedCue); })) mnuDelete();
}

// Appends the clipboard's cue at the end of the list, whatever the selection.
void Cuewin::mnuPaste() {
  const std::string path = c_.files.cueClipboardPath();
  c_.files.tryLoad(path, [&] { PasteCueClipboard(c_, path); });
}

void Cuewin::mnuStayOnTop() {
  MenuItem& m = menu("mnuStayOnTop");
  m.setChecked(!m.checked());
  stayOnTop = m.checked();
  changed.notify();
}

// --- the catalogue ----------------------------------------------------------------

void addCueListWindows(Console& c) {
  c.windows.setFactory("Cuewin", [&c] { return std::make_unique<Cuewin>(c); });
  c.windows.setFactory("CueProps", [&c] { return std::make_unique<CueProps>(c); });
  c.windows.setFactory("SpCue", [&c] { return std::make_unique<SpCue>(c); });
  c.form1.menu("mnuCueList").onClick = [&c] { c.windows.load("Cuewin").show(); };
}

}  // namespace q
