#include "engine/core/sparse_row.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace q {

namespace {
constexpr int kBlocks = SparseRow::kLevelColumns / SparseRow::kBlockWidth;
// The pool is packed again once more than half of it, and more than this, is dead text.
constexpr uint32_t kWasteBeforeCompacting = 256;
}  // namespace

// ---- Bytes in the blocks ----

// Makes the blocks reach the given one, keeping what they hold. Growing,
// they at least double toward it (empty blocks have an empty mask): the
// channels of a cue come in one by one from the lowest, and a full cue then
// takes four allocations instead of eight.
void SparseRow::cover(int block) {
  if (blockCount_ > 0 && block >= firstBlock_ && block < firstBlock_ + blockCount_) return;
  int first = block;
  int last = block;
  if (blockCount_ > 0) {
    const int oldLast = firstBlock_ + blockCount_ - 1;
    const bool downward = block < firstBlock_;
    first = downward ? std::min(block, std::max(0, oldLast - 2 * blockCount_ + 1)) : firstBlock_;
    last = downward ? oldLast
                    : std::max(block, std::min(kBlocks - 1, firstBlock_ + 2 * blockCount_ - 1));
  }
  auto grown = std::make_unique<Block[]>(size_t(last - first + 1));
  for (int b = 0; b < blockCount_; ++b) grown[firstBlock_ - first + b] = blocks_[b];
  blocks_ = std::move(grown);
  firstBlock_ = uint8_t(first);
  blockCount_ = uint8_t(last - first + 1);
}

void SparseRow::setLevel(int16_t column, uint8_t level) {
  cover(blockNumber(column));
  Block& b = blocks_[blockNumber(column) - firstBlock_];
  const uint64_t bit = uint64_t(1) << placeInBlock(column);
  if (!(b.mask & bit)) ++levelCount_;
  b.mask |= bit;
  b.level[placeInBlock(column)] = level;
}

// The last level cleared gives the blocks back: a wiped cue keeps no block.
void SparseRow::clearLevel(int16_t column) {
  if (!inBlocks(column)) return;
  const Block* found = blockOf(column);
  const uint64_t bit = uint64_t(1) << placeInBlock(column);
  if (!found || !(found->mask & bit)) return;
  blocks_[blockNumber(column) - firstBlock_].mask &= ~bit;
  if (--levelCount_ == 0) {
    blocks_.reset();
    firstBlock_ = blockCount_ = 0;
  }
}

// A full block goes over whole, as a chaser step of all channels has them.
void SparseRow::copyLevels(int first, int count, uint8_t* out) const {
  for (int b = 0; b < blockCount_; ++b) {
    const Block& block = blocks_[b];
    // Where the block's first channel goes in out.
    const int at = (firstBlock_ + b) * kBlockWidth + kFirstLevelColumn - first;
    if (block.mask == ~uint64_t(0) && at >= 0 && at + kBlockWidth <= count) {
      std::memcpy(out + at, block.level, kBlockWidth);
      continue;
    }
    for (uint64_t m = block.mask; m != 0; m &= m - 1) {
      const int k = std::countr_zero(m);
      if (at + k >= 0 && at + k < count) out[at + k] = block.level[k];
    }
  }
}

// ---- The other cells ----

const SparseRow::Other* SparseRow::find(int16_t column) const {
  if (!others_) return nullptr;
  const std::vector<Other>& cells = others_->cells;
  // Most rows have only the cue record's cells, beyond the channels.
  if (column < cells.front().column || column > cells.back().column) return nullptr;
  auto it = std::lower_bound(cells.begin(), cells.end(), column,
                             [](const Other& o, int16_t c) { return o.column < c; });
  return it->column == column ? &*it : nullptr;
}

Value SparseRow::valueOf(const Other& o) const {
  switch (o.kind) {
    case kByte:
      return o.b;
    case kInt16:
      return o.i;
    case kDouble:
      return o.d;
    default:
      return std::string(textOf(o));
  }
}

double SparseRow::numberIn(const Other& o) const { return numberOr0(valueOf(o)); }

bool SparseRow::othersIn(int first, int last) const {
  if (!others_) return false;
  const std::vector<Other>& cells = others_->cells;
  auto it = std::lower_bound(cells.begin(), cells.end(), first,
                             [](const Other& o, int c) { return o.column < c; });
  return it != cells.end() && it->column <= last;
}

