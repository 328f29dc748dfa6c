#include "engine/playback/cue_record.h"

#include <algorithm>
#include <cmath>

#include "engine/core/variables.h"

namespace q {

bool cellEquals(const Value& cell, double number) {
  auto n = numberOf(cell);
  return n && *n == number;
}

bool cellEqualsText(const Value& cell, const std::string& text) {
  if (isEmpty(cell)) return text.empty();
  if (auto* s = std::get_if<std::string>(&cell)) return *s == text;
  auto boxNumber = parseNumber(text);
  return boxNumber && *boxNumber == numberOr0(cell);
}

uint8_t cellLevel(const Value& cell) {
  const double n = numberOr0(cell);
  // A hand-edited level above 255 or below 0 is held at the nearest end rather
  // than refused, so a cue with one bad cell still loads the rest of its look.
  return uint8_t(std::clamp(roundHalfEven(n), 0L, 255L));
}

Value cueCell(const Variables& v, long row, int column) {
  if (row < INT16_MIN || row > INT16_MAX) return {};
  return v.Cues.Cell(int16_t(row), int16_t(column));
}

void wipeCue(Variables& v, int16_t row) {
  for (int col = 1; col <= cue::kLastWiped; ++col) v.Cues.setCell(row, int16_t(col), Value{});
}

void wipeCues(Variables& v) {
  for (int row = 1; row <= v.CueCount; ++row) wipeCue(v, int16_t(row));
  v.CueCount = 0;
}

}  // namespace q
