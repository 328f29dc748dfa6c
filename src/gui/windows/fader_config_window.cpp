// Config ("SliderConfig"): the strip's function in long words, its MIDI
// controller, its tooltip, and its knob chosen by colour and shape, painted
// from the skin's knob pictures. APPLY commits and closes.

#include "gui/windows/window_builders.h"

#include <QLabel>
#include <QPainter>

#include "engine/controls/registry.h"
#include "engine/submasters/fader_config.h"
#include "gui/desk/desk_context.h"
#include "gui/views/choice_views.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// A colour choice shows the first knob of its colour row.
class KnobColourBox : public PictureButton {
 public:
  KnobColourBox(Lamp& model, int colour, PictureButton::Source source, QWidget* parent)
      : PictureButton(&model, std::move(source), parent), colour_(colour) {}

 protected:
  void paintFace(QPainter& p) override {
    p.fillRect(rect(), QColor(0x0B, 0x0C, 0x0F));
    const QPixmap knob = source_(indexed("Knob", colour_ * 10 + 1), QSize(width(), height() * 2));
    if (!knob.isNull())
      p.drawPixmap(rect(), knob, QRect(0, knob.height() / 4, knob.width(), knob.height() / 2));
  }

 private:
  int colour_;
};
}  // namespace

FormView* buildFaderConfigWindow(WindowHost& host, Window& model) {
  auto& d = dynamic_cast<FaderConfig&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(4380, 3960);
  DeskContext& ctx = host.ctx();
  PictureButton::Source skin = [&ctx](const std::string& name, QSize size) {
    return ctx.sheet.picture(name, size);
  };

  view->at(new ListView(d.Tipus, nullptr), {120, 120, 2520, 3720});
  auto* midi = new QGroupBox(QObject::tr("Midi"));
  view->at(midi, {2760, 60, 1500, 900});
  view->at(new QLabel(QObject::tr("Controller:")), {2850, 390, 840, 285});
  view->at(new TextBoxView(d.txtMidiChannel, nullptr), {3690, 360, 480, 315});
  view->at(new QLabel(QObject::tr("Tooltip:")), {2760, 1080, 1500, 255});
  view->at(new TextBoxView(d.Tooltip, nullptr), {2760, 1350, 1500, 315});
  for (int i = 1; i <= 4; ++i)
    view->at(new PictureButton(&d.Knob(i), skin, nullptr), {2760 + (i - 1) * 375, 1800, 330, 780});
  for (int i = 0; i <= 4; ++i)
    view->at(new KnobColourBox(d.PicColor(i), i, skin, nullptr), {2760 + i * 300, 2700, 270, 270});
  view->at(new ButtonView(d.APPLY, nullptr), {2760, 3300, 1500, 420});
  return view;
}

}  // namespace q::gui