bool SparseRow::onlyIn(int first, int last) const {
  if (levelCount_ > 0) {
    const int lowest = firstBlock_ * kBlockWidth + kFirstLevelColumn;
    const int highest = (firstBlock_ + blockCount_) * kBlockWidth + kFirstLevelColumn - 1;
    if (lowest < first || highest > last) {
      // The blocks may reach past the range while their filled cells do not.
      for (int b = 0; b < blockCount_; ++b)
        for (uint64_t m = blocks_[b].mask; m != 0; m &= m - 1) {
          const int column =
              (firstBlock_ + b) * kBlockWidth + std::countr_zero(m) + kFirstLevelColumn;
          if (column < first || column > last) return false;
        }
    }
  }
  if (!others_) return true;
  const std::vector<Other>& cells = others_->cells;
  return cells.empty() || (cells.front().column >= first && cells.back().column <= last);
}

void SparseRow::dropText(const Other& o) {
  if (o.kind == kText) others_->poolWaste += o.text.size;
}

// A text no longer than the one it replaces takes its place in the pool.
void SparseRow::keepText(Other& o, const std::string& text) {
  std::string& pool = others_->pool;
  if (o.kind == kText && text.size() <= o.text.size) {
    std::memcpy(pool.data() + o.text.at, text.data(), text.size());
    others_->poolWaste += o.text.size - uint32_t(text.size());
    o.text.size = uint32_t(text.size());
    return;
  }
  dropText(o);
  o.kind = kText;
  o.text = {uint32_t(pool.size()), uint32_t(text.size())};
  pool += text;
}

bool SparseRow::poolWorthPacking() const {
  const Others& x = *others_;
  return x.poolWaste > kWasteBeforeCompacting && x.poolWaste * 2 > x.pool.size();
}

void SparseRow::compactPool() {
  Others& x = *others_;
  std::string packed;
  packed.reserve(x.pool.size() - x.poolWaste);
  for (Other& o : x.cells)
    if (o.kind == kText) {
      const std::string_view t = textOf(o);
      o.text.at = uint32_t(packed.size());
      packed += t;
    }
  x.pool = std::move(packed);
  x.poolWaste = 0;
}

void SparseRow::setOther(int16_t column, const Value& v) {
  if (!others_) others_ = std::make_unique<Others>();
  std::vector<Other>& cells = others_->cells;
  auto it = std::lower_bound(cells.begin(), cells.end(), column,
                             [](const Other& o, int16_t c) { return o.column < c; });
  if (it == cells.end() || it->column != column) {
    Other fresh{};
    fresh.column = column;
    fresh.kind = kByte;
    it = cells.insert(it, fresh);
  }
  Other& o = *it;
  switch (v.index()) {
    case 1:
      dropText(o);
      o.kind = kByte;
      o.b = std::get<uint8_t>(v);
      break;
    case 2:
      dropText(o);
      o.kind = kInt16;
      o.i = std::get<int16_t>(v);
      break;
    case 3:
      dropText(o);
      o.kind = kDouble;
      o.d = std::get<double>(v);
      break;
    default:
      keepText(o, std::get<std::string>(v));
      break;
  }
  if (poolWorthPacking()) compactPool();
}

void SparseRow::removeOther(int16_t column) {
  const Other* found = find(column);
  if (!found) return;
  dropText(*found);
  std::vector<Other>& cells = others_->cells;
  cells.erase(cells.begin() + (found - cells.data()));
  if (cells.empty())
    others_.reset();  // the last other cell gone: the list and the pool go with it
  else if (poolWorthPacking())
    compactPool();
}

// ---- The cell ----

Value SparseRow::get(int16_t column) const {
  uint8_t level;
  if (levelAt(column, level)) return level;
  const Other* o = find(column);
  return o ? valueOf(*o) : Value{};
}

double SparseRow::number(int16_t column) const {
  uint8_t level;
  if (levelAt(column, level)) return level;
  const Other* o = find(column);
  return o ? numberIn(*o) : 0;
}

bool SparseRow::holds(int16_t column, const Value& v) const {
  uint8_t level;
  if (levelAt(column, level)) return v.index() == 1 && std::get<uint8_t>(v) == level;
  // A byte of a channel is only ever in the blocks.
  if (v.index() == 1 && inBlocks(column)) return false;
  const Other* o = find(column);
  switch (v.index()) {
    case 0:
      return !o;
    case 1:
      return o && o->kind == kByte && o->b == std::get<uint8_t>(v);
    case 2:
      return o && o->kind == kInt16 && o->i == std::get<int16_t>(v);
    case 3:
      return o && o->kind == kDouble && o->d == std::get<double>(v);
    default:
      return o && o->kind == kText && textOf(*o) == std::get<std::string>(v);
  }
}

void SparseRow::set(int16_t column, const Value& v) {
  if (v.index() == 1 && inBlocks(column)) {
    removeOther(column);
    setLevel(column, std::get<uint8_t>(v));
    return;
  }
  clearLevel(column);
  if (isEmpty(v))
    removeOther(column);
  else
    setOther(column, v);
}

static_assert(kBlocks <= 255, "block numbers are kept in a byte");

}  // namespace q
