#include "engine/views/patch_window.h"

#include <stdexcept>

#include "engine/core/console.h"
#include "engine/showfiles/show_formats.h"
#include "engine/views/patch_console_view.h"
#include "engine/views/patch_dmx_view.h"

namespace q {

namespace {
const char* const kPatchFilter = "Orvaldi Patch file  (*.qpf)|*.qpf|Text File  (*.txt)|*.txt";
}  // namespace

PatchWindow::PatchWindow(Console& c, const PatchSide& side)
    : Window(c.registry, side.name),
      Label2(add<Label>("Label2", side.heading)),
      Label1(add<Label>("Label1")),
      Check1(add<CheckBox>("Check1", "Use DMX patch")),
      Command1(add<Label>("Command1", "<<")),
      Command2(add<Label>("Command2", ">>")),
      ReverseBtn(add<Label>("ReverseBtn", "Reverse")),
      CDialog(c.dialogs()),
      c_(c),
      twin_(side.twin) {
  setCaption(side.title);
  CDialog.Filter = kPatchFilter;
  txtPatch_.push_back(nullptr);
  for (int i = 0; i < side.lines; ++i) {
    channel_.push_back(&add<Label>(indexed("Channel", i), std::to_string(i + 1)));
    txtPatch_.push_back(&add<TextBox>(indexed("txtPatch", i + 1)));
  }
  showRange(1, side.lines);
  buildMenus(side);
  wire();
}

TextBox& PatchWindow::txtPatch(int i) {
  if (i < 1 || i >= int(txtPatch_.size()))
    throw std::out_of_range("no box txtPatch(" + std::to_string(i) + ")");
  return *txtPatch_[size_t(i)];
}

void PatchWindow::buildMenus(const PatchSide& side) {
  addMenu("mnuFile", "File", "");
  addMenu("mnuOpen", side.openCaption, "mnuFile").onClick = [this] { openFile(); };
  addMenu("mnuSave", side.saveCaption, "mnuFile").onClick = [this] { saveFile(); };
  addMenu("mnuView", "View", "");
  MenuItem& dmxSide = addMenu("mnuView1", "DMX Channel - Quintara Channel", "mnuView");
  MenuItem& consoleSide = addMenu("mnuView2", "Quintara Channel - DMX Channel", "mnuView");
  // The entry naming the other side turns to the twin; the window's own does nothing.
  (name() == "frmPatch" ? consoleSide : dmxSide).onClick = [this] { reverse(); };
  addMenu("mnuEdit", "Edit", "");
  addMenu("mnuOnetoOne", "1 to 1", "mnuEdit").onClick = [this] { oneToOne(); };
  addMenu("mnuDeleteAll", side.deleteCaption, "mnuEdit").onClick = [this] { deleteAll(); };
}

void PatchWindow::wire() {
  Check1.onClick = [this] {
    c_.v.PatchOn = vbool(Check1.checked() != 0);
    c_.v.MixDirty = kTrue;
  };
  Command1.onClick = [this] { pageBack(); };
  Command2.onClick = [this] { pageForward(); };
  ReverseBtn.onClick = [this] { reverse(); };
}

void PatchWindow::showPatchOn() {
  if (c_.v.PatchOn != kFalse) Check1.setChecked(1);
}

void PatchWindow::showRange(int first, int last) {
  Label1.setCaption(std::to_string(first) + " to " + std::to_string(last));
}

void PatchWindow::pageBack() {
  if (page > 0) --page;
  CanviaPagina();
}

void PatchWindow::pageForward() {
  if (hasNextPage()) ++page;
  CanviaPagina();
}

void PatchWindow::oneToOne() {
  {
    auto batch = c_.v.PatchMap.changes.batch();
    for (int d = 1; d <= kChannels; ++d) c_.v.PatchMap.set(d, int16_t(d));
  }
  c_.v.MixDirty = kTrue;
  CanviaPagina();
}

void PatchWindow::deleteAll() {
  c_.v.PatchMap.fill(0);
  c_.v.MixDirty = kTrue;
  CanviaPagina();
}

// The chooser starts empty; a cancel loads nothing, and the page is redrawn either way.
// The box keeps its tick: it shows the patch switch as it was when the window opened.
void PatchWindow::openFile() {
  CDialog.FileName.clear();
  CDialog.ShowOpen();
  const std::string path = CDialog.FileName;
  if (!path.empty()) c_.files.tryLoad(path, [&] { LoadPatch(c_, path); });
  CanviaPagina();
}

// The chooser starts at the name it last held; only a name it gives back is written.
void PatchWindow::saveFile() {
  FileDialogRequest r;
  r.kind = FileDialogKind::Save;
  r.filter = CDialog.Filter;
  r.fileName = CDialog.FileName;
  const std::string path = c_.dialogs().fileDialog(r);
  if (path.empty()) return;
  CDialog.FileName = path;
  c_.files.trySave(path, [&] { SavePatch(c_, path); });
}

void PatchWindow::reverse() {
  c_.windows.load(twin_).show();
  unload();
}

void PatchWindow::refuse(const std::string& why) { c_.failures.report(caption() + ": " + why); }

void addPatchWindows(Console& c) {
  c.windows.setFactory("frmPatch", [&c] { return std::make_unique<PatchDmxView>(c); });
  c.windows.setFactory("frmInvPatch", [&c] { return std::make_unique<PatchConsoleView>(c); });
  c.form1.menu("mnuPatch").onClick = [&c] { c.windows.load("frmPatch").show(); };
}

}  // namespace q
