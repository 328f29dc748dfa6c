// The submaster file (.qsm): the twenty strips, each as a block of eleven
// lines. Reader and writer only share the keywords: the reader looks at two
// letters, never clears a column (a load merges), and puts the knob picture
// on the fader without touching SubKnob, so that a save writes the old knob.

#include <array>

#include "engine/core/console.h"
#include "engine/showfiles/file_numbers.h"
#include "engine/showfiles/line_file.h"
#include "engine/showfiles/show_formats.h"
#include "engine/showfiles/text_codec.h"

namespace q {

namespace {
// A text box left at the toolkit's colours carries the system colours of
// window text and window background, as every older show file has them.
constexpr int32_t kSystemWindowText = int32_t(0x80000008u);
constexpr int32_t kSystemWindowBack = int32_t(0x80000005u);

// File colours keep red in the lowest byte; the console keeps 0xRRGGBB, -1
// for the toolkit's own (every system colour, which has the top bit set).
int rgbOfFileColor(int32_t c) {
  if (c < 0) return -1;
  return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF);
}
int32_t fileColorOf(int rgb, int32_t systemColor) {
  if (rgb < 0) return systemColor;
  return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF);
}

const char* word(bool b) { return b ? "True" : "False"; }

std::string fontLine(const TextStyle& s) {
  return s.fontName + ";" + shortestText(float(s.fontSize)) + ";" + word(s.bold) + ";" +
         word(s.italic) + ";" + word(s.strikeout) + ";" + word(s.underline) + ";" +
         std::to_string(fileColorOf(s.foreColor, kSystemWindowText));
}

void writeBlock(TextOut& out, Console& c, int n) {
  const int e = n + 2;
  MainWindow& f = c.form1;
  out.line("SUB:" + std::to_string(n));
  out.line("KNOB: " + std::to_string(c.v.SubKnob[n - 1]) + " ");
  out.line("FUNCTION:", f.FaderFunc(e).caption());
  out.line("NAME:", f.Slabel(e).text());
  out.line("TOOLTIP:", f.Fader(e).toolTip);
  out.line("FONT:", fontLine(f.Slabel(e).style));
  out.line("BACKGROUND:" +
           std::to_string(fileColorOf(f.Slabel(e).style.backColor, kSystemWindowBack)));
  out.line("MIDI:" + std::to_string(c.v.SubMidi[n - 1]));
  out.line("LEVEL:" + std::to_string(255 - f.Fader(e).position()));
  std::string& raw = out.raw();
  raw += "CHAN:";
  for (int ch = 1; ch <= c.v.MaxChans; ++ch)
    if (const uint8_t level = c.v.chan(ch, e - 1)) appendPair(raw, ch, level);
  out.endLine();
  out.rule();
}

bool isKnobPicture(long k) { return k >= 1 && k <= 44 && k % 10 >= 1 && k % 10 <= 4; }

bool booleanOf(std::string_view t, bool& out) {
  auto lower = [](std::string_view s) {
    std::string r(s);
    for (char& ch : r) ch = char(std::tolower(static_cast<unsigned char>(ch)));
    return r;
  };
  const std::string l = lower(t);
  if (l == "true" || l == "false") {
    out = l == "true";
    return true;
  }
  if (const auto d = realOf(t)) {
    out = *d != 0;
    return true;
  }
  return false;
}

// Reads the font line field by field, each applied as soon as it is cut:
// six fields each closed by ";", then the colour to the end of the line.
void readFont(const LineReader& r, std::string_view rest, TextBox& box) {
  auto cut = [&](const std::string& what) {
    const size_t semi = rest.find(';');
    if (semi == std::string_view::npos) r.fail("font line without ';' after its " + what);
    const std::string_view field = rest.substr(0, semi);
    rest.remove_prefix(semi + 1);
    return field;
  };
  auto apply = [&box](auto change) {
    TextStyle s = box.style;
    change(s);
    box.setStyle(s);
  };
  auto flag = [&](const std::string& what, bool TextStyle::*member) {
    bool b = false;
    if (!booleanOf(cut(what), b)) r.fail("font " + what + " is not True or False");
    apply([&](TextStyle& s) { s.*member = b; });
  };
  const std::string name = cp1252ToUtf8(cut("name"));
  apply([&](TextStyle& s) { s.fontName = name; });
  const double size = realIn(r, cut("size"), "font size");
  if (!(size >= 0 && size <= 2160)) r.fail("font size outside 0..2160");
  apply([&](TextStyle& s) { s.fontSize = double(float(size)); });
  flag("bold flag", &TextStyle::bold);
  flag("italic flag", &TextStyle::italic);
  flag("strike-through flag", &TextStyle::strikeout);
  flag("underline flag", &TextStyle::underline);
  const long color = wholeIn(r, rest, INT32_MIN, INT32_MAX, "font colour");
  apply([&](TextStyle& s) { s.foreColor = rgbOfFileColor(int32_t(color)); });
}

