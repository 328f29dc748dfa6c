#include "engine/submasters/fader_config.h"

#include "engine/core/console.h"
#include "engine/submasters/function_words.h"

namespace q {

namespace {
bool isStrip(int n) { return n >= kFirstStrip && n <= kLastStrip; }
}  // namespace

FaderConfig::FaderConfig(Console& c)
    : Window(c.registry, "Config"),
      Tipus(add<ListBox>("Tipus")),
      txtMidiChannel(add<TextBox>("txtMidiChannel")),
      Tooltip(add<TextBox>("Tooltip")),
      APPLY(add<Label>("APPLY", "APPLY")),
      c_(c) {
  for (const FunctionWord& f : kFunctionWords) Tipus.addItem(std::string(f.text));
  for (int i = 0; i < 5; ++i) {
    colors_[i] = &add<Lamp>(indexed("PicColor", i));
    colors_[i]->onClick = [this, i] { colorClick(i); };
  }
  for (int i = 1; i <= 4; ++i) {
    knobs_[i - 1] = &add<Lamp>(indexed("Knob", i));
    knobs_[i - 1]->onClick = [this, i] { knobClick(i); };
  }
  setCaption("SliderConfig");
  APPLY.onClick = [this] { apply(); };
  load();
}

void FaderConfig::load() {
  const int n = c_.v.EditColumn;
  if (!isStrip(n)) return;  // Stage and Prog have no strip to configure
  const int look = c_.v.SubKnob[n - kFirstStrip];
  const int color = look < 10 ? 0 : look / 10;
  const int knob = look - color * 10;
  if (knob >= 1 && knob <= 4) knobClick(knob);
  if (color >= 0 && color <= 4) colorClick(color);
  for (int i = 1; i <= 4; ++i)
    if (auto* main = c_.registry.find<Lamp>(indexed("Knob", i)))
      Knob(i).setPicture(main->picture());
  const std::string text = textShownForWord(c_.form1.FaderFunc(n).caption());
  int index = -1;
  for (int i = 0; i < Tipus.count(); ++i)
    if (Tipus.items()[i] == text) index = i;
  Tipus.setListIndex(index);
  Tooltip.setText(c_.form1.Fader(n).toolTip);
  txtMidiChannel.setText(std::to_string(c_.v.SubMidi[n - kFirstStrip]));
}

void FaderConfig::knobClick(int index) {
  for (int i = 1; i <= 4; ++i) Knob(i).setBorder(i == index);
  SelectedKnob = index;
}

void FaderConfig::colorClick(int index) {
  for (int i = 0; i < 5; ++i) PicColor(i).setBorder(i == index);
  SelectedColor = index;
}

void FaderConfig::apply() {
  const int n = c_.v.EditColumn;
  if (!isStrip(n)) return;
  Label& func = c_.form1.FaderFunc(n);
  const std::string word = wordForText(Tipus.text());
  if (!word.empty()) {
    func.setCaption(word);
    c_.v.MixDirty = kTrue;  // the mix reads the strip's role from its word
  }
  placeFader(n, c_.form1.stripWord(n));
  c_.form1.Fader(n).toolTip = Tooltip.text();
  if (!applyController(n)) return;
  uint8_t& look = c_.v.SubKnob[n - kFirstStrip];
  look = uint8_t(SelectedColor * 10 + SelectedKnob);
  // A look with no knob picture leaves the fader's knob as it was.
  if (auto* knob = c_.registry.find<Lamp>(indexed("Knob", look)))
    c_.form1.Fader(n).knobPicture = knob->picture();
  unload();
}

// The fader is brought to what the strip now controls, so that it shows the
// present value; moving it runs the strip's fader logic.
void FaderConfig::placeFader(int n, StripWord word) {
  const Variables& v = c_.v;
  int position = -1;
  switch (word) {
    case StripWord::Sma:
      position = 255 - v.SubMasterLevel;
      break;
    case StripWord::Lv1:
      position = 255 - v.FX1Level;
      break;
    case StripWord::Lv2:
      position = 255 - v.FX2Level;
      break;
    case StripWord::Sp1:
    case StripWord::Sp2:
      position =
          int(roundHalfEven(c_.form1.FXTimer[word == StripWord::Sp1 ? 0 : 1]->interval() / 5.0));
      break;
    case StripWord::Mp0:
    case StripWord::Mp1:
      position = int(roundHalfEven(-c_.WMP(word == StripWord::Mp0 ? 0 : 1).volume() / 12.0));
      break;
    case StripWord::A0b:
    case StripWord::A1b:
    case StripWord::A0p:
    case StripWord::A1p:
      position = 127;
      break;
    default:
      break;  // SUB, BYP and INV keep their fader where it is
  }
  // A value the fader cannot show (a volume set below the strip's range by
  // hand) leaves it where it is.
  if (position >= 0) c_.form1.Fader(n).setPosition(position);
}

// The controller must be a number that fits a byte; anything else is told to
// the operator, and the dialog stays open to be corrected.
bool FaderConfig::applyController(int n) {
  auto number = parseNumber(txtMidiChannel.text());
  if (!number) {
    c_.dialogs().msgBox("SliderConfig", "Type mismatch", MsgButtons::OK, MsgIcon::Exclamation);
    return false;
  }
  // Converted to a byte as the rest of the console converts: half to even.
  const long value = *number > -1 && *number < 256 ? roundHalfEven(*number) : -1;
  if (value < 0 || value > 255) {
    c_.dialogs().msgBox("SliderConfig", "Overflow", MsgButtons::OK, MsgIcon::Exclamation);
    return false;
  }
  c_.v.SubMidi[n - kFirstStrip] = uint8_t(value);
  return true;
}

}  // namespace q
