#pragma once
// The computer keyboard as a fader desk: with "Keyboard Control" on, each
// strip, the grand master and the crossfader has a raise key and a lower key,
// one above the other on the keyboard, and held keys move together. With
// "Space Key GO" on, the space bar fires GO.

#include <functional>

namespace q {

class Console;
class Control;

class KeyboardControl {
 public:
  explicit KeyboardControl(Console& c);
  // A key going down / up on the main window, with its virtual key code.
  void keyDown(int vk);
  void keyUp(int vk);

  // mnukeyboard: keyboard control on or off.
  void toggleKeyboardControl();

 private:
  void walkKeyTable();
  void setTextControlsEnabled(bool enabled);

  Console& c_;
};

}  // namespace q
