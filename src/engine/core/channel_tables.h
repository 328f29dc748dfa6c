#pragma once
// The two per-channel tables that windows show and the mixer reads on every
// mix: ChanTable (512 channels by 24 source columns) and PatchMap (the
// logical channel feeding each output). Writes go through set() (or a cell
// reference, which calls it) so that views hear of them; the mixer reads the
// rows directly.

#include <array>
#include <cstdint>

#include "engine/core/table_change.h"

namespace q {

constexpr int kChannels = 512;
constexpr int kColumns = 24;  // ChanTable columns: 0 Stage, 1 Prog, 2..21 subs, 22 spare, 23 MIDI

// A cell of a table seen as a value: reading converts, assigning writes through the table.
template <class Table, class T>
class CellRef {
 public:
  CellRef(Table& t, int a, int b) : t_(t), a_(a), b_(b) {}
  operator T() const { return t_.get(a_, b_); }
  CellRef& operator=(T value) {
    t_.set(a_, b_, value);
    return *this;
  }
  CellRef& operator=(const CellRef& other) { return *this = T(other); }

 private:
  Table& t_;
  int a_, b_;
};

// Rows are channels 1..512, columns 0..23.
class ChannelTable {
 public:
  using Row = std::array<uint8_t, kColumns>;
  using Cell = CellRef<ChannelTable, uint8_t>;

  uint8_t get(int channel, int column) const { return rows_[channel - 1][column]; }
  void set(int channel, int column, uint8_t level) {
    uint8_t& cell = rows_[channel - 1][column];
    if (cell == level) return;
    cell = level;
    changes.changed(channel, column);
  }
  // The row of a channel by its index (channel - 1), as the mixer reads it.
  const Row& row(int index) const { return rows_[index]; }

  // By index (channel - 1) and column, as the console's code has always written them.
  class RowRef {
   public:
    RowRef(ChannelTable& t, int index) : t_(t), index_(index) {}
    Cell operator[](int column) { return Cell(t_, index_ + 1, column); }

   private:
    ChannelTable& t_;
    int index_;
  };
  RowRef operator[](int index) { return RowRef(*this, index); }
  const Row& operator[](int index) const { return rows_[index]; }

  // Every cell to 0.
  void clear() {
    rows_ = {};
    changes.changed({1, kChannels, 0, kColumns - 1});
  }

  TableNotifier changes;

 private:
  std::array<Row, kChannels> rows_{};
};

// Rows are output channels 1..512, one column: the logical channel, 0 or less for none.
class PatchTable {
 public:
  using Entry = CellRef<PatchTable, int16_t>;

  int16_t get(int output, int = 0) const { return map_[output - 1]; }
  void set(int output, int, int16_t logical) {
    int16_t& e = map_[output - 1];
    if (e == logical) return;
    e = logical;
    changes.changed(output, 0);
  }
  void set(int output, int16_t logical) { set(output, 0, logical); }
  // By index (output - 1).
  Entry operator[](int index) { return Entry(*this, index + 1, 0); }
  int16_t operator[](int index) const { return map_[index]; }
  void fill(int16_t logical) {
    map_.fill(logical);
    changes.changed({1, kChannels, 0, 0});
  }

  TableNotifier changes;

 private:
  std::array<int16_t, kChannels> map_{};
};

}  // namespace q
