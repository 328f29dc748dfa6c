#include "engine/input/keypad.h"

#include "engine/core/console.h"

namespace q {

namespace {
std::string picture(int key, bool down) {
  return "key" + std::to_string(key) + (down ? "_down" : "");
}

// Characters typed at the keypad window, as key indices; -1 for ignored ones.
// Capitals type the lower-case command, so "A" works here as "a".
int keyOfChar(int keyAscii) {
  if (keyAscii >= '0' && keyAscii <= '9') return keyAscii - '0';
  switch (keyAscii) {
    case '+':
      return Tecles::Plus;
    case '/':
      return Tecles::Through;
    case 'A':
    case 'a':
      return Tecles::At;
    case 'S':
    case 's':
      return Tecles::Add;
    case 'D':
    case 'd':
      return Tecles::Subtract;
    case 13:
      return Tecles::Enter;
    default:
      return -1;
  }
}
}  // namespace

Tecles::Tecles(Console& c) : Window(c.registry, "Tecles"), c_(c) {
  setCaption("Keyboard");
  stayOnTop = true;
  backColor = c.colors.SkinBackColor;
  // Keys typed while the keypad has the focus.
  form().onKeyPress = [this](int& keyAscii) { keyPress(keyAscii); };
  for (int i = 0; i < kKeys; ++i) {
    pressed_[i] = &add<Lamp>(indexed("DoubleBTN", i), picture(i, true));
    Lamp& key = *(btn_[i] = &add<Lamp>(indexed("BTN", i), picture(i, false)));
    key.onMouseDown = [this, i](MouseButton) { BTN(i).setPicture(DoubleBTN(i).picture()); };
    key.onMouseUp = [this, i](MouseButton) { BTN(i).setPicture(picture(i, false)); };
    key.onClick = [this, i] { keyClick(i); };
    // A double press lands on the pressed look: it clears the column under edit.
    pressed_[i]->onDblClick = [&c](MouseButton) { c.form1.menu("mnuChanZero").click(); };
  }
}

void Tecles::keyClick(int index) {
  if (index >= 0 && index <= 9) return type(std::string(1, char('0' + index)));
  switch (index) {
    case At:
      if (AtPressed == kFalse) {
        type("a");
        AtPressed = kTrue;
      } else {
        type("FF");
        sendEnter();
        AtPressed = kFalse;
      }
      break;
    case Add:
      type("s");
      break;
    case Plus:
      type("+");
      break;
    case Subtract:
      type("d");
      break;
    case Through:
      type("/");
      break;
    case Enter:
      sendEnter();
      AtPressed = kFalse;
      break;
    case Full:
      type("FF");
      sendEnter();
      AtPressed = kFalse;
      break;
    case Clear:
      if (auto* direct = c_.registry.find<TextBox>("Direct")) direct->setText("");
      AtPressed = kFalse;
      break;
    default:
      break;
  }
}

void Tecles::keyPress(int keyAscii) {
  const int key = keyOfChar(keyAscii);
  if (key >= 0) keyClick(key);
}

void Tecles::type(const std::string& s) {
  if (auto* direct = c_.registry.find<TextBox>("Direct")) direct->setText(direct->text() + s);
}

void Tecles::sendEnter() {
  if (Control* direct = c_.registry.find("Direct")) direct->keyPress(13);
}

Keypad::Keypad(Console& c) : c_(c) {
  c_.windows.setFactory("Tecles", [this] { return std::make_unique<Tecles>(c_); });
  c_.form1.menu("mnuTecles").onClick = [this] { show(); };
}

Tecles& Keypad::window() { return c_.windows.load<Tecles>("Tecles"); }

void Keypad::show() { window().show(); }

}  // namespace q
