#pragma once
// Tecles, "Keyboard": a keypad for the direct command line, for a mouse or a
// touch screen. Its keys only type into `Direct` and press Enter there; the
// meaning of what is typed lies with the command line. A double press of the
// at-key means full and fires the command at once.

#include <array>
#include <memory>

#include "engine/controls/window.h"
#include "engine/core/variables.h"

namespace q {

class Console;

class Tecles : public Window {
 public:
  explicit Tecles(Console& c);

  static constexpr int kKeys = 18;
  // Key indices: 0..9 the digits, then these.
  enum Key {
    At = 10,
    Add = 11,
    Plus = 12,
    Subtract = 13,
    Through = 14,
    Enter = 15,
    Full = 16,
    Clear = 17
  };

  // The keys, and the pictures of their pressed look.
  Lamp& BTN(int i) { return *btn_.at(i); }
  Lamp& DoubleBTN(int i) { return *pressed_.at(i); }

  // An "a" was typed by the at-key and no command has been sent since.
  VBool AtPressed = kFalse;

  void keyClick(int index);
  // A character typed on the computer's keyboard while the keypad has the focus.
  void keyPress(int keyAscii);

 private:
  void type(const std::string& s);
  void sendEnter();

  Console& c_;
  std::array<Lamp*, kKeys> btn_{};
  std::array<Lamp*, kKeys> pressed_{};
};

// Gives the catalogue the keypad window and opens it from the menu.
class Keypad {
 public:
  explicit Keypad(Console& c);
  Keypad(const Keypad&) = delete;
  Keypad& operator=(const Keypad&) = delete;

  // The keypad window, loaded on first use.
  Tecles& window();
  // Opens the keypad (CmdDirect, mnuTecles): not modal, on top.
  void show();

 private:
  Console& c_;
};

}  // namespace q
