#include "engine/core/main_window.h"

namespace q {

MainWindow::MainWindow(Registry& registry, Scheduler& scheduler)
    : Window(registry, "Form1", true),
      DMXTimer(add<Timer>("DMXTimer", scheduler, 100, false)),
      MemTimer(add<Timer>("MemTimer", scheduler, 100, false)),
      SMaster(add<Scroller>("SMaster", 0, 255, 0)),
      Xfader(add<Scroller>("Xfader", 0, 255, 255)),
      Picture1(add<Picture>("Picture1")),
      HScroll1(add<Scroller>("HScroll1", 0, 487, 0)) {
  HScroll1.largeChange = 10;
  for (int i = 0; i < 2; ++i) {
    FXTimer[i] = &add<Timer>(indexed("FXTimer", i), scheduler, 1000, false);
    FxStep[i] = &add<Label>(indexed("FxStep", i), "1");
    FXbutton[i] = &add<Lamp>(indexed("FXbutton", i));
  }
  for (int n = kFirstStrip; n <= kLastStrip; ++n) {
    const int k = n - kFirstStrip;
    faders_[k] = &add<Scroller>(indexed("Fader", n), 0, 255, 255);
    slevels_[k] = &add<Label>(indexed("SLevel", n), "00");
    funcs_[k] = &add<Label>(indexed("FaderFunc", n), "SUB");
    // The caption stays the strip's function; its meaning follows every change.
    words_[k] = stripWordOf(funcs_[k]->caption());
    funcs_[k]->onCaptionChange = [this, k] { words_[k] = stripWordOf(funcs_[k]->caption()); };
    flashes_[k] = &add<Lamp>(indexed("Flash", n));
    slabels_[k] = &add<TextBox>(indexed("Slabel", n));
  }
  for (int n = 1; n <= kLastStrip; ++n) cfgs_[n - 1] = &add<Lamp>(indexed("FaderCFG", n));
  buildMenus();
}

void MainWindow::buildMenus() {
  addMenu("mnuFile", "File", "");
  addMenu("mnuNew", "New (Reset)", "mnuFile");
  addMenu("mnuOpen", "Open ...", "mnuFile");
  addMenu("mnuSaveAs", "Save Show as ...", "mnuFile");
  addMenu("mnuSaveSubmastersAs", "Save Submasters as ...", "mnuFile");
  addMenu("Recent", "-", "mnuFile");
  for (int i = 0; i < 5; ++i) {
    recent_[i] = &addMenu(indexed("mnuRecent", i), "", "mnuFile");
    recent_[i]->setVisible(false);
  }
  addMenu("mnuExit", "Exit", "mnuFile");

  addMenu("mnuWindow", "Window", "");
  addMenu("mnuCueList", "Cue List", "mnuWindow");
  addMenu("mnuMatrix", "Matrix", "mnuWindow");
  addMenu("mnuMobile", "X/Y Control", "mnuWindow");
  addMenu("mnuChanWin", "Channels", "mnuWindow");
  addMenu("mnuSimple", "Simple", "mnuWindow");
  addMenu("mnuTecles", "Keyboard", "mnuWindow");
  addMenu("mnuPatch", "Patch", "mnuWindow");

  addMenu("mnuChannels", "Channels", "");
  addMenu("mnuChanCopy", "Copy", "mnuChannels");
  addMenu("mnuChanCut", "Cut", "mnuChannels");
  addMenu("mnuChanPaste", "Paste", "mnuChannels");
  addMenu("mnuLoadChan", "Load channels file", "mnuChannels");
  addMenu("mnuSaveChan", "Save Channels File As ...", "mnuChannels");
  addMenu("mnuChanZero", "All to Zero", "mnuChannels");

  addMenu("mnuSetup", "Setup", "");
  addMenu("mnukeyboard", "Keyboard Control", "mnuSetup");
  addMenu("mnuSpaceGO", "Space Key GO", "mnuSetup");
  addMenu("mnuInterface", "Interface ...", "mnuSetup");
  addMenu("mnuMidiSetup", "Midi Setup ...", "mnuSetup");
  addMenu("mnuOscSetup", "OSC ...", "mnuSetup");
  addMenu("mnuMaxchans", "Max. Channels", "mnuSetup");
  addMenu("mnuBackground", "Change Background", "mnuSetup");

  addMenu("mnuScreen", "Screen", "");
  addMenu("mnuScreenOutput", "Output", "mnuScreen").setChecked(true);
  addMenu("mnuScreenLive", "Live (DMX Output)", "mnuScreen");
  addMenu("mnuScreenSelected", "Selected", "mnuScreen");

  addMenu("mnuView", "View", "");
  const char* values[] = {"Percent", "Value", "Bars"};
  for (int i = 0; i < 3; ++i) values_[i] = &addMenu(indexed("mnuValue", i), values[i], "mnuView");
  values_[0]->setChecked(true);

  addMenu("mnuHelp", "Help", "");
  addMenu("mnuAbout", "About ...", "mnuHelp");

  // The strips' label menu: a popup, not shown on the bar.
  addMenu("mnuLabel", "Label Menu", "").setVisible(false);
  addMenu("mnuFont", "Change Font", "mnuLabel");
  addMenu("mnuFontColor", "Change Font Color", "mnuLabel");
  addMenu("mnuLabelColor", "Change Back Color", "mnuLabel");
}

}  // namespace q
