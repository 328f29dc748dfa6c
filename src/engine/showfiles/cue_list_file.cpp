// The cue list file (.qcl): rows 1..CueCount of Cues under the show's name
// and date. Values are kept as the text that stood in the file; only the
// channel levels become bytes.

#include <array>
#include <exception>
#include <optional>

#include "engine/core/console.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/file_error.h"
#include "engine/showfiles/file_numbers.h"
#include "engine/showfiles/line_file.h"
#include "engine/showfiles/show_formats.h"
#include "engine/showfiles/text_codec.h"

namespace q {

namespace {
// The optional lines, written as numbers and only when their cell is filled.
struct OptionalLine {
  const char* keyword;
  int16_t column;
};
constexpr std::array<OptionalLine, 13> kOptional = {{{"AUTOGO:", cue::kAutoGo},
                                                     {"PLR1:", cue::kPlayer1Action},
                                                     {"VOL1:", cue::kPlayer1Volume},
                                                     {"PAN1:", cue::kPlayer1Balance},
                                                     {"PLR2:", cue::kPlayer2Action},
                                                     {"VOL2:", cue::kPlayer2Volume},
                                                     {"PAN2:", cue::kPlayer2Balance},
                                                     {"FX1:", cue::kChaser1Action},
                                                     {"FX1L:", cue::kChaser1Level},
                                                     {"FX1S:", cue::kChaser1Speed},
                                                     {"FX2:", cue::kChaser2Action},
                                                     {"FX2L:", cue::kChaser2Level},
                                                     {"FX2S:", cue::kChaser2Speed}}};

// A cell's text read as a number the lenient way, as the optional lines carry it.
std::string numberText(const Value& v) {
  if (const auto* s = std::get_if<std::string>(&v)) return shortestText(leadingOf(*s));
  return shortestText(numberOr0(v));
}

void writeLevels(TextOut& out, const CSparseMatrix& cues, int16_t row, int maxChans) {
  std::string& raw = out.raw();
  raw += "CHAN:";
  for (int ch = 1; ch <= maxChans; ++ch) {
    if (cues.cellIsEmpty(row, int16_t(ch))) continue;
    const Value v = cues.Cell(row, int16_t(ch));
    if (const auto* b = std::get_if<uint8_t>(&v))
      appendPair(raw, ch, *b);
    else
      appendPair(raw, ch, utf8ToCp1252(toText(v)));
  }
  out.endLine();
}

void writeCue(TextOut& out, const Variables& v, int16_t row, bool clipboard) {
  const CSparseMatrix& cues = v.Cues;
  out.line("MEM:", toText(cues.Cell(row, cue::kNumber)));
  out.line("FUNCTION:", toText(cues.Cell(row, cue::kFunction)));
  std::string times;
  for (int16_t col = cue::kWaitUp; col <= cue::kDownTime; ++col)
    times += toText(cues.Cell(row, col)) + ",";
  out.line("TIMES:", times);
  out.line("NAME:", toText(cues.Cell(row, cue::kName)));
  const Value var = cues.Cell(row, cue::kVar);
  if (clipboard) out.line("VAR:");
  if (!isEmpty(var)) out.line("VAR:", toText(var));
  for (const auto& o : kOptional) {
    const Value cell = cues.Cell(row, o.column);
    if (!isEmpty(cell)) out.line(o.keyword, numberText(cell));
  }
  writeLevels(out, cues, row, v.MaxChans);
  out.rule();
}

// How a line of a cue list is taken: by its first four characters.
enum class Key { Show, Date, Mem, Store, StoreIfAny, Times, Chan };
struct KeyRule {
  const char* prefix;
  Key key;
  size_t cut;
  int16_t column;
};
constexpr std::array<KeyRule, 21> kKeys = {{{"SHOW", Key::Show, 5, 0},
                                            {"DATE", Key::Date, 5, 0},
                                            {"MEM:", Key::Mem, 4, cue::kNumber},
                                            {"FUNC", Key::Store, 9, cue::kFunction},
                                            {"TIME", Key::Times, 6, cue::kWaitUp},
                                            {"NAME", Key::Store, 5, cue::kName},
                                            {"VAR:", Key::StoreIfAny, 4, cue::kVar},
                                            {"AUTO", Key::Store, 7, cue::kAutoGo},
                                            {"CHAN", Key::Chan, 5, 0},
                                            {"PLR1", Key::Store, 5, cue::kPlayer1Action},
                                            {"VOL1", Key::Store, 5, cue::kPlayer1Volume},
                                            {"PAN1", Key::Store, 5, cue::kPlayer1Balance},
                                            {"PLR2", Key::Store, 5, cue::kPlayer2Action},
                                            {"VOL2", Key::Store, 5, cue::kPlayer2Volume},
                                            {"PAN2", Key::Store, 5, cue::kPlayer2Balance},
                                            {"FX1:", Key::Store, 4, cue::kChaser1Action},
                                            {"FX1L", Key::Store, 5, cue::kChaser1Level},
                                            {"FX1S", Key::Store, 5, cue::kChaser1Speed},
                                            {"FX2:", Key::Store, 4, cue::kChaser2Action},
                                            {"FX2L", Key::Store, 5, cue::kChaser2Level},
                                            {"FX2S", Key::Store, 5, cue::kChaser2Speed}}};

const KeyRule* ruleFor(const std::string& line, bool withHeader) {
  if (line.size() < 4) return nullptr;
  for (const auto& k : kKeys)
    if (line.compare(0, 4, k.prefix) == 0) {
      if (!withHeader && (k.key == Key::Show || k.key == Key::Date)) return nullptr;
      return &k;
    }
  return nullptr;
}

void readTimes(const LineReader& r, std::string_view rest, CSparseMatrix& cues, int16_t row) {
  for (int16_t col = cue::kWaitUp; col <= cue::kDownTime; ++col) {
    const size_t comma = rest.find(',');
    if (comma == std::string_view::npos) r.fail("times without a comma after each value");
    cues.setCell(row, col, cp1252ToUtf8(rest.substr(0, comma)));
    rest.remove_prefix(comma + 1);
  }
}

// Where a reader puts the lines of a cue list: the console's own table (a
// paste), or a table of its own away from the console thread (a load).
struct CueLines {
  CSparseMatrix& cues;
  int16_t& count;
  std::optional<std::string> name = {}, date = {};  // the last SHOW and DATE lines
};

// The rows are always the last one a "MEM:" line opened, so the other lines
// of a cue may come in any order; lines before the first "MEM:" go to row 0.
void readCueLines(CueLines& to, LineReader& r, bool withHeader) {
  while (r.next()) {
    const KeyRule* k = ruleFor(r.line(), withHeader);
    if (!k) continue;
    const std::string_view rest = r.rest(k->cut);
    const int16_t row = to.count;
    switch (k->key) {
      case Key::Show:
        to.name = cp1252ToUtf8(rest);
        break;
      case Key::Date:
        to.date = cp1252ToUtf8(rest);
        break;
      case Key::Mem:
        if (to.count == INT16_MAX) r.fail("more than 32767 cues");
        ++to.count;
        to.cues.setCell(to.count, k->column, cp1252ToUtf8(rest));
        break;
      case Key::StoreIfAny:
        if (rest.empty()) break;
        [[fallthrough]];
      case Key::Store:
        to.cues.setCell(row, k->column, cp1252ToUtf8(rest));
        break;
      case Key::Times:
        readTimes(r, rest, to.cues, row);
        break;
      case Key::Chan:
        readPairs(r, rest, INT16_MIN, INT16_MAX,
                  [&](long ch, uint8_t level) { to.cues.setCell(row, int16_t(ch), level); });
        break;
    }
  }
}

// A file none of whose lines belongs to a cue list (a picture, a submaster
// file dropped on the wrong place) is refused before the list is wiped. An
// empty file, or one with its header alone, is a list of no cues.
void refuseIfNoCueList(const std::string& path) {
  LineReader r(path);
  bool anyText = false;
  while (r.next()) {
    const std::string& line = r.line();
    if (ruleFor(line, true) || line.rfind("'", 0) == 0) return;
    if (line.find_first_not_of(" \t") != std::string::npos) anyText = true;
  }
  if (anyText)
    throw FileError(path, 0, "not a cue list: none of its lines is a line of a cue list");
}
}  // namespace

std::string cueListShowName(Console& c) {
  if (auto* t =
          c.registry.has("Cuewin.txt_Show") ? c.registry.find<TextBox>("Cuewin.txt_Show") : nullptr)
    return t->text();
  return c.v.ShowName;
}

std::string cueListShowDate(Console& c) {
  if (auto* t =
          c.registry.has("Cuewin.txt_Date") ? c.registry.find<TextBox>("Cuewin.txt_Date") : nullptr)
    return t->text();
  return c.v.ShowDate;
}

void setCueListShowName(Console& c, const std::string& text) {
  c.v.ShowName = text;
  if (c.registry.has("Cuewin.txt_Show")) c.registry.find<TextBox>("Cuewin.txt_Show")->setText(text);
}

void setCueListShowDate(Console& c, const std::string& text) {
  c.v.ShowDate = text;
  if (c.registry.has("Cuewin.txt_Date")) c.registry.find<TextBox>("Cuewin.txt_Date")->setText(text);
}

namespace {
// A cue list read whole away from the console thread, up to its first bad
// line, and what stopped it there.
struct StagedCueList {
  CSparseMatrix cues;
  int16_t count = 0;
  CueLines lines{cues, count};
  bool opened = false;  // false: the file was refused before the list would be wiped
  std::exception_ptr failure;

