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

}  // namespace q
