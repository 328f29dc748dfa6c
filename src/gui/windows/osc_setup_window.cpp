// OscSetup ("OSC and Show Control"): the port OSC listens on and the address
// beside it, where feedback goes, what the socket does now, and the MIDI
// Show Control device ID. Its frames and labels take the skin's background
// colour, as the interface setup does. Nothing takes effect before OK.

#include "gui/windows/window_builders.h"

#include "engine/remote/osc_setup.h"
#include "gui/desk/desk_context.h"
#include "gui/views/label_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
constexpr int kRowHeight = 420;
}  // namespace

FormView* buildOscSetupWindow(WindowHost& host, Window& model) {
  auto& s = dynamic_cast<OscSetup&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(6000, 4380);
  const int back = s.backColor;

  auto caption = [&](Label& l, Twips at) {
    auto* v = new LabelView(&l, nullptr);
    v->alignment = Qt::AlignRight | Qt::AlignVCenter;
    v->background = back >= 0 ? DeskContext::colour(back) : QColor();
    view->at(v, at);
  };
  DeskContext::fillBack(view->at(new FrameView(s.FrameOsc, nullptr), {120, 120, 5760, 2220}), back);
  TextBox* osc[] = {&s.txtPort, &s.txtAddress, &s.txtFeedbackHost, &s.txtFeedbackPort};
  for (int i = 0; i < 4; ++i) {
    const int y = 480 + i * kRowHeight;
    caption(*s.captions[size_t(i)], {240, y, 1800, 285});
    view->at(new TextBoxView(*osc[i], nullptr), {2160, y - 30, 2400, 330});
  }
  auto* status = new LabelView(&s.lblStatus, nullptr);
  status->foreground = QColor(0x7F, 0xE7, 0xFF);
  view->at(status, {240, 2160 - 90, 5520, 255});

  DeskContext::fillBack(view->at(new FrameView(s.FrameMsc, nullptr), {120, 2460, 5760, 840}), back);
  caption(*s.captions[4], {240, 2820, 1800, 285});
  view->at(new TextBoxView(s.txtMscDevice, nullptr), {2160, 2790, 900, 330});

  view->at(new ButtonView(s.CmdOk, nullptr), {3360, 3600, 1200, 420});
  view->at(new ButtonView(s.CmdCancel, nullptr), {4680, 3600, 1200, 420});
  return view;
}

}  // namespace q::gui
