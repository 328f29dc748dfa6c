#pragma once
// frmSparseMatrix, "Channels Matrix": every source column of the channel
// table by channel, one row a source (Stage, Prog, the twenty submasters and
// the spare column), with the frame as it goes out in a strip of its own.
// A cell goes up or down one level for each step of a drag over it, or takes
// a typed level; the window scrolls over the channels and the rows.
//
// Everything shown is read from the tables as it is painted. The grid
// follows the channel table's change notices and the strip follows every
// mix, each only while the window stands in its normal state (neither
// minimised nor maximised); coming back to normal repaints it all.

#include <initializer_list>
#include <vector>

#include "engine/controls/cell_grid.h"
#include "engine/controls/window.h"
#include "engine/views/matrix_layout.h"

namespace q {

class Console;
struct TableChange;

class ChannelsMatrix : public Window {
 public:
  enum class State { Normal, Minimized, Maximized };

  explicit ChannelsMatrix(Console& c);
  ~ChannelsMatrix() override;

  // The window took a new size, in twips; in its normal state the height is
  // held between its limits, so height() may differ from what was given.
  void resize(double width, double height);
  double width() const { return layout_.width; }
  double height() const { return layout_.height; }
  State windowState() const { return state_; }
  void setWindowState(State s);
  // Where each part of the window stands, in twips.
  const MatrixLayout& layout() const { return layout_; }
  // Told when the parts moved or changed size (a resize, the cell editor laid over a cell).
  Listeners<> placesChanged;

  CellGrid& Picture1;  // the grid
  CellGrid& Picture2;  // channel numbers over it
  CellGrid& Picture3;  // the output strip
  CellGrid& Picture4;  // row headings
  Label& Lbl1;         // "OUT", the strip's heading
  Scroller& vscScroll;
  Scroller& hscScroll;
  Label& lblTopLeft;
  TextBox& txtedit;

  // The view's own state.
  int topRow = 1;
  int leftChannel = 1;
  int currentChannel = 0;  // of the last pressed cell
  int currentRow = 0;
  bool dragging = false;
  float lastY = 0;  // Y of the last drag step, kept from one drag to the next

  // The level a row and channel show, or -1 beyond the channel table.
  int levelAt(int row, int channel) const;

 private:
  void wire();
  void load();
  void press(const MouseEvent& e);
  void dragStep(const MouseEvent& e);
  void openEditor();
  void enterLevel();
  // Repaints the panes a scroll moved, with the strip's record and the position text.
  void scrolled(std::initializer_list<CellGrid*> panes);
  void showPosition();
  void applyLayout();
  CellGrid::Cell gridCell(int r, int c) const;
  // The frame byte under a column of the strip, -1 beyond the channels in use.
  int outputByte(int c) const;
  CellGrid::Cell outputCell(int c) const;
  // Table notices and mixes, turned into the cells they touch.
  void tableChanged(const TableChange& ch);
  void outputMixed();
  void repaintAll();
  bool paints() const { return state_ == State::Normal; }
  bool onTable(int row, int channel) const;

  Console& c_;
  MatrixLayout layout_;
  State state_ = State::Normal;
  // The bytes the strip shows, by pane column (-1 for none), to repaint only those that changed.
  std::vector<int> shownOutput_;
  int tableListener_ = 0;
  int mixListener_ = 0;
};

// Gives the console the matrix window and its menu entry.
void addChannelsMatrix(Console& c);

}  // namespace q
