// The patch file (.qpf): the patch switch and all 512 entries of PatchMap,
// whatever MaxChans is. The reader takes every line that is neither a
// comment nor the switch as an entry, so an empty line stops it.

#include "engine/core/console.h"
#include "engine/showfiles/file_numbers.h"
#include "engine/showfiles/line_file.h"
#include "engine/showfiles/show_formats.h"

namespace q {

void LoadPatch(Console& c, const std::string& path) {
  auto batch = c.v.PatchMap.changes.batch();
  LineReader r(path);
  DirtyOnExit dirty(c.v);
  Variables& v = c.v;
  while (r.next()) {
    const std::string& line = r.line();
    if (!line.empty() && line[0] == '\'') continue;
    if (!line.empty() && line[0] == 'P') {
      v.PatchOn = vbool(line.size() >= 2 && line.compare(line.size() - 2, 2, "ON") == 0);
      continue;
    }
    // "12:7": both sides read leniently; the colon stays with the channel and is ignored.
    const size_t colon = line.find(':');
    const std::string_view whole(line);
    const std::string_view channelPart =
        colon == std::string::npos ? std::string_view() : whole.substr(0, colon + 1);
    const std::string_view valuePart = colon == std::string::npos ? whole : whole.substr(colon + 1);
    const long channel = roundHalfEven(leadingOf(channelPart));
    if (channel < 1 || channel > kChannels)
      r.fail("entry " + std::to_string(channel) + " outside 1..512");
    const long value = roundHalfEven(leadingOf(valuePart));
    if (value < INT16_MIN || value > INT16_MAX) r.fail("patch value out of range");
    v.PatchMap[channel - 1] = int16_t(value);
  }
}

void SavePatch(Console& c, const std::string& path) { writeFileWhole(path, patchText(c)); }

std::string patchText(const Console& c) {
  TextOut out;
  out.rule();
  out.line("'                       Orvaldi Patch File");
  out.rule();
  out.line(c.v.PatchOn == kTrue ? "PATCH: ON" : "PATCH: OFF");
  for (int ch = 1; ch <= kChannels; ++ch)
    out.line(std::to_string(ch) + ":" + std::to_string(c.v.PatchMap[ch - 1]));
  return out.text();
}

}  // namespace q
