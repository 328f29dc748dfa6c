// The show bundle: an index (.qsh) that names five companions by their full
// paths as they stood at the save. Saving writes the six as one (the
// companions in their order and the index last), so that no crash leaves half
// a show; loading reads the index and loads each companion as its line comes
// up, the index staying open meanwhile.

#include <array>
#include <filesystem>

#include "engine/core/console.h"
#include "engine/showfiles/file_error.h"
#include "engine/showfiles/file_set.h"
#include "engine/showfiles/line_file.h"
#include "engine/showfiles/show_formats.h"
#include "engine/showfiles/text_codec.h"

namespace q {

// The six files of a show saved under path, in the order they are written.
FileSet ShowFileSet(Console& c, const std::string& path) {
  // The base is the name less its last four characters, extension or not.
  std::string base = path;
  if (!dropLastChars(base, 4)) throw FileError(path, 0, "file name shorter than four characters");
  // The index names its companions in the show files' code page.
  if (!fitsCp1252(base))
    throw FileError(path, 0, "file name has characters a show file can't hold");
  FileSet set;
  set.add(base + "1.qfx", chaserText(c, 0, c.v.FXRandom[0]));
  set.add(base + "2.qfx", chaserText(c, 1, c.v.FXRandom[1]));
  set.add(base + ".qcl", cueListText(c));
  set.add(base + ".qsm", submastersText(c));
  set.add(base + ".qpf", patchText(c));
  TextOut out;
  out.rule();
  out.line("NAME:", c.v.ShowName);
  out.line("DATE:", c.v.ShowDate);
  out.rule();
  out.line("SUBMASTERS:", base + ".qsm");
  out.line("CUELIST:", base + ".qcl");
  out.line("FX1:", base + "1.qfx");
  out.line("FX2:", base + "2.qfx");
  out.line("PATCH:", base + ".qpf");
  set.add(path, out.text());
  return set;
}

void SaveShow(Console& c, const std::string& path) {
  FileSet set = ShowFileSet(c, path);
  set.afterRename = c.files.afterShowRename;
  set.write();
  // As the cue list's own save, the show's makes its cue list the current one.
  std::string base = path;
  dropLastChars(base, 4);
  c.files.cueListFileName = base + ".qcl";
}

namespace {
enum class Key { Name, Date, Submasters, CueList, Chaser1, Chaser2, Patch };
struct KeyRule {
  const char* prefix;
  Key key;
  size_t cut;
};
constexpr std::array<KeyRule, 7> kKeys = {{{"NAM", Key::Name, 5},
                                           {"DAT", Key::Date, 5},
                                           {"SUB", Key::Submasters, 11},
                                           {"CUE", Key::CueList, 8},
                                           {"FX1", Key::Chaser1, 4},
                                           {"FX2", Key::Chaser2, 4},
                                           {"PAT", Key::Patch, 6}}};
}  // namespace

// A hand-written index may name its companions relative to itself, so that a
// show folder can move; names saved by the console are full paths.
static std::string besideIndex(const std::string& indexPath, const std::string& name) {
  std::filesystem::path p(name);
  if (name.empty() || p.is_absolute()) return name;
  return (std::filesystem::path(indexPath).parent_path() / p).string();
}

void LoadShow(Console& c, const std::string& path) {
  // A save there that died half-way is finished or taken back first.
  FileSet::recover(path);
  auto replacing = c.snapshots.replacing();
  LineReader index(path);
  while (index.next()) {
    const std::string& line = index.line();
    if (line.size() < 3) continue;
    for (const auto& k : kKeys) {
      if (line.compare(0, 3, k.prefix) != 0) continue;
      const std::string value = index.restText(k.cut);
      // A companion line with no name would fail inside a reader that has no
      // file to name; the index line is where the fault is.
      if (value.empty() && k.key != Key::Name && k.key != Key::Date) index.fail("no file named");
      const std::string companion = besideIndex(path, value);
      switch (k.key) {
        case Key::Name:
          setCueListShowName(c, value);
          break;
        case Key::Date:
          setCueListShowDate(c, value);
          break;
        case Key::Submasters:
          LoadSubmasters(c, companion);
          break;
        case Key::CueList:
          LoadCueList(c, companion);
          break;
        case Key::Chaser1:
          LoadChaser(c, companion, 0);
          break;
        case Key::Chaser2:
          LoadChaser(c, companion, 1);
          break;
        case Key::Patch:
          LoadPatch(c, companion);
          break;
      }
      break;
    }
  }
}

}  // namespace q
