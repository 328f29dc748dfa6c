// SpCue ("Add a special cue:") on the desk: number, type, name and the
// content with its browse button, over OK and Cancel. It opens modal over
// the desk, which goes on running behind it.

#include "gui/windows/window_builders.h"

#include "engine/cuelist/special_cue.h"
#include "gui/views/choice_views.h"
#include "gui/views/label_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

FormView* buildSpecialCueWindow(WindowHost& host, Window& model) {
  auto& d = dynamic_cast<SpCue&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(5400, 2520);
  view->at(new LabelView(&d.lblNumber, nullptr), {120, 150, 900, 255});
  view->at(new TextBoxView(d.txtNumber, nullptr), {1080, 120, 1200, 315});
  view->at(new LabelView(&d.lblType, nullptr), {120, 540, 900, 255});
  view->at(new ComboView(d.Tipus, nullptr), {1080, 495, 4200, 345});
  view->at(new LabelView(&d.lblName, nullptr), {120, 960, 900, 255});
  view->at(new TextBoxView(d.txtName, nullptr), {1080, 930, 4200, 315});
  view->at(new LabelView(&d.Label2, nullptr), {120, 1380, 900, 255});
  view->at(new TextBoxView(d.txtContent, nullptr), {1080, 1350, 3660, 315});
  view->at(new ButtonView(d.btn_Busca, nullptr), {4860, 1350, 420, 315});
  view->at(new ButtonView(d.btn_Ok, nullptr), {2520, 1920, 1260, 420});
  view->at(new ButtonView(d.btn_Cancel, nullptr), {4020, 1920, 1260, 420});
  return view;
}

}  // namespace q::gui
