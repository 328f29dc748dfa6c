#pragma once
// Cuewin ("Cue List"): the cue list as a spreadsheet, one row a cue. Six
// panes show the table Cues as it stands, nothing is kept apart from it:
// the channel levels (Picture1) under their channel numbers (Picture2), and
// the columns CUE (Picture3, 513), FUN (Picture4, 514), TIMES (Picture5,
// 515..518) and NAME (Picture6, 520). The operator selects a row with a
// press, edits a level in place with a double click, opens a cue's
// properties with a double click on the other panes, and reaches the list
// commands from the menus (the menu "Cue" also pops up on the right button).
//
// Everything is measured in twips: a cell is 400 wide and 255 high. The
// window's width and height are its outer size, title and menu bar included.

#include <array>
#include <map>
#include <string>

#include "engine/controls/cell_grid.h"
#include "engine/controls/window.h"
#include "engine/core/common_dialog.h"
#include "engine/core/value.h"

namespace q {

class Console;

class Cuewin : public Window {
 public:
  static constexpr double kCellWidth = 400, kCellHeight = 255;
  // Twips the title bar, the menu bar and the borders take from the outer size.
  static constexpr int kFrameWidth = 120, kFrameHeight = 690;
  static constexpr int kStartWidth = 12000, kStartHeight = 7200;

  explicit Cuewin(Console& c);
  ~Cuewin() override;

  TextBox& txt_Show;
  TextBox& txt_Date;
  CellGrid& Picture1;  // levels
  CellGrid& Picture2;  // channel numbers
  CellGrid& Picture3;  // CUE
  CellGrid& Picture4;  // FUN
  CellGrid& Picture5;  // TIMES
  CellGrid& Picture6;  // NAME
  Scroller& vscScroll;
  Scroller& hscScroll;
  TextBox& txtedit;
  Label& lblTopLeft;
  Lamp& logo;
  MenuItem& mnuRecent(int i) { return *recent_.at(size_t(i)); }  // 1..4; 0 is the bar above them

  // The scroll position and the channel of the cell under the editor.
  int16_t TopRow = 1;
  int16_t LeftChannel = 1;
  int16_t EditChannel = 0;

  // Where a control lies in the window's client area, in twips.
  struct Box {
    double left, top, width, height;
    bool operator==(const Box&) const = default;
  };
  const Box& boxOf(const Control& c) const { return boxes_.at(&c); }
  int width() const { return width_; }
  int height() const { return height_; }
  // Views: a control moved or changed size.
  Listeners<> layoutChanged;
  // Views: the operator asked for the pop-up menu of that (full) name.
  std::function<void(const std::string& menu)> onPopupMenu;

  // The window resized to its outer size W, H: panes follow above the smallest size.
  void resize(int w, int h);

  // The grid's own actions, as the menus and panes reach them.
  void appendFromLiveLook();
  void mnuNew();
  void mnuOpen();
  void mnuSaveAs();
  void mnuRecentClick(int i);
  void mnuSort();
  void mnuSpecialCue();
  void mnuCut();
  void mnuCopy();
  void mnuPaste();
  void mnuDelete();
  void mnuDeleteAll();
  void mnuStayOnTop();
  // Enters a file just opened or saved at the head of the recent list.
  void addRecent(const std::string& name);

  static constexpr const char* kFilter = "Cue List  (*.qcl)|*.qcl|Text File  (*.txt)|*.txt";

 private:
  void buildMenus();
  void wireMenus();
  void wirePanes();
  void setBox(const Control& c, Box b);
  void sizePane(CellGrid& pane, double width, double height);

  // Painting.
  CellGrid::Cell rowCell(int row, const Value& value) const;
  CellGrid::Cell levelCell(int r, int c) const;
  CellGrid::Cell headerCell(int c) const;
  void refreshLevels();
  void refreshColumns();
  void refreshAll();
  void cuesChanged(const TableChange& change);
  void rowChanged(int row);
  void nextCueChanged();

  // Selection and the editor.
  void setSelectedCue(double row);
  void levelsDown(const MouseEvent& e);
  void columnsDown(const MouseEvent& e);
  void columnsDblClick();
  void editorEnter();

  void readRecent();
  void showRecent();

  Console& c_;
  CommonDialog CDialog1;
  std::array<MenuItem*, 5> recent_{};
  std::map<const Control*, Box> boxes_;
  int width_ = kStartWidth, height_ = kStartHeight;
  long nextCueRow_ = 0;
  int cuesListener_ = 0;
  Label* nextCue_ = nullptr;
  int nextCueListener_ = 0;
  int nextCueGone_ = 0;
};

// Gives the catalogue the cue list window and its two dialogs, and opens the
// list from the main window's `mnuCueList`.
void addCueListWindows(Console& c);

}  // namespace q
