#pragma once
// Refreshrate, the "Interface setup" window: the output adapter, the frame
// interval, the number of channels and the parallel-port settings. The
// interval and the timing loops act while their bars move; the device list
// switches the frame dispatch at once; "Ok" applies the rest and, when the
// adapter changed, stops the old one and starts the new one. The close box
// applies nothing further.

#include <array>
#include <string>

#include "engine/controls/combo_text.h"
#include "engine/controls/window.h"

namespace q {

class Console;

class Refreshrate : public Window {
 public:
  explicit Refreshrate(Console& c);

  // Opening: the window takes the console's current settings (its load sequence).
  void load();
  // "Ok": applies and closes. The close box applies nothing further.
  void ok();

  ListBox& ComboDevice;
  std::vector<Lamp*> Image1;  // one picture per adapter, by InterfaceType
  Lamp& Image2;
  Label& lblWeb;
  Label& Frame4;  // "SELECT OUTPUT", round CmbLPT
  ListBox& CmbLPT;
  Label& Frame3;  // the timing loops of the parallel-port adapters
  Scroller& HScroll1;
  TextBox& Text1;
  Scroller& HScroll2;
  Scroller& HScroll3;
  Scroller& HScroll4;
  TextBox& Text2;
  TextBox& Text3;
  TextBox& Text4;
  ComboText& Combo1;
  Label& btnOk;
  std::array<Label*, 3> Label2{};

  // The interface in force when the window was opened.
  int openedInterface = 0;
  // The skin's background colour of the frames and labels, -1 before opening.
  int frameBackColor = -1;

 private:
  void wire();
  void deviceChosen();
  void loopMoved(Scroller& bar, TextBox& text, int& setting);

  Console& c_;
  // False while the load sequence fills the controls: their handlers then only show.
  bool loaded_ = false;
};

}  // namespace q
