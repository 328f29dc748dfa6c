#include "engine/input/direct_command.h"

#include <cmath>
#include <string>

#include "engine/core/console.h"

namespace q {

namespace {

// Why a command stopped: a level that is no number, or anything else.
enum class Fault { TypeMismatch, Other };
struct DirectFault {
  Fault fault;
};

constexpr int kMaxNumber = 32767;  // numbers are read as 16-bit

bool isDigit(char ch) { return ch >= '0' && ch <= '9'; }

// The level is the last two characters of the text, whatever stands before.
std::string lastTwo(const std::string& t) { return t.size() <= 2 ? t : t.substr(t.size() - 2); }

// Percent to level: 50 gives 127, 99 gives 252; full needs "ff".
int percentLevel(const std::string& r) {
  auto n = parseNumber(r);
  if (!n) throw DirectFault{Fault::TypeMismatch};
  return int(std::floor(*n * 2.55));
}

int levelOfAt(const std::string& r) {
  if (r == "FF" || r == "ff") return 255;
  if (r == "a0") return 0;
  if (r == "aa") return 255;
  return percentLevel(r);
}

int levelOfStep(const std::string& r) {
  if (r == "FF" || r == "ff") return 255;
  return percentLevel(r);
}

// One command's reading of its channel list and its writes into one column.
class Evaluation {
 public:
  explicit Evaluation(Variables& v) : v_(v), column_(v.EditColumn - 1) {}

  // Reads positions 0..p of text; a "+" commits the item read so far.
  template <class Commit>
  void scan(const std::string& text, size_t p, Commit commitAtPlus) {
    for (size_t i = 0; i <= p && i < text.size(); ++i) {
      const char ch = text[i];
      if (isDigit(ch)) {
        // The digit goes behind the number's text, which is read back.
        const long next = long(num) * 10 + (ch - '0');
        if (next > kMaxNumber) throw DirectFault{Fault::Other};
        num = int(next);
      } else if (ch == '/') {
        rangeStart = num;
        num = 0;
      } else if (ch == '+') {
        commitAtPlus();
        num = 0;
        rangeStart = 0;
      }
    }
  }

  // Every channel of the item (the range, or the one channel Num).
  template <class Fn>
  void forItem(Fn fn) {
    if (rangeStart != 0) {
      for (int ch = rangeStart; ch <= num; ++ch) fn(ch);  // a reversed range does nothing
    } else {
      fn(num);
    }
  }

  uint8_t cell(int channel) {
    check(channel);
    return v_.ChanTable.get(channel, column_);
  }
  void store(int channel, int value) {
    check(channel);
    if (value < 0 || value > 255) throw DirectFault{Fault::Other};
    v_.ChanTable.set(channel, column_, uint8_t(value));
  }

  int num = 0;
  int rangeStart = 0;

 private:
  void check(int channel) const {
    if (channel < 1 || channel > kChannels || column_ < 0 || column_ >= kColumns)
      throw DirectFault{Fault::Other};
  }
  Variables& v_;
  int column_;
};

}  // namespace

DirectCommand::DirectCommand(Console& c)
    : Direct(c.form1.add<TextBox>("Direct")), CmdDirect(c.form1.add<Lamp>("CmdDirect")), c_(c) {
  Direct.onKeyPress = [this](int& key) {
    if (key != 13) return;
    key = 0;
    enter();
  };
  CmdDirect.onClick = [this] { c_.keypad.show(); };
}

void DirectCommand::enter() {
  try {
    run();
  } catch (const DirectFault& f) {
    // Nothing is told to the output: what was written shows with the next change.
    if (f.fault == Fault::TypeMismatch) Direct.setText("");
    return;
  }
  Direct.setText("");
  c_.v.MixDirty = kTrue;
}

void DirectCommand::run() {
  Variables& v = c_.v;
  // A leading letter, in either case, repeats the last "a" list. Each test
  // reads the box anew, so a repeated list that itself starts with a letter
  // is seen by the next test.
  for (char letter : {'A', 'S', 'D'}) {
    const std::string t = Direct.text();
    if (!t.empty() && (t[0] == letter || t[0] == letter - 'A' + 'a'))
      Direct.setText(v.DirectText + t);
  }
  const std::string text = Direct.text();
  const std::string r = lastTwo(text);
  Evaluation e(v);
  // Views hear of the whole command once, also when it stops half-way.
  auto batch = v.ChanTable.changes.batch();

  if (size_t p = text.find('a'); p != std::string::npos) {
    v.DirectText = text.substr(0, p);
    const int level = levelOfAt(r);
    e.scan(text, p, [&] { e.forItem([&](int ch) { e.store(ch, level); }); });
    // The last item; Num stays, and a later "s" or "d" list reads on from it.
    e.forItem([&](int ch) { e.store(ch, level); });
    e.rangeStart = 0;
  }

  if (size_t p = text.find('s'); p != std::string::npos) {
    const int level = levelOfStep(r);
    auto raised = [&](int ch) { return std::min(e.cell(ch) + level, 255); };
    // At a "+", a range takes the sum of its last channel, one value for all.
    e.scan(text, p, [&] {
      const int value = raised(e.num);
      e.forItem([&](int ch) { e.store(ch, value); });
    });
    e.forItem([&](int ch) { e.store(ch, raised(ch)); });
    e.num = 0;
    e.rangeStart = 0;
  }

  if (size_t p = text.find('d'); p != std::string::npos) {
    const int level = levelOfStep(r);
    auto lowered = [&](int ch) { return std::max(e.cell(ch) - level, 0); };
    e.scan(text, p, [&] { e.forItem([&](int ch) { e.store(ch, lowered(ch)); }); });
    e.forItem([&](int ch) { e.store(ch, lowered(ch)); });
    e.num = 0;
    e.rangeStart = 0;
  }
}

}  // namespace q
