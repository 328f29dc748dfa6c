#pragma once
// SpCue ("Add a special cue:"): appends a function cue at the end of the
// list, whatever its number. The type list holds the functions as the
// special lines name them ("07: Show message"); the row takes the first two
// characters of the chosen line as its function. The content box and its
// browse button help the operator find a file or word a message, but the
// dialog drops what is typed there: the argument of a special cue is filled
// in afterwards, in the cue properties.

#include "engine/controls/window.h"
#include "engine/core/common_dialog.h"

namespace q {

class Console;

class SpCue : public Window {
 public:
  explicit SpCue(Console& c);

  TextBox& txtNumber;
  ListBox& Tipus;
  TextBox& txtName;
  Label& Label2;  // the caption of the content box
  TextBox& txtContent;
  Label& btn_Busca;
  Label& btn_Ok;
  Label& btn_Cancel;
  Label& lblNumber;
  Label& lblType;
  Label& lblName;

  void tipusClick();
  void btnBusca();
  void ok();

 private:
  Console& c_;
  CommonDialog CDialog1;
};

}  // namespace q
