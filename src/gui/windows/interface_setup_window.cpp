// Refreshrate ("Interface setup"): the output adapter with its picture and
// its maker's page, the frame interval, the channels in use, and the port
// and timing loops of the parallel-port adapters. Its frames and labels take
// the skin's background colour.

#include "gui/windows/window_builders.h"

#include <QPainter>

#include "engine/interfaces/interface_list.h"
#include "engine/interfaces/refreshrate.h"
#include "gui/desk/desk_context.h"
#include "gui/views/choice_views.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/scroll_bar_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
// The chosen adapter's picture: its name on a plate, as the device list names it.
class DevicePicture : public PictureButton {
 public:
  explicit DevicePicture(Lamp& model) : PictureButton(&model, {}, nullptr) {}

 protected:
  void paintFace(QPainter& p) override {
    const auto* lamp = dynamic_cast<const Lamp*>(model());
    if (!lamp || lamp->picture().rfind("Device", 0) != 0) return;
    const int k = std::atoi(lamp->picture().c_str() + 6);
    if (k < 0 || k >= kAdapterCount) return;
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF plate = QRectF(rect()).adjusted(4, 8, -4, -8);
    p.setBrush(QColor(0x1F, 0x23, 0x2A));
    p.setPen(QPen(QColor(0x3A, 0x41, 0x4C), 1.5));
    p.drawRoundedRect(plate, 6, 6);
    // The adapter's output: a DMX socket on the plate's right.
    const double r = plate.height() * 0.18;
    const QPointF socket(plate.right() - r * 1.8, plate.center().y());
    p.setBrush(QColor(0x0B, 0x0C, 0x0F));
    p.setPen(QPen(QColor(0xFF, 0xB4, 0x20), 1.5));
    p.drawEllipse(socket, r, r);
    QFont f = font();
    f.setBold(true);
    p.setFont(f);
    p.setPen(QColor(0xE8, 0xEC, 0xF2));
    p.drawText(plate.adjusted(10, 0, -r * 3.6, 0),
               Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap,
               QString::fromUtf8(kInterfaces[k].name));
  }
};

}  // namespace

FormView* buildInterfaceSetupWindow(WindowHost& host, Window& model) {
  auto& s = dynamic_cast<Refreshrate&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(6600, 5100);
  const int back = s.frameBackColor;

  auto caption = [&](Label& l, Twips at) {
    auto* v = new LabelView(&l, nullptr);
    v->background = back >= 0 ? DeskContext::colour(back) : QColor();
    view->at(v, at);
    return v;
  };
  caption(*s.Label2[0], {120, 120, 3600, 255});
  view->at(new ComboView(s.ComboDevice, nullptr), {120, 390, 3600, 345});
  auto* web = caption(s.lblWeb, {120, 840, 3600, 255});
  web->foreground = QColor(0x7F, 0xE7, 0xFF);
  web->underline = true;
  web->setCursor(Qt::PointingHandCursor);
  view->at(new DevicePicture(s.Image2), {3900, 120, 2580, 1380});

  caption(*s.Label2[1], {120, 1260, 3600, 255});
  view->at(new ScrollBarView(s.HScroll1, nullptr), {120, 1530, 2880, 255});
  view->at(new TextBoxView(s.Text1, nullptr), {3120, 1500, 600, 315});
  caption(*s.Label2[2], {120, 1980, 3600, 255});
  view->at(new ComboTextView(s.Combo1, nullptr), {120, 2250, 1200, 345});

  auto* lpt = view->at(new FrameView(s.Frame4, nullptr), {3900, 1620, 2580, 900});
  DeskContext::fillBack(lpt, back);
  view->at(new ComboView(s.CmbLPT, nullptr), {4020, 1980, 2340, 345});

  auto* loops = view->at(new FrameView(s.Frame3, nullptr), {120, 2760, 6360, 1560});
  DeskContext::fillBack(loops, back);
  Scroller* bars[] = {&s.HScroll2, &s.HScroll3, &s.HScroll4};
  TextBox* texts[] = {&s.Text2, &s.Text3, &s.Text4};
  for (int i = 0; i < 3; ++i) {
    view->at(new ScrollBarView(*bars[i], nullptr), {240, 3090 + i * 390, 4200, 255});
    view->at(new TextBoxView(*texts[i], nullptr), {4560, 3060 + i * 390, 1800, 315});
  }
  view->at(new ButtonView(s.btnOk, nullptr), {5220, 4500, 1260, 420});
  return view;
}

}  // namespace q::gui