enum class Key {
  Show,
  Date,
  Sub,
  Background,
  Font,
  Name,
  Function,
  Tooltip,
  Midi,
  Knob,
  Level,
  Chan
};
struct KeyRule {
  const char* prefix;
  Key key;
  size_t cut;
};
constexpr std::array<KeyRule, 12> kKeys = {{{"SH", Key::Show, 5},
                                            {"DA", Key::Date, 5},
                                            {"SU", Key::Sub, 4},
                                            {"BA", Key::Background, 11},
                                            {"FO", Key::Font, 5},
                                            {"NA", Key::Name, 5},
                                            {"FU", Key::Function, 9},
                                            {"TO", Key::Tooltip, 8},
                                            {"MI", Key::Midi, 5},
                                            {"KN", Key::Knob, 5},
                                            {"LE", Key::Level, 6},
                                            {"CH", Key::Chan, 5}}};

class SubmasterReader {
 public:
  SubmasterReader(Console& c, LineReader& r) : c_(c), r_(r) {}

  void run() {
    while (r_.next()) {
      const std::string& line = r_.line();
      if (line.size() < 2) continue;
      for (const auto& k : kKeys)
        if (line.compare(0, 2, k.prefix) == 0) {
          apply(k.key, r_.rest(k.cut));
          break;
        }
    }
  }

 private:
  // The strip that the last "SUB:" line chose; a line that addresses a strip stops the reader
  // when there is none.
  int strip() const {
    if (!subSeen_) r_.fail("no SUB: line before it");
    if (element_ < kFirstStrip || element_ > kLastStrip)
      r_.fail("submaster " + std::to_string(element_ - 2) + " outside 1..20");
    return int(element_);
  }

  void apply(Key key, std::string_view rest) {
    MainWindow& f = c_.form1;
    switch (key) {
      case Key::Show:
        setCueListShowName(c_, cp1252ToUtf8(rest));
        break;
      case Key::Date:
        setCueListShowDate(c_, cp1252ToUtf8(rest));
        break;
      case Key::Sub:
        element_ = wholeIn(r_, rest, INT16_MIN, INT16_MAX - 2, "submaster") + 2;
        subSeen_ = true;
        break;
      case Key::Background: {
        const int e = strip();
        const long color = wholeIn(r_, rest, INT32_MIN, INT32_MAX, "background colour");
        TextStyle s = f.Slabel(e).style;
        s.backColor = rgbOfFileColor(int32_t(color));
        f.Slabel(e).setStyle(s);
        break;
      }
      case Key::Font:
        readFont(r_, rest, f.Slabel(strip()));
        break;
      case Key::Name:
        f.Slabel(strip()).setText(cp1252ToUtf8(rest));
        break;
      case Key::Function:
        f.FaderFunc(strip()).setCaption(cp1252ToUtf8(rest));
        break;
      case Key::Tooltip:
        f.Fader(strip()).toolTip = cp1252ToUtf8(rest);
        break;
      case Key::Midi: {
        const int e = strip();
        c_.v.SubMidi[e - kFirstStrip] = byteIn(r_, rest, "MIDI controller");
        break;
      }
      case Key::Knob: {
        const int e = strip();
        const long k = wholeIn(r_, rest, 0, 255, "knob");
        if (!isKnobPicture(k)) r_.fail("no knob picture " + std::to_string(k));
        f.Fader(e).knobPicture = indexed("Knob", int(k));
        break;
      }
      case Key::Level: {
        const int e = strip();
        const long pos = roundHalfEven(255.0 - realIn(r_, rest, "level"));
        if (!f.Fader(e).inRange(int(pos))) r_.fail("level outside 0..255");
        f.Fader(e).setPosition(int(pos));
        break;
      }
      case Key::Chan: {
        // The column alone is addressed, so it reaches as far as ChanTable does.
        if (!subSeen_) r_.fail("no SUB: line before it");
        if (element_ < 1 || element_ > kColumns)
          r_.fail("submaster " + std::to_string(element_ - 2) + " outside 1..20");
        const int column = int(element_) - 1;
        readPairs(r_, rest, 1, kChannels,
                  [&](long ch, uint8_t level) { c_.v.chan(int(ch), column) = level; });
        break;
      }
    }
  }

  Console& c_;
  LineReader& r_;
  long element_ = 0;
  bool subSeen_ = false;
};
}  // namespace

void LoadSubmasters(Console& c, const std::string& path) {
  auto replacing = c.snapshots.replacing();
  auto batch = c.v.ChanTable.changes.batch();
  LineReader r(path);
  DirtyOnExit dirty(c.v);
  SubmasterReader(c, r).run();
}

void SaveSubmasters(Console& c, const std::string& path) {
  writeFileWhole(path, submastersText(c));
}

std::string submastersText(Console& c) {
  TextOut out;
  out.rule();
  out.line("SHOW:", c.v.ShowName);
  out.line("DATE:", c.v.ShowDate);
  out.rule();
  for (int n = 1; n <= kSubmasters; ++n) writeBlock(out, c, n);
  return out.text();
}

}  // namespace q
