#pragma once
// The patch, PatchMap, seen from either side in two twin windows: frmPatch
// lists DMX channels with the console channel feeding each, frmInvPatch
// lists console channels with the DMX channels each feeds. This is what the
// twins share: the heading, the page range and page buttons, "Use DMX
// patch" (PatchOn), the button and the view entry that turn to the twin,
// the patch file's Open and Save, "1 to 1" and "Delete all".
//
// A window's boxes show PatchMap as it was at the last redraw of the page
// (CanviaPagina); they do not follow changes made elsewhere meanwhile.

#include <string>
#include <vector>

#include "engine/controls/window.h"
#include "engine/core/common_dialog.h"

namespace q {

class Console;

// What tells one twin from the other.
struct PatchSide {
  const char* name;
  const char* twin;
  const char* title;
  const char* heading;
  int lines;  // of a page
  const char* openCaption;
  const char* saveCaption;
  const char* deleteCaption;
};

class PatchWindow : public Window {
 public:
  PatchWindow(Console& c, const PatchSide& side);

  // Redraws the window for the current page.
  virtual void CanviaPagina() = 0;

  void pageBack();
  void pageForward();
  // Every entry routes its own channel, or none at all; for all 512 whatever MaxChans is.
  void oneToOne();
  void deleteAll();
  void openFile();
  void saveFile();
  // Shows the twin where this window stands, and unloads this one.
  void reverse();

  const std::string& twin() const { return twin_; }
  int lines() const { return int(txtPatch_.size()) - 1; }

  Label& Label2;  // the heading
  Label& Label1;  // the page range, "1 to 64"
  CheckBox& Check1;
  Label& Command1;  // back
  Label& Command2;  // forward
  Label& ReverseBtn;
  Label& Channel(int i) { return *channel_.at(size_t(i)); }  // from 0
  TextBox& txtPatch(int i);                                  // from 1

  CommonDialog CDialog;
  int page = 0;
  // Raised while the window fills its own boxes, so the fill isn't taken for typing.
  bool updating = false;

 protected:
  // The page shown may go one further.
  virtual bool hasNextPage() const = 0;
  // Opening: ticks the box when the patch is in use.
  void showPatchOn();
  // "from to last" in Label1.
  void showRange(int first, int last);
  // What a typed entry can't be is told in one box; the console goes on.
  void refuse(const std::string& why);

  Console& c_;

 private:
  void buildMenus(const PatchSide& side);
  void wire();

  std::string twin_;
  std::vector<Label*> channel_;
  std::vector<TextBox*> txtPatch_;  // [0] is no box: the boxes count from 1
};

// Gives the console both patch windows and the main window's Patch entry.
void addPatchWindows(Console& c);

}  // namespace q
