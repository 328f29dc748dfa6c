// The chaser file (.qfx): a chaser's steps, one "CHAN:" line each. The
// reader looks at the first letter alone, so a file of either chaser loads
// into either; it never clears the table, and "RANDOM:NO" leaves the flag.

#include "engine/core/console.h"
#include "engine/showfiles/file_numbers.h"
#include "engine/showfiles/line_file.h"
#include "engine/showfiles/show_formats.h"

namespace q {

void LoadChaser(Console& c, const std::string& path, int chaser) {
  auto batch = c.v.fxData(chaser).changes.batch();
  LineReader r(path);
  DirtyOnExit dirty(c.v);
  Variables& v = c.v;
  CSparseMatrix& steps = v.fxData(chaser);
  long step = 1;
  while (r.next()) {
    const char first = r.line().empty() ? '\0' : r.line()[0];
    if (first == 'R') {
      if (r.rest(7) == "YES") v.FXRandom[chaser & 1] = kTrue;
    } else if (first == 'C') {
      const std::string_view list = r.rest(5);
      if (step > INT16_MAX) r.fail("more than 255 steps");
      readPairs(r, list, 1, kChannels,
                [&](long ch, uint8_t level) { steps.setCell(int16_t(step), int16_t(ch), level); });
      ++step;
    }
  }
  // The count is a byte: a longer file has left its steps but can't set it.
  if (step - 1 > 255) r.fail("more than 255 steps");
  v.FXStepCount[chaser & 1] = int16_t(step - 1);
}

void SaveChaser(Console& c, const std::string& path, int chaser, VBool random) {
  writeFileWhole(path, chaserText(c, chaser, random));
}

std::string chaserText(const Console& c, int chaser, VBool random) {
  const Variables& v = c.v;
  const CSparseMatrix& steps = (chaser & 1) == 0 ? v.FX1Data : v.FX2Data;
  TextOut out;
  out.line("FX:" + std::to_string(chaser & 1));
  out.line("SHOW:", v.ShowName);
  out.line("DATE:", v.ShowDate);
  out.line(random == kTrue ? "RANDOM:YES" : "RANDOM:NO");
  out.rule();
  for (int step = 1; step <= v.FXStepCount[chaser & 1]; ++step) {
    std::string list;
    // A filled cell counts even when it holds 0; only an empty one is left out.
    for (int ch = 1; ch <= v.MaxChans; ++ch)
      if (!steps.cellIsEmpty(int16_t(step), int16_t(ch)))
        appendPair(list, ch, toText(steps.Cell(int16_t(step), int16_t(ch))));
    out.line("CHAN:", list);
    out.rule();
  }
  return out.text();
}

}  // namespace q
