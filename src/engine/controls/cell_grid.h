#pragma once
// A pane drawn as a grid of equal cells: the cue list's panes, the matrix,
// the chaser steps. Its size, the size of a cell and the points of its mouse
// events are in the window's own units (twips). What each cell shows is the
// window's business, asked cell by cell when a view paints, so a view draws
// only the cells it can see; the window tells which cells changed.

#include <functional>
#include <string>

#include "engine/controls/control.h"
#include "engine/core/table_change.h"

namespace q {

class CellGrid : public Control {
 public:
  struct Cell {
    enum class Align { Left, Center, Right };
    std::string text;
    int foreColor = -1;  // 0xRRGGBB; -1 the pane's
    int backColor = -1;
    bool bold = false;
    Align align = Align::Center;
  };

  CellGrid(std::string name, double cellW, double cellH)
      : Control(std::move(name)), cellWidth(cellW), cellHeight(cellH) {}

  // Cell (row, column) lies at (column x cellWidth, row x cellHeight).
  double cellWidth, cellHeight;
  int rows = 0, columns = 0;
  // The pane's own size in window units.
  double width = 0, height = 0;
  int backColor = 0x000000;
  int foreColor = 0xFFFFFF;
  int gridColor = -1;  // -1: no lines between the cells
  double fontPoints = 8;
  // Where a cell's text starts, from the cell's left and top edges in window
  // units; -1: the text is aligned in the cell as the cell asks.
  double textLeft = -1, textTop = -1;
  std::function<Cell(int row, int column)> cellAt;

  Cell cell(int row, int column) const { return cellAt ? cellAt(row, column) : Cell{}; }
  // The cells shown changed: rows and columns counted in the pane's cells.
  void invalidate(int firstRow, int lastRow, int firstColumn, int lastColumn) {
    cells.changed({firstRow, lastRow, firstColumn, lastColumn});
  }
  void invalidateAll() { invalidate(0, rows, 0, columns); }
  // The pane's geometry or colours changed: views lay it out again.
  void reshape() { notifyView(); }

  // Told which cells changed.
  TableNotifier cells;

  std::string value() const override { return {}; }
};

}  // namespace q
