// The channels file (.qch): one column of levels, read into whatever column
// is being edited when it is loaded. A load merges: channels the file
// doesn't name keep their levels.

#include "engine/core/console.h"
#include "engine/showfiles/file_numbers.h"
#include "engine/showfiles/line_file.h"
#include "engine/showfiles/show_formats.h"
#include "engine/showfiles/text_codec.h"

namespace q {

namespace {
int editColumnIndex(const LineReader& r, const Variables& v) {
  if (v.EditColumn < 1 || v.EditColumn > kColumns) r.fail("no column to load into");
  return v.EditColumn - 1;
}
}  // namespace

void LoadChannels(Console& c, const std::string& path) {
  auto batch = c.v.ChanTable.changes.batch();
  LineReader r(path);
  DirtyOnExit dirty(c.v);
  Variables& v = c.v;
  while (r.next()) {
    const char first = r.line().empty() ? '\0' : r.line()[0];
    if (first == 'N') {
      // A named look announces itself; the clipboard is saved nameless and stays quiet.
      const std::string name = r.restText(5);
      if (!name.empty()) c.dialogs().msgBox("Load Single File", "Loaded:" + name, MsgButtons::OK);
    } else if (first == 'C') {
      const std::string_view list = r.rest(5);
      // Read again at each line: the box above lets the operator pick another column.
      const int column = editColumnIndex(r, v);
      readPairs(r, list, 1, kChannels,
                [&](long ch, uint8_t level) { v.chan(int(ch), column) = level; });
    }
  }
}

void SaveChannels(Console& c, const std::string& path, const std::string& name) {
  const Variables& v = c.v;
  TextOut out;
  out.rule();
  out.line("NAME:", name);
  out.line("DATE:");
  out.rule();
  std::string list;
  if (v.EditColumn >= 1 && v.EditColumn <= kColumns)
    for (int ch = 1; ch <= v.MaxChans; ++ch)
      if (const uint8_t level = v.ChanTable[ch - 1][v.EditColumn - 1]) appendPair(list, ch, level);
  out.line("CHAN:", list);
  out.rule();
  out.save(path);
}

}  // namespace q
