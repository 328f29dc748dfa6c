#include "engine/core/sparse_matrix.h"

#include <algorithm>

namespace q {

namespace {
constexpr int kRowOffset = 32768;
// Every row of a touched page is kept whether used or not, so a row stays small.
static_assert(sizeof(SparseRow) <= 24);
}  // namespace

CSparseMatrix::CSparseMatrix() = default;
CSparseMatrix::~CSparseMatrix() = default;

const SparseRow* CSparseMatrix::findRow(int16_t row) const {
  const int at = row + kRowOffset;
  const Page* page = pages_[at / kPageRows].get();
  return page ? &(*page)[at % kPageRows] : nullptr;
}

Value CSparseMatrix::Cell(int16_t row, int16_t column) const {
  const SparseRow* r = findRow(row);
  return r ? r->get(column) : Value{};
}

double CSparseMatrix::number(int16_t row, int16_t column) const {
  const SparseRow* r = findRow(row);
  return r ? r->number(column) : 0;
}

bool CSparseMatrix::cellIsEmpty(int16_t row, int16_t column) const {
  const SparseRow* r = findRow(row);
  return !r || !r->filled(column);
}

bool CSparseMatrix::levelBytes(int16_t row, int first, int count, uint8_t* out) const {
  std::fill(out, out + count, uint8_t(0));
  const SparseRow* r = findRow(row);
  if (!r) return true;
  r->copyLevels(first, count, out);
  return !r->othersIn(first, first + count - 1);
}

void CSparseMatrix::setCell(int16_t row, int16_t column, const Value& v) {
  ++version_;
  const int at = row + kRowOffset;
  std::unique_ptr<Page>& page = pages_[at / kPageRows];
  if (!page) {
    if (isEmpty(v)) return;  // empty in a row never stored reads the same as nothing
    page = std::make_unique<Page>();
  }
  SparseRow& r = (*page)[at % kPageRows];
  if (r.store(column, v)) changes.changed(row, column);
}

void CSparseMatrix::clearAll() {
  for (auto& page : pages_) page.reset();
  ++version_;
  changes.changed({INT16_MIN, INT16_MAX, INT16_MIN, INT16_MAX});
}

void CSparseMatrix::takeRows(CSparseMatrix& staged, const Wipe& wipe) {
  ++version_;
  ++staged.version_;
  int lo = INT16_MAX, hi = INT16_MIN;
  for (size_t p = 0; p < pages_.size(); ++p) {
    const int pageFirst = int(p) * kPageRows - kRowOffset;
    const bool wipes = wipe.firstRow <= pageFirst + kPageRows - 1 && wipe.lastRow >= pageFirst;
    Page* theirs = staged.pages_[p].get();
    if (!theirs && !(wipes && pages_[p])) continue;
    for (int k = 0; k < kPageRows; ++k) {
      const int row = pageFirst + k;
      SparseRow* mine = pages_[p] ? &(*pages_[p])[k] : nullptr;
      const bool wiped = row >= wipe.firstRow && row <= wipe.lastRow;
      if (!takeRow(mine, pages_[p], k, theirs ? &(*theirs)[k] : nullptr, wiped, wipe)) continue;
      lo = std::min(lo, row);
      hi = std::max(hi, row);
    }
  }
  if (lo <= hi) changes.changed({lo, hi, INT16_MIN, INT16_MAX});
}

bool CSparseMatrix::takeRow(SparseRow*& mine, std::unique_ptr<Page>& page, int place,
                            SparseRow* theirs, bool wiped, const Wipe& wipe) {
  const bool nothingStaged = !theirs || theirs->empty();
  const bool nothingMine = !mine || mine->empty();
  if (nothingStaged && (nothingMine || !wiped)) return false;
  if (nothingMine || (wiped && mine->onlyIn(wipe.firstColumn, wipe.lastColumn))) {
    // Nothing of this row outlives the wipe: the staged row is the result.
    if (nothingStaged) {
      SparseRow gone;
      std::swap(*mine, gone);
      return true;
    }
    if (!mine) {
      page = std::make_unique<Page>();
      mine = &(*page)[place];
    }
    std::swap(*mine, *theirs);
    return true;
  }
  // Cells outside the wiped columns stay: clear and store cell by cell, as a wipe and a read do.
  if (wiped)
    for (int col = wipe.firstColumn; col <= wipe.lastColumn; ++col)
      mine->store(int16_t(col), Value{});
  if (theirs) theirs->forEachCell([mine](int16_t col, const Value& v) { mine->store(col, v); });
  return true;
}

}  // namespace q
