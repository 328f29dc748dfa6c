#pragma once
// The column under edit (EditColumn, counted from 1) as the channel views
// read and write it. A channel outside 1..512 or a column outside the table
// is never touched: reading it gives 0 and writing it does nothing.

#include <cstdint>
#include <string>

#include "engine/core/variables.h"

namespace q {

inline bool isChannel(long channel) { return channel >= 1 && channel <= kChannels; }

inline bool editColumnValid(const Variables& v) {
  return v.EditColumn >= 1 && v.EditColumn <= kColumns;
}

// The level of a channel in the column under edit.
inline uint8_t editLevel(const Variables& v, long channel) {
  if (!isChannel(channel) || !editColumnValid(v)) return 0;
  return v.ChanTable.get(int(channel), v.EditColumn - 1);
}

// Stores a level in the column under edit. The caller raises MixDirty.
inline void storeEditLevel(Variables& v, long channel, uint8_t level) {
  if (!isChannel(channel) || !editColumnValid(v)) return;
  v.ChanTable.set(int(channel), v.EditColumn - 1, level);
}

// What a channel window's title calls the column: "Stage", "Program" or
// "Submaster n".
inline std::string editColumnTitle(int column) {
  if (column == 1) return "Stage";
  if (column == 2) return "Program";
  return "Submaster " + std::to_string(column - 2);
}

}  // namespace q
