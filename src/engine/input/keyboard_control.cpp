#include "engine/input/keyboard_control.h"

namespace q {

void KeyboardControl::keyDown(int) {}
void KeyboardControl::keyUp(int) {}

}  // namespace q
