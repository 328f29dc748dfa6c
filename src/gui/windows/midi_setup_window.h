#pragma once
// The MIDI setup dialog, MIDISetupForm ("MIDI Devices"), on the desk.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

FormView* buildMidiSetupWindow(WindowHost& host, Window& model);

}  // namespace q::gui
