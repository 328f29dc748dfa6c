#include "engine/submasters/submaster_bank.h"

#include <cstdio>

#include "engine/core/console.h"
#include "engine/submasters/fader_config.h"

namespace q {

SubmasterBank::SubmasterBank(Console& c) : c_(c) {
  for (int n = kFirstStrip; n <= kLastStrip; ++n) wireStrip(n);
  for (int n = 1; n < kFirstStrip; ++n) {
    Lamp& cfg = c_.form1.FaderCFG(n);
    cfg.onMouseDown = [this, n](MouseButton b) { select(n, b); };
    cfg.onDrop = [this, n](const std::string& p, MouseButton b) { dropOnStrip(n, p, b); };
  }
  c_.form1.SMaster.onChange = [this] {
    // The mixer puts 255 minus the position back at its next pass.
    c_.v.GrandMaster = uint8_t(c_.form1.SMaster.position());
    c_.v.MixDirty = kTrue;
  };
  wireMenus();
  addKnobPictures();
  c_.windows.setFactory("Config", [this] { return std::make_unique<FaderConfig>(c_); });
  c_.names.add("Player1Rate", [this] { return toText(Value{c_.v.Player1Rate}); });
  c_.names.add("Player2Rate", [this] { return toText(Value{c_.v.Player2Rate}); });
}

SubmasterBank::~SubmasterBank() = default;

void SubmasterBank::wireStrip(int n) {
  MainWindow& f = c_.form1;
  f.Fader(n).onChange = [this, n] { faderChange(n); };
  f.Flash(n).onMouseDown = [this, n](MouseButton b) { flashDown(n, b); };
  f.Flash(n).onMouseUp = [this, n](MouseButton b) { flashUp(n, b); };
  f.FaderCFG(n).onMouseDown = [this, n](MouseButton b) { select(n, b); };
  f.Slabel(n).onDblClick = [this, n](MouseButton) { labelDblClick(n); };
  auto drop = [this, n](const std::string& p, MouseButton b) { dropOnStrip(n, p, b); };
  f.FaderCFG(n).onDrop = drop;
  f.Flash(n).onDrop = drop;
  f.SLevel(n).onDrop = drop;
}

void SubmasterBank::wireMenus() {
  MainWindow& f = c_.form1;
  f.menu("mnuFont").onClick = [this] { changeFont(); };
  f.menu("mnuFontColor").onClick = [this] { changeColor(false); };
  f.menu("mnuLabelColor").onClick = [this] { changeColor(true); };
}

// The knob pictures, one for each colour (tens digit, 0..4) and shape (last
// digit, 1..4): the skin cuts them, the strips show the one SubKnob names.
void SubmasterBank::addKnobPictures() {
  for (int color = 0; color <= 4; ++color)
    for (int shape = 1; shape <= 4; ++shape) {
      const std::string name = indexed("Knob", color * 10 + shape);
      if (!c_.registry.has(name)) c_.form1.add<Lamp>(name, name);
    }
}

std::string SubmasterBank::percentText(int position) {
  // Format "00": at least two digits. (255 - p) x 100 / 255 never falls on a
  // half, so the rounding rule cannot show.
  char buf[8];
  std::snprintf(buf, sizeof buf, "%02ld", roundHalfEven((255 - position) * 100.0 / 255.0));
  return buf;
}

void SubmasterBank::select(int n, MouseButton b) {
  MainWindow& f = c_.form1;
  for (int i = 1; i <= kLastStrip; ++i) f.FaderCFG(i).setPicture("");
  f.FaderCFG(n).setPicture("led_ON");
  c_.v.EditColumn = int16_t(n);
  c_.v.MixDirty = kTrue;
  if (n >= kFirstStrip && b == MouseButton::Right) openConfig();
}

void SubmasterBank::labelDblClick(int n) {
  // Selects the column without lighting its selector.
  c_.v.EditColumn = int16_t(n);
  if (onPopupLabelMenu) onPopupLabelMenu();
}

void SubmasterBank::dropOnStrip(int n, const std::string& path, MouseButton b) {
  // Only the last three characters count, exactly as written.
  if (path.size() < 3 || path.compare(path.size() - 3, 3, "qch") != 0) return;
  select(n, b);
  c_.files.load("channels", path);
}

TextBox* SubmasterBank::selectedLabel() {
  // Stage and Prog have no name box: the label menu then has nothing to style.
  const int n = c_.v.EditColumn;
  if (n < kFirstStrip || n > kLastStrip) return nullptr;
  return &c_.form1.Slabel(n);
}

void SubmasterBank::changeFont() {
  TextBox* box = selectedLabel();
  if (!box) return;
  TextStyle chosen = box->style;
  if (!c_.dialogs().fontDialog(chosen)) return;
  TextStyle s = box->style;  // the colours stay as they are
  s.fontName = chosen.fontName;
  s.fontSize = chosen.fontSize;
  s.bold = chosen.bold;
  s.italic = chosen.italic;
  s.strikeout = chosen.strikeout;
  s.underline = chosen.underline;
  box->setStyle(s);
}

void SubmasterBank::changeColor(bool background) {
  TextBox* box = selectedLabel();
  if (!box) return;
  int color = background ? box->style.backColor : box->style.foreColor;
  if (!c_.dialogs().colorDialog(color)) return;
  TextStyle s = box->style;
  (background ? s.backColor : s.foreColor) = color;
  box->setStyle(s);
}

FaderConfig& SubmasterBank::config() { return c_.windows.load<FaderConfig>("Config"); }

// A dialog already open keeps what the operator set in it; only a fresh one loads the strip.
void SubmasterBank::openConfig() { config().show(); }

}  // namespace q
