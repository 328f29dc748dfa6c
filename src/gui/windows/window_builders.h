#pragma once
// Every secondary window's builder: the Qt window over its model, made by
// the window host when the model loads. One line each in desk_windows.cpp
// ties a builder to its console name.

namespace q {
class Window;
}

namespace q::gui {

class FormView;
class WindowHost;

// Setup and help dialogs.
FormView* buildAboutWindow(WindowHost& host, Window& model);           // frmAbout
FormView* buildFaderConfigWindow(WindowHost& host, Window& model);     // Config ("SliderConfig")
FormView* buildInterfaceSetupWindow(WindowHost& host, Window& model);  // Refreshrate
FormView* buildKeypadWindow(WindowHost& host, Window& model);          // Tecles ("Keyboard")
FormView* buildMidiSetupWindow(WindowHost& host, Window& model);       // MIDISetupForm
FormView* buildOscSetupWindow(WindowHost& host, Window& model);        // OscSetup

// Level windows: 32 skinned faders a page, the cells of the column under
// edit, the X/Y pad, and the matrix (a window the operator sizes).
FormView* buildChannelsWindow(WindowHost& host, Window& model);  // Canals
FormView* buildSimpleWindow(WindowHost& host, Window& model);    // Simple
FormView* buildXYWindow(WindowHost& host, Window& model);        // Mobile
FormView* buildMatrixWindow(WindowHost& host, Window& model);    // frmSparseMatrix

// The twin patch windows, by DMX channel and by console channel, each with its menu bar.
FormView* buildPatchWindow(WindowHost& host, Window& model);     // frmPatch
FormView* buildInvPatchWindow(WindowHost& host, Window& model);  // frmInvPatch

// The chaser editors FX1Config and FX2Config.
FormView* buildChaserEditorWindow(WindowHost& host, Window& model);

// The cue list, the properties of one cue, the special cue dialog.
FormView* buildCueListWindow(WindowHost& host, Window& model);        // Cuewin
FormView* buildCuePropertiesWindow(WindowHost& host, Window& model);  // CueProps
FormView* buildSpecialCueWindow(WindowHost& host, Window& model);     // SpCue

}  // namespace q::gui
