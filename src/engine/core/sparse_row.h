#pragma once
// One row of a CSparseMatrix: a cue of the cue list or a step of a chaser.
//
// Almost everything a row holds is channel levels: bytes in columns 1..512.
// They sit densely, a byte a column, in blocks of 64 columns with a mask of
// the columns filled; only the blocks between the lowest and the highest
// filled one exist. Every other filled cell (the cue record's texts, a number
// of another kind in a level column, a byte in a column beyond the blocks)
// sits in a short list sorted by column, its text in one pool of the row.
// A row with nothing filled holds no memory at all.
//
// A column is in one place at a time: a byte stored over a text leaves the
// list for the blocks, and a text stored over a byte the other way round.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/core/value.h"

namespace q {

class SparseRow {
 public:
  // Columns whose bytes are kept in blocks: the channels and the cue record.
  static constexpr int kBlockWidth = 64;
  static constexpr int kBlockColumns = 1024;

  bool empty() const { return levelCount_ == 0 && others_.empty(); }
  bool filled(int16_t column) const;
  Value get(int16_t column) const;
  // The cell as a number: empty and text that is no number read as 0.
  double number(int16_t column) const;
  // Whether the cell holds exactly this value, of the same kind.
  bool holds(int16_t column, const Value& v) const;
  // Stores the value as it is; empty clears the cell.
  void set(int16_t column, const Value& v);

  // The byte cells of the blocks among columns first..first+count-1 written
  // into out[column - first]; the other places of out are left as they were.
  void copyLevels(int first, int count, uint8_t* out) const;
  // Whether a cell of columns first..last holds anything but a byte of the blocks.
  bool othersIn(int first, int last) const;

 private:
  struct Block {
    uint64_t mask = 0;  // bit k: column block*64 + k is filled
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

  static bool inBlocks(int16_t column) { return column >= 0 && column < kBlockColumns; }
  const Block* blockOf(int16_t column) const;
  bool levelAt(int16_t column, uint8_t& level) const;
  void setLevel(int16_t column, uint8_t level);
  void clearLevel(int16_t column);
  void cover(int block);

  const Other* find(int16_t column) const;
  Value valueOf(const Other& o) const;
  double numberIn(const Other& o) const;
  std::string_view textOf(const Other& o) const { return {pool_.data() + o.text.at, o.text.size}; }
  void setOther(int16_t column, const Value& v);
  void removeOther(int16_t column);
  void dropText(const Other& o);
  void keepText(Other& o, const std::string& text);
  void compactPool();

  std::unique_ptr<Block[]> blocks_;  // blocks firstBlock_ .. firstBlock_ + blockCount_ - 1
  uint8_t firstBlock_ = 0;
  uint8_t blockCount_ = 0;
  uint16_t levelCount_ = 0;  // filled byte cells in the blocks
  uint32_t poolWaste_ = 0;   // bytes of the pool no text uses any more
  std::vector<Other> others_;
  std::string pool_;
};

}  // namespace q
