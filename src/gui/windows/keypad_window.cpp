// Tecles ("Keyboard"): a keypad for the direct command line, for a mouse or a
// touch screen, kept on top of the desk. Each key shows its pressed picture
// while it is held; the keys type into the command line.

#include "gui/windows/window_builders.h"

#include <QPainter>

#include "engine/input/keypad.h"
#include "gui/views/picture_button.h"
#include "gui/views/window_host.h"

namespace q::gui {

namespace {
constexpr int kKey = 600;    // a key's side, in twips
constexpr int kPitch = 660;  // from one key to the next

struct KeyPlace {
  int index;
  int column, row;
  int span;  // keys wide
};

// Digits as on a calculator; the command keys down the right and along the bottom.
constexpr KeyPlace kLayout[] = {
    {7, 0, 0, 1},
    {8, 1, 0, 1},
    {9, 2, 0, 1},
    {Tecles::Through, 3, 0, 1},
    {4, 0, 1, 1},
    {5, 1, 1, 1},
    {6, 2, 1, 1},
    {Tecles::Plus, 3, 1, 1},
    {1, 0, 2, 1},
    {2, 1, 2, 1},
    {3, 2, 2, 1},
    {Tecles::At, 3, 2, 1},
    {0, 0, 3, 1},
    {Tecles::Full, 1, 3, 1},
    {Tecles::Add, 2, 3, 1},
    {Tecles::Subtract, 3, 3, 1},
    {Tecles::Clear, 0, 4, 2},
    {Tecles::Enter, 2, 4, 2},
};

QString keyCaption(int index) {
  if (index >= 0 && index <= 9) return QString::number(index);
  switch (index) {
    case Tecles::At:
      return QStringLiteral("@");
    case Tecles::Add:
      return QStringLiteral("+LV");
    case Tecles::Plus:
      return QStringLiteral("+");
    case Tecles::Subtract:
      return QStringLiteral("\u2212LV");
    case Tecles::Through:
      return QStringLiteral("THRU");
    case Tecles::Enter:
      return QStringLiteral("ENTER");
    case Tecles::Full:
      return QStringLiteral("FULL");
    default:
      return QStringLiteral("CLEAR");
  }
}

// A key draws its own face; the picture its lamp names says whether it is held.
class KeypadKey : public PictureButton {
 public:
  KeypadKey(Lamp& model, int index) : PictureButton(&model, {}, nullptr), index_(index) {
    setFocusPolicy(Qt::NoFocus);
  }

 protected:
  void paintFace(QPainter& p) override {
    const auto* lamp = dynamic_cast<const Lamp*>(model());
    const bool held = lamp && lamp->picture().ends_with("_down");
    const bool command = index_ > 9;
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    QColor top = command ? QColor(0x3A, 0x33, 0x22) : QColor(0x2C, 0x31, 0x3A);
    if (index_ == Tecles::Enter || index_ == Tecles::Full) top = QColor(0x4A, 0x3A, 0x12);
    p.setBrush(held ? top.darker(160) : top);
    p.setPen(QPen(held ? QColor(0xFF, 0xB4, 0x20) : QColor(0x55, 0x5D, 0x6A), 1.2));
    p.drawRoundedRect(face, 5, 5);
    QFont f = font();
    f.setBold(true);
    f.setPixelSize(std::max(8, int(height() * (command ? 0.26 : 0.42))));
    p.setFont(f);
    p.setPen(command ? QColor(0xFF, 0xC8, 0x60) : QColor(0xE8, 0xEC, 0xF2));
    p.drawText(face.translated(0, held ? 1 : 0), Qt::AlignCenter, keyCaption(index_));
  }

 private:
  int index_;
};
}  // namespace

FormView* buildKeypadWindow(WindowHost& host, Window& model) {
  auto& pad = dynamic_cast<Tecles&>(model);
  auto* view = new FormView(host, model);
  view->setSizeTwips(4 * kPitch + 60, 5 * kPitch + 60);
  for (const KeyPlace& k : kLayout)
    view->at(new KeypadKey(pad.BTN(k.index), k.index),
             {60 + k.column * kPitch, 60 + k.row * kPitch, kKey + (k.span - 1) * kPitch, kKey});
  view->setFocusPolicy(Qt::StrongFocus);
  return view;
}

}  // namespace q::gui
