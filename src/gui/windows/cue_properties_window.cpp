// CueProps ("Cue Properties") on the desk: the cue's fields on the left, the
// argument in its frame, the two auto marks and the chasers' groups below;
// the players' groups on the right, OK and Cancel under them. The play, pause and
// stop buttons draw their own signs, lit in amber while their action is set.

#include "gui/windows/window_builders.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include "engine/cuelist/cue_properties.h"
#include "gui/views/choice_views.h"
#include "gui/views/label_view.h"
#include "gui/views/picture_button.h"
#include "gui/views/scroll_bar_view.h"
#include "gui/views/text_box_view.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
const QColor kAmber(0xFF, 0xB4, 0x20);

// A button whose lamp names its sign and whether it is lit: "PlayOn", "StopOff" ...
class ActionButton : public PictureButton {
 public:
  explicit ActionButton(Lamp& model) : PictureButton(&model, {}, nullptr) {}

 protected:
  void paintFace(QPainter& p) override {
    const auto* lamp = dynamic_cast<const Lamp*>(model());
    if (!lamp) return;
    const std::string& name = lamp->picture();
    const bool lit = name.ends_with("On");
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    p.setBrush(lit ? QColor(0x4A, 0x3A, 0x12) : QColor(0x2A, 0x2F, 0x37));
    p.setPen(QPen(lit ? kAmber : QColor(0x55, 0x5D, 0x6A), 1.2));
    p.drawRoundedRect(face, 4, 4);
    const double s = std::min(face.width(), face.height()) * 0.46;
    const QPointF c = face.center();
    p.setPen(Qt::NoPen);
    p.setBrush(lit ? kAmber : QColor(0xC9, 0xCF, 0xD8));
    if (name.starts_with("Play")) {
      QPainterPath tri;
      tri.moveTo(c + QPointF(-s * 0.45, -s * 0.55));
      tri.lineTo(c + QPointF(s * 0.6, 0));
      tri.lineTo(c + QPointF(-s * 0.45, s * 0.55));
      tri.closeSubpath();
      p.drawPath(tri);
    } else if (name.starts_with("Pause")) {
      p.drawRect(QRectF(c.x() - s * 0.45, c.y() - s * 0.5, s * 0.3, s));
      p.drawRect(QRectF(c.x() + s * 0.15, c.y() - s * 0.5, s * 0.3, s));
    } else {
      p.drawRect(QRectF(c.x() - s * 0.45, c.y() - s * 0.45, s * 0.9, s * 0.9));
    }
  }
};

// The number a scroller stands at, beside it.
class ScrollerValue : public QLabel {
 public:
  explicit ScrollerValue(Scroller& model) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    binding_.bind(&model, [this] { sync(); });
    sync();
  }

 private:
  void sync() {
    if (auto* s = binding_.as<Scroller>()) setText(QString::number(s->position()));
  }
  ViewBinding binding_;
};

class CuePropsView : public FormView {
 public:
  CuePropsView(WindowHost& host, CueProps& m) : FormView(host, m) {
    setSizeTwips(8040, 5880);
    fields(m);
    auto* frame = at(new FrameView(m.Frame2, nullptr), {120, 1740, 4440, 840});
    inFrame(frame, new TextBoxView(m.txtVar, nullptr), {120, 330, 3660, 315});
    inFrame(frame, new ButtonView(m.btn_Busca, nullptr), {3900, 330, 420, 315})
        ->setVisible(m.btn_Busca.visible());
    at(new CheckBoxView(m.Check1, nullptr), {120, 2700, 2100, 285});
    at(new CheckBoxView(m.Check2, nullptr), {2340, 2700, 2100, 285});
    for (int k = 0; k < 2; ++k) {
      group(m.FrameFX(k), m.FXActive(k), {120, 3060 + k * 1440, 4440, 1380},
            {&m.ImagePlay(4 + k), &m.ImageStop(4 + k)},
            {{"Level", &m.LevelScroller(k)}, {"Speed", &m.SpeedScroller(k)}});
      const int player = k == 0 ? 0 : 3;
      group(m.FrameMedia(k), m.MpActive(k), {4800, 60 + k * 1560, 3120, 1440},
            {&m.ImagePlay(player), &m.ImagePause(player), &m.ImageStop(player)},
            {{"Volume", &m.VolScroller(k)}, {"Balance", &m.PanScroller(k)}});
    }
    at(new ButtonView(m.btn_Ok, nullptr), {4800, 5340, 1440, 420});
    at(new ButtonView(m.btn_Cancel, nullptr), {6480, 5340, 1440, 420});
  }

 private:
  void fields(CueProps& m) {
    caption(m.Label1(0), {120, 150, 900, 255});
    at(new TextBoxView(m.txtNum, nullptr), {1080, 120, 900, 315});
    caption(m.Label1(1), {2160, 150, 660, 255});
    at(new TextBoxView(m.txtName, nullptr), {2820, 120, 1740, 315});
    caption(m.Label1(2), {120, 570, 900, 255});
    at(new ComboView(m.Combo1, nullptr), {1080, 525, 2700, 345});
    at(new TextBoxView(m.txtFunc, nullptr), {3900, 540, 660, 315});
    TextBox* times[] = {&m.txtWaitUp, &m.txtTimeUp, &m.txtWaitDown, &m.txtTimeDown};
    for (int i = 0; i < 4; ++i) {
      caption(m.Label1(3 + i), {120 + i * 1140, 1020, 1080, 255});
      at(new TextBoxView(*times[i], nullptr), {120 + i * 1140, 1290, 1020, 315});
    }
  }
  void caption(Label& l, Twips place) { at(new LabelView(&l, nullptr), place); }

  // A view inside a frame, placed from the frame's corner; it hides with the frame.
  template <class W>
  W* inFrame(QWidget* frame, W* view, Twips place) {
    at(view, place);
    view->setParent(frame);
    view->show();
    return view;
  }

  struct Slider {
    const char* caption;
    Scroller* scroller;
  };
  // A frame with its Active box, its buttons in a row and two sliders with their numbers.
  void group(Label& title, CheckBox& active, Twips box, std::vector<Lamp*> buttons,
             std::vector<Slider> sliders) {
    auto* frame = at(new FrameView(title, nullptr), box);
    inFrame(frame, new CheckBoxView(active, nullptr), {120, 300, 1020, 285});
    int x = box.width - 120 - int(buttons.size()) * 540;
    for (Lamp* b : buttons) {
      inFrame(frame, new ActionButton(*b), {x, 270, 480, 345});
      x += 540;
    }
    for (size_t i = 0; i < sliders.size(); ++i) {
      const int y = 720 + int(i) * 330;
      auto* l =
          inFrame(frame, new QLabel(QString::fromLatin1(sliders[i].caption)), {120, y, 840, 255});
      l->setPalette(palette());
      inFrame(frame, new ScrollBarView(*sliders[i].scroller, nullptr),
              {960, y, box.width - 1680, 255});
      inFrame(frame, new ScrollerValue(*sliders[i].scroller), {box.width - 660, y, 540, 255});
    }
  }
};
}  // namespace

FormView* buildCuePropertiesWindow(WindowHost& host, Window& model) {
  return new CuePropsView(host, dynamic_cast<CueProps&>(model));
}

}  // namespace q::gui
