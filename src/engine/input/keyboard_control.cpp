#include "engine/input/keyboard_control.h"

#include <array>
#include <string>

#include "engine/core/console.h"

namespace q {

namespace {
constexpr int kSpace = 32;

// One row of the key table: the key that raises the control (moves it up,
// towards position 0) and the key that lowers it. Fader 0 stands for SMaster,
// 1 for Xfader, 3..22 for the strips.
struct KeyPair {
  int raise;
  int lower;
  int fader;
};

// Virtual key codes. The last ten rows put each pair one above the other on
// a Spanish keyboard (192 right of L, 189 right of the full stop); on other
// layouts the codes hold, whatever is printed on the keys.
constexpr std::array<KeyPair, 22> kKeyTable{{
    {33, 34, 0},    // Page Up / Page Down: grand master
    {36, 35, 1},    // Home / End: crossfader
    {49, 81, 3},    // 1 Q
    {50, 87, 4},    // 2 W
    {51, 69, 5},    // 3 E
    {52, 82, 6},    // 4 R
    {53, 84, 7},    // 5 T
    {54, 89, 8},    // 6 Y
    {55, 85, 9},    // 7 U
    {56, 73, 10},   // 8 I
    {57, 79, 11},   // 9 O
    {48, 80, 12},   // 0 P
    {65, 90, 13},   // A Z
    {83, 88, 14},   // S X
    {68, 67, 15},   // D C
    {70, 86, 16},   // F V
    {71, 66, 17},   // G B
    {72, 78, 18},   // H N
    {74, 77, 19},   // J M
    {75, 188, 20},  // K ,
    {76, 190, 21},  // L .
    {192, 189, 22},
}};

constexpr int kStep = 5;

// The text boxes that would swallow the keys while the keyboard drives the faders.
const char* const kTextControls[] = {"Direct",  "STAGEMem",  "STAGEName", "PROGMem", "PROGName",
                                     "WupTime", "WdownTime", "UpTime",    "DownTime"};
}  // namespace

KeyboardControl::KeyboardControl(Console& c) : c_(c) {
  c_.form1.menu("mnukeyboard").onClick = [this] { toggleKeyboardControl(); };
  MenuItem& space = c_.form1.menu("mnuSpaceGO");
  space.onClick = [&space] { space.setChecked(!space.checked()); };
}

void KeyboardControl::keyDown(int vk) {
  auto& held = c_.v.KeyHeld;
  if (vk >= 0 && vk < int(held.size())) held[vk] = kTrue;
  if (c_.form1.menu("mnukeyboard").checked()) walkKeyTable();
  if (c_.form1.menu("mnuSpaceGO").checked() && vk == kSpace)
    if (Control* go = c_.registry.find("GOButton")) go->mouseUp(MouseButton::Left);
}

void KeyboardControl::keyUp(int vk) {
  auto& held = c_.v.KeyHeld;
  if (vk >= 0 && vk < int(held.size())) held[vk] = kFalse;
}

// Every held key moves its control at each key down, so that several faders
// travel together although the platform repeats only the latest key. A step
// past the end (position 3 - 5) is refused by the fader, which stays.
void KeyboardControl::walkKeyTable() {
  const auto& held = c_.v.KeyHeld;
  MainWindow& f = c_.form1;
  for (const KeyPair& k : kKeyTable) {
    Scroller& s = k.fader == 0 ? f.SMaster : k.fader == 1 ? f.Xfader : f.Fader(k.fader);
    if (held[k.raise] && s.position() >= 1) s.setPosition(s.position() - kStep);
    if (held[k.lower] && s.position() < 255) s.setPosition(s.position() + kStep);
  }
}

void KeyboardControl::toggleKeyboardControl() {
  MenuItem& m = c_.form1.menu("mnukeyboard");
  m.setChecked(!m.checked());
  setTextControlsEnabled(!m.checked());
  // The command line takes the keys again.
  if (!m.checked())
    if (Control* direct = c_.registry.find("Direct")) direct->requestFocus();
}

void KeyboardControl::setTextControlsEnabled(bool enabled) {
  for (const char* name : kTextControls)
    if (Control* box = c_.registry.find(name)) box->setEnabled(enabled);
  for (int n = kFirstStrip; n <= kLastStrip; ++n) c_.form1.Slabel(n).setEnabled(enabled);
}

}  // namespace q
