#pragma once
// FX1Config and FX2Config: the editor of one chaser's steps, a spreadsheet of
// one row a step and one column a channel. It is no dialog: the chaser runs
// on while it is edited, and the step that is playing is marked in the grid.
// Everything it writes goes straight to the chaser's table, count, level,
// speed and random flag; it never raises MixDirty, so a change to a running
// chaser shows at its next step.
//
// The two windows are twins: chaser 0 edits FX1Data with FXTimer(0) and
// FX1Level, chaser 1 FX2Data with FXTimer(1) and FX2Level.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "engine/controls/cell_grid.h"
#include "engine/controls/window.h"
#include "engine/core/common_dialog.h"

namespace q {

class Console;
class CSparseMatrix;

class ChaserEditor : public Window {
 public:
  ChaserEditor(Console& c, int chaser);
  ~ChaserEditor() override;

  static std::string windowName(int chaser) { return chaser == 0 ? "FX1Config" : "FX2Config"; }
  int chaser() const { return chaser_; }

  // A cell is 400 by 255 twips; the grid shows this many of them.
  static constexpr double kCellWidth = 400, kCellHeight = 255;
  static constexpr int kVisibleColumns = 16, kVisibleRows = 20;
  // The step scroll bar stops here; steps further down need a taller window.
  static constexpr int kLastFirstStep = 50;

  // The step in the grid's top row and the channel in its left column.
  int FirstStep = 1;
  int FirstChannel = 1;
  // True while code moves Fader, SMaster or ScSpeed, so that their change
  // handlers write nothing back; true through the load.
  bool EditorUpdating = false;

  CellGrid& Picture1;  // the steps
  CellGrid& Picture2;  // channel numbers over the grid
  CellGrid& Picture3;  // step numbers, red while inside the chaser's count
  Scroller& hscScroll;
  Scroller& vscScroll;
  TextBox& txtStep;
  TextBox& txtChannel;
  Scroller& Fader;
  Label& SLevel;
  Label& Flash;
  Scroller& SMaster;
  Label& Label2;
  Scroller& ScSpeed;
  Label& Label3;
  CheckBox& ChkRandom;
  Label& lblTopLeft;

  // The grid's right button opens the Edit menu where the mouse is.
  std::function<void(const std::string& menu)> onPopupMenu;

  // Operator actions, as their controls run them.
  void gridMouseDown(const MouseEvent& e);
  void stepColumnMouseDown(const MouseEvent& e);
  void flashClick();
  void mnuNew();
  void mnuOpen();
  void mnuSaveAs();
  void mnuInsert();
  void mnuClear();
  void mnuClearAll();

  // The step whose row is marked as playing; 0 while the chaser is stopped.
  int playingStep() const { return playing_; }

 private:
  void load();
  void addMenus();
  void wireControls();
  void selectCell();
  void faderChange();
  // The step and channel of the two boxes. An empty box selects nothing; a
  // text that is no number, or one beyond a 16-bit cell address, is told.
  std::optional<std::pair<int16_t, int16_t>> currentCell();
  // FXStepCount is a byte: a count above 255 is told and not stored.
  bool setStepCount(long count);
  void clearStep(int16_t step);
  int16_t stepCount() const;
  CSparseMatrix& steps();

  // The panes (chaser_editor_panes.cpp).
  void setupPanes();
  CellGrid::Cell stepCell(int row, int column) const;
  CellGrid::Cell channelHeader(int column) const;
  CellGrid::Cell stepHeader(int row) const;
  void tableChanged(int firstStep, int lastStep, int firstChannel, int lastChannel);
  void repaintGrid();
  void repaintStepColumn();
  void followPlayingStep();
  void invalidateStepRow(int step);
  void invalidateCell(int step, int channel);
  void watchChaser();
  void unwatchChaser();

  Console& c_;
  int chaser_;
  CommonDialog dialog_;
  int playing_ = 0;
  int selStep_ = 0, selChannel_ = 0;
  int tableListener_ = 0, stepListener_ = 0, timerListener_ = 0;
};

}  // namespace q
