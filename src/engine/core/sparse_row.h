#pragma once
// One row of a CSparseMatrix: a cue of the cue list or a step of a chaser.
//
// Almost everything a row holds is channel levels: bytes in columns 1..512.
// They sit densely, a byte a channel, in blocks of 64 channels with a mask
// of the channels filled; the blocks cover the filled channels and grow by
// doubling toward a new one, and go when the last level is cleared. Every other filled cell (the
// cue record's texts, a number of another kind in a channel column, a byte in any other column)
// sits in a short list sorted by column, its text in one pool of the row. A row with nothing filled
// holds no memory beyond its own 24 bytes.
//
// A column is in one place at a time: a byte stored over a text leaves the
// list for the blocks, and a text stored over a byte the other way round.

#include <bit>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/core/value.h"

namespace q {

class SparseRow {
 public:
  // Columns whose bytes are kept in blocks: the channels.
  static constexpr int kFirstLevelColumn = 1;
  static constexpr int kLevelColumns = 512;
  static constexpr int kBlockWidth = 64;

  bool empty() const { return levelCount_ == 0 && !others_; }
  bool filled(int16_t column) const {
    uint8_t level;
    return levelAt(column, level) || (others_ && find(column));
  }
  Value get(int16_t column) const;
  // The cell as a number: empty and text that is no number read as 0.
  double number(int16_t column) const;
  // Whether the cell holds exactly this value, of the same kind.
  bool holds(int16_t column, const Value& v) const;
  // Stores the value as it is; empty clears the cell.
  void set(int16_t column, const Value& v);
  // Stores the value unless the cell holds exactly it already; true when the
  // cell changed. A level into a block the row has, or cleared, is stored
  // right here: a show load and the cue list's sort store hundreds of
  // thousands of them.
  bool store(int16_t column, const Value& v);

  // The byte cells of the blocks among columns first..first+count-1 written
  // into out[column - first]; the other places of out are left as they were.
  void copyLevels(int first, int count, uint8_t* out) const;
  // Whether a cell of columns first..last holds anything but a byte of the blocks.
  bool othersIn(int first, int last) const;
  // Whether every filled cell lies among columns first..last.
  bool onlyIn(int first, int last) const;
  // Calls f(column, value) for every filled cell: the levels, then the other cells.
  template <class F>
  void forEachCell(F f) const {
    for (int b = 0; b < blockCount_; ++b)
      for (uint64_t m = blocks_[b].mask; m != 0; m &= m - 1) {
        const int k = std::countr_zero(m);
        f(int16_t((firstBlock_ + b) * kBlockWidth + k + kFirstLevelColumn),
          Value(blocks_[b].level[k]));
      }
    if (others_)
      for (const Other& o : others_->cells) f(o.column, valueOf(o));
  }

 private:
  struct Block {
    uint64_t mask = 0;  // bit k: channel block*64 + k + 1 is filled
    uint8_t level[kBlockWidth] = {};
  };
  enum Kind : uint8_t { kByte, kInt16, kDouble, kText };
  struct TextRef {
    uint32_t at, size;  // in the pool
  };
  struct Other {
    int16_t column;
    Kind kind;
    union {
      uint8_t b;
      int16_t i;
      double d;
      TextRef text;
    };
  };

  static bool inBlocks(int16_t column) {
    return column >= kFirstLevelColumn && column < kFirstLevelColumn + kLevelColumns;
  }
  // A channel column's block and its place in it.
  static int blockNumber(int16_t column) {
    return int(unsigned(column - kFirstLevelColumn) / kBlockWidth);
  }
  static int placeInBlock(int16_t column) {
    return int(unsigned(column - kFirstLevelColumn) % kBlockWidth);
  }
  // Kept here, inline: every read and store of a cell starts with them.
  const Block* blockOf(int16_t column) const {
    const int b = blockNumber(column) - firstBlock_;
    return b >= 0 && b < blockCount_ ? &blocks_[b] : nullptr;
  }
  Block* blockAt(int16_t column) {
    const int b = blockNumber(column) - firstBlock_;
    return b >= 0 && b < blockCount_ ? &blocks_[b] : nullptr;
  }
  bool levelAt(int16_t column, uint8_t& level) const {
    if (!inBlocks(column)) return false;
    const Block* b = blockOf(column);
    const int k = placeInBlock(column);
    if (!b || !(b->mask >> k & 1)) return false;
    level = b->level[k];
    return true;
  }
  void setLevel(int16_t column, uint8_t level);
  void clearLevel(int16_t column);
  void cover(int block);

  const Other* find(int16_t column) const;
  Value valueOf(const Other& o) const;
  double numberIn(const Other& o) const;
  std::string_view textOf(const Other& o) const {
    return {others_->pool.data() + o.text.at, o.text.size};
  }
  void setOther(int16_t column, const Value& v);
  void removeOther(int16_t column);
  void dropText(const Other& o);
  void keepText(Other& o, const std::string& text);
  bool poolWorthPacking() const;
  void compactPool();

  // The other cells of a row that has any, sorted by column.
  struct Others {
    std::vector<Other> cells;
    std::string pool;
    uint32_t poolWaste = 0;  // bytes of the pool no text uses any more
  };

  std::unique_ptr<Block[]> blocks_;  // blocks firstBlock_ .. firstBlock_ + blockCount_ - 1
  std::unique_ptr<Others> others_;
  uint8_t firstBlock_ = 0;
  uint8_t blockCount_ = 0;
  uint16_t levelCount_ = 0;  // filled byte cells in the blocks
};

inline bool SparseRow::store(int16_t column, const Value& v) {
  if (inBlocks(column)) {
    if (isEmpty(v)) {  // a level cleared, as a wipe does all of them
      const Block* b = blockOf(column);
      if (b && (b->mask >> placeInBlock(column) & 1)) {
        clearLevel(column);
        return true;
      }
      if (!others_) return false;
    } else if (const uint8_t* level = std::get_if<uint8_t>(&v)) {
      if (Block* b = blockAt(column)) {
        const int k = placeInBlock(column);
        const uint64_t bit = uint64_t(1) << k;
        if (b->mask & bit) {
          if (b->level[k] == *level) return false;
          b->level[k] = *level;
          return true;
        }
        if (!others_) {  // else a cell of another kind may sit in this column
          b->mask |= bit;
          b->level[k] = *level;
          ++levelCount_;
          return true;
        }
      }
    }
  }
  if (holds(column, v)) return false;
  set(column, v);
  return true;
}

}  // namespace q
