#pragma once
// CSparseMatrix: the table behind the cue list and the two chasers' steps.
// Cells are addressed by a 16-bit row and column and hold a tagged Value.
// A cell never stored reads as empty; storing empty clears it. Rows come
// into being on first store and are never removed; the table keeps no count
// of rows (the cue list keeps CueCount).
//
// Storage is built for the two hot uses: the mixer reads one chaser step per
// channel on every mix, and a show load fills thousands of cue rows of 512
// channels. Rows sit in a direct index by row number; each row keeps a dense
// run of compact cells for columns 0..1023 and a small map for the rest.

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

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
  // Grows with every store, so a reader may keep what it derived from the
  // table (the mixer keeps each chaser's current step) until it changes.
  uint64_t version() const { return version_; }

  // Forgets every row (a new table), for tests and for a reset of a whole instance.
  void clearAll();

  // Told of every cell whose value changed: rows and columns as stored.
  TableNotifier changes;

 private:
  struct Slot;
  struct Row;
  const Slot* slot(int16_t row, int16_t column) const;
  bool holds(const Slot* s, const std::string* texts, const Value& v) const;
  static void store(Row& r, int16_t column, const Value& v);
  std::vector<std::unique_ptr<Row>> rows_;  // indexed by row + 32768
  uint64_t version_ = 0;
};

}  // namespace q