  void read(const std::string& path) {
    try {
      refuseIfNoCueList(path);
      LineReader r(path);
      opened = true;
      readCueLines(lines, r, true);
    } catch (...) {
      failure = std::current_exception();
    }
  }
};

// The list as a read on the console thread would have left it: the old cues
// wiped, then every line up to the bad one stored.
void applyCueList(Console& c, StagedCueList& staged) {
  auto replacing = c.snapshots.replacing();
  Variables& v = c.v;
  auto batch = v.Cues.changes.batch();
  v.Cues.takeRows(staged.cues, {1, v.CueCount, 1, cue::kLastWiped});
  v.CueCount = staged.count;
  if (staged.lines.name) setCueListShowName(c, *staged.lines.name);
  if (staged.lines.date) setCueListShowDate(c, *staged.lines.date);
}
}  // namespace

void LoadCueList(Console& c, const std::string& path) {
  c.files.cueListFileName = path;
  // Read first: a file that isn't there, or is no cue list, leaves the list
  // as it was; the fades and the output go on meanwhile.
  StagedCueList staged;
  c.files.readAside([&] { staged.read(path); });
  if (staged.opened) applyCueList(c, staged);
  if (staged.failure) std::rethrow_exception(staged.failure);
}

std::string cueListText(Console& c) {
  TextOut out;
  out.rule();
  out.line("SHOW:", cueListShowName(c));
  out.line("DATE:", cueListShowDate(c));
  out.rule();
  for (int row = 1; row <= c.v.CueCount; ++row) writeCue(out, c.v, int16_t(row), false);
  return out.text();
}

void SaveCueList(Console& c, const std::string& path) {
  c.files.cueListFileName = path;
  writeFileWhole(path, cueListText(c));
}

void SaveCueClipboard(Console& c, const std::string& path, int16_t row) {
  TextOut out;
  out.rule();
  out.line("NAME:", cueListShowName(c));
  out.line("DATE:", cueListShowDate(c));
  out.rule();
  writeCue(out, c.v, row, true);
  out.save(path);
}

void PasteCueClipboard(Console& c, const std::string& path) {
  LineReader r(path);
  auto batch = c.v.Cues.changes.batch();
  CueLines into{c.v.Cues, c.v.CueCount};
  readCueLines(into, r, false);
}

}  // namespace q
