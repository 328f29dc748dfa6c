#include "engine/input/midi_control.h"

namespace q {

void MidiControl::messageIn(int, int, int) {}
void MidiControl::closePorts() {}

}  // namespace q
