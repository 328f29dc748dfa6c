#include "engine/cuelist/cue_sort.h"

#include <vector>

#include "engine/playback/cue_record.h"

namespace q {

namespace {
constexpr int kLastMoved = cue::kVar;  // 521

void moveCell(CSparseMatrix& cues, int from, int to, int column, bool keepSource) {
  const auto c = int16_t(column);
  cues.setCell(int16_t(to), c, cues.Cell(int16_t(from), c));
  if (!keepSource) cues.setCell(int16_t(from), c, Value{});
}
}  // namespace

bool SortCues(Variables& v) {
  const int n = v.CueCount;
  if (n > kMaxSortedCues) return false;
  CSparseMatrix& cues = v.Cues;
  auto batch = cues.changes.batch();

  // 1. The list copied below itself.
  for (v.I = 1; v.I <= n; ++v.I)
    for (v.J = 1; v.J <= kLastMoved; ++v.J) moveCell(cues, v.I, v.I + n, v.J, true);

  // 2. The copies' numbers, read once; a row taken reads as 0 from then on.
  std::vector<double> number(size_t(n) + 1);
  for (int k = n + 1; k <= 2 * n; ++k)
    number[size_t(k - n)] = cues.number(int16_t(k), cue::kNumber);
  auto numberOf = [&](int row) { return number[size_t(row - n)]; };

  // b is never reset: it starts each pass on the row the last pass emptied.
  int b = n + 1;
  for (int p = 1; p <= n; ++p) {
    for (int k = n + 1; k <= 2 * n; ++k)
      if (numberOf(b) < numberOf(k)) b = k;
    for (v.J = 1; v.J <= kLastMoved; ++v.J) moveCell(cues, b, n + 1 - p, v.J, false);
    number[size_t(b - n)] = 0;
  }
  return true;
}

}  // namespace q
