#pragma once
// CSparseMatrix: the table behind the cue list and the two chasers' steps.
// Cells are addressed by a 16-bit row and column and hold a tagged Value.
// A cell never stored reads as empty; storing empty clears it. Rows come
// into being on first store; a row whose cells were all cleared reads just
// as one never stored. The table keeps no count of rows (the cue list keeps
// CueCount).
//
// Storage is built for the two hot uses: the mixer reads one chaser step per
// channel on every mix, and a show load fills thousands of cue rows of 512
// channels. Rows sit in pages of 256 rows, each page made on the first
// store into it; a row keeps its levels a byte a channel and the rare other
// cells apart (SparseRow). A row with nothing filled holds no memory beyond
// its place in a page: a wiped or never used cue costs 24 bytes.

#include <array>
#include <cstdint>
#include <memory>

#include "engine/core/sparse_row.h"
#include "engine/core/table_change.h"
#include "engine/core/value.h"

namespace q {

class CSparseMatrix {
 public:
  CSparseMatrix();
  ~CSparseMatrix();
  CSparseMatrix(const CSparseMatrix&) = delete;
  CSparseMatrix& operator=(const CSparseMatrix&) = delete;

  Value Cell(int16_t row, int16_t column) const;
  void setCell(int16_t row, int16_t column, const Value& v);

  // The hot read of the mixer: the cell as a number, empty and text as 0.
  double number(int16_t row, int16_t column) const;
  bool cellIsEmpty(int16_t row, int16_t column) const;
  // The mixer's read of a whole chaser step: the byte cells of columns
  // first..first+count-1 of a row into out[column - first], 0 for every
  // other cell. False when one of those cells holds a number of another
  // kind or a text, which only number() reads right.
  bool levelBytes(int16_t row, int first, int count, uint8_t* out) const;
  // Grows with every store, so a reader may keep what it derived from the
  // table (the mixer keeps each chaser's current step) until it changes.
  uint64_t version() const { return version_; }

  // Forgets every row (a new table), for tests and for a reset of a whole instance.
  void clearAll();

  // Takes in a table read elsewhere (a file parsed away from the console
  // thread), in one step: the same as clearing columns wipeFirstColumn..
  // wipeLastColumn of rows wipeFirstRow..wipeLastRow and then storing every
  // filled cell of staged here. A row left with nothing of its own after the
  // wipe simply trades places with the staged one, so a long list goes in
  // without a cell-by-cell copy; staged is left with what was replaced.
  struct Wipe {
    int firstRow, lastRow, firstColumn, lastColumn;
  };
  void takeRows(CSparseMatrix& staged, const Wipe& wipe);

  // Told of every cell whose value changed: rows and columns as stored.
  TableNotifier changes;

 private:
  static constexpr int kPageRows = 256;
  using Page = std::array<SparseRow, kPageRows>;
  const SparseRow* findRow(int16_t row) const;
  // One row of takeRows; true when it changed.
  static bool takeRow(SparseRow*& mine, std::unique_ptr<Page>& page, int place, SparseRow* theirs,
                      bool wiped, const Wipe& wipe);

  std::array<std::unique_ptr<Page>, 65536 / kPageRows> pages_;  // by (row + 32768) / 256
  uint64_t version_ = 0;
};

}  // namespace q
