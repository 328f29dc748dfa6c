#pragma once
// The computer keyboard as a fader desk, and Space as GO.

namespace q {

class Console;

class KeyboardControl {
 public:
  explicit KeyboardControl(Console& c) : c_(c) {}
  // A key going down / up on the main window, with its virtual key code.
  void keyDown(int vk);
  void keyUp(int vk);

 private:
  [[maybe_unused]] Console& c_;
};

}  // namespace q
