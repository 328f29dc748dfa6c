#pragma once
// The tables the windows show (the channel table, the patch, the cue list,
// the chaser steps) tell any number of listeners which cells changed, so a
// pane repaints what changed and nothing else. A change is a rectangle of
// rows and columns in the table's own numbering. Bulk writers (a file read, a
// reset, a cue loaded into a column) wrap their work in a batch: its changes
// are told once, as the rectangle that holds them all, when it ends.

#include <algorithm>
#include <functional>
#include <optional>

#include "engine/controls/listeners.h"

namespace q {

struct TableChange {
  int firstRow, lastRow;
  int firstColumn, lastColumn;
  bool contains(int row, int column) const {
    return row >= firstRow && row <= lastRow && column >= firstColumn && column <= lastColumn;
  }
  bool operator==(const TableChange&) const = default;
};

class TableNotifier {
 public:
  using Listener = std::function<void(const TableChange&)>;

  int listen(Listener l) { return listeners_.add(std::move(l)); }
  void unlisten(int id) { listeners_.remove(id); }
  bool watched() const { return !listeners_.empty(); }
  size_t listenerCount() const { return listeners_.size(); }

  void changed(int row, int column) { changed({row, row, column, column}); }
  void changed(const TableChange& c) {
    if (depth_ > 0) {
      merge(c);
      return;
    }
    listeners_.notify(c);
  }

  // Holds the notices back until it ends; batches nest.
  class [[nodiscard]] Batch {
   public:
    explicit Batch(TableNotifier& n) : n_(n) { ++n_.depth_; }
    ~Batch() { n_.endBatch(); }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

   private:
    TableNotifier& n_;
  };
  Batch batch() { return Batch(*this); }

 private:
  void merge(const TableChange& c) {
    if (!pending_) {
      pending_ = c;
      return;
    }
    pending_->firstRow = std::min(pending_->firstRow, c.firstRow);
    pending_->lastRow = std::max(pending_->lastRow, c.lastRow);
    pending_->firstColumn = std::min(pending_->firstColumn, c.firstColumn);
    pending_->lastColumn = std::max(pending_->lastColumn, c.lastColumn);
  }
  void endBatch() {
    if (--depth_ > 0 || !pending_) return;
    const TableChange c = *pending_;
    pending_.reset();
    listeners_.notify(c);
  }

  Listeners<const TableChange&> listeners_;
  int depth_ = 0;
  std::optional<TableChange> pending_;
};

}  // namespace q
