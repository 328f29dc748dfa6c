// quintara-skin FILE.bmp [preview.png]
// Draws the default skin: the desk as the layout places its controls, and to
// its right the sheet of spare parts (lit and pressed buttons, the knobs, the
// colour strip) at the places every skin keeps them. Run it again after a
// change of the layout and commit skins/default.bmp.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "engine/look/bitmap.h"
#include "engine/look/desk_layout.h"
#include "engine/look/skin_pieces.h"
#include "skin_painter.h"

namespace {

using namespace q::look;
using skin::KeyState;
namespace pal = skin::palette;

constexpr int kSkinWidth = 860;  // the desk and, right of it, the parts sheet

// The colours the strip hands to the console, in the order of its columns.
constexpr unsigned kStripColours[kSkinColourCount] = {
    0xF2F2F2,  // level text of the strips
    0x303030,  // background of the secondary windows
    0xD8DCE4,  // button captions
    0xFFFFFF,  // live display levels
    0xFFC040,  // live display channel numbers
    0x7FE7FF,  // chaser steps
    0xE04040,  // rise bar of the times graph
    0x4080FF,  // fall bar of the times graph
    0x40E040,  // live display bars
};

bool isOnKey(const DeskItem& it) { return it.control.rfind("lbl", 0) == 0; }

void drawFace(QPainter& p, const DeskItem& it) {
  const QRectF r = skin::toRect(it.rect);
  switch (it.face) {
    case Face::LongKey:
      skin::drawLongKey(p, r, KeyState::Unlit);
      break;
    case Face::GoKey:
      skin::drawGoKey(p, r, false);
      break;
    case Face::SquareKey:
      skin::drawSquareKey(p, r, QString::fromStdString(it.caption),
                          it.control == "btnBlackOut" ? pal::red : pal::blue, false);
      break;
    case Face::Selector:
      skin::drawSelector(p, r, false);
      break;
    case Face::FlashKey:
      skin::drawFlashKey(p, r, false);
      break;
    case Face::LedBar:
      skin::drawLedBar(p, r, false);
      break;
    case Face::Well:
      skin::drawWell(p, r);
      break;
    case Face::None:
      break;
  }
}

// The live display's glass: a faint mark between its thirty slots.
void drawLiveDisplay(QPainter& p, const QRectF& r) {
  skin::drawWell(p, r);
  p.setPen(QPen(QColor(0x16, 0x19, 0x1E), 1));
  for (int slot = 1; slot < 30; ++slot) {
    const double x = r.left() + slot * 25 + 0.5;
    p.drawLine(QPointF(x, r.top() + 4), QPointF(x, r.bottom() - 4));
  }
}

// The times graph's glass: two lanes, fall above and rise below, on a
// fifteen-unit scale.
void drawTimesGraph(QPainter& p, const QRectF& r) {
  skin::drawWell(p, r);
  const double unit = r.height() / 15.0;
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x12, 0x15, 0x1A));
  p.drawRect(QRectF(r.left() + 1, r.top() + unit * 1, r.width() - 2, unit * 2));
  p.drawRect(QRectF(r.left() + 1, r.top() + unit * 4, r.width() - 2, unit * 2));
  skin::drawText(p, QRectF(r.left() + 4, r.top() + unit * 7.5, r.width() - 8, unit * 6),
                 "STAGE FALLS  \u2022  PROG RISES", 7, false, Align::Right,
                 QColor(0x3E, 0x45, 0x50));
}

void drawItem(QPainter& p, const DeskItem& it) {
  const QRectF r = skin::toRect(it.rect);
  const QString text = QString::fromStdString(it.caption);
  switch (it.kind) {
    case ItemKind::Panel:
      skin::fillPanel(p, r);
      break;
    case ItemKind::Title:
      skin::drawText(p, r, text, it.fontPx, true, it.align, pal::title);
      break;
    case ItemKind::Caption:
      skin::drawText(p, r, text, it.fontPx, it.bold, it.align, pal::caption);
      break;
    case ItemKind::StripFader:
      skin::drawSlot(p, r, kKnobHeight);
      skin::drawScale(p, r, kKnobHeight, -1, false);
      break;
    case ItemKind::MasterFader:
      skin::drawSlot(p, r, kKnobHeight);
      skin::drawScale(p, r, kKnobHeight, it.control == "SMaster" ? 1 : -1, it.control == "SMaster");
      break;
    case ItemKind::Button:
    case ItemKind::Lamp:
      drawFace(p, it);
      break;
    case ItemKind::Label:
      if (!isOnKey(it)) skin::drawWell(p, r);
      break;
    case ItemKind::TextBox:
    case ItemKind::ScrollBar:
    case ItemKind::Player:
      skin::drawWell(p, r);
      break;
    case ItemKind::Picture:
      if (it.control == "Picture1")
        drawLiveDisplay(p, r);
      else
        drawTimesGraph(p, r);
      break;
  }
}

void drawDesk(QPainter& p) {
  for (const DeskItem& it : deskLayout())
    if (it.kind == ItemKind::Panel) drawItem(p, it);
  // The GO key stands in a lit bezel of its own.
  if (const DeskItem* go = findItem("GOButton")) {
    const QRectF r = skin::toRect(go->rect).adjusted(-4, -4, 4, 4);
    p.setPen(QPen(QColor(0x24, 0x5C, 0x38), 1));
    p.setBrush(QColor(0x10, 0x1C, 0x15));
    p.drawRoundedRect(r.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
  }
  for (const DeskItem& it : deskLayout())
    if (it.kind != ItemKind::Panel) drawItem(p, it);
}

void drawParts(QPainter& p) {
  const QRectF sheet(kDeskWidth, 0, kSkinWidth - kDeskWidth, kMinSkinHeight);
  p.fillRect(sheet, pal::desk);
  for (int element : knobElements())
    skin::drawStripKnob(p, skin::toRect(knobRect(element)), element / 10, element % 10);
  skin::drawMasterKnob(p, skin::toRect(kSMasterKnob), QColor(0xC8, 0x2A, 0x2A), Qt::white);
  skin::drawMasterKnob(p, skin::toRect(kXfaderKnob), QColor(0xB4, 0xBC, 0xC8),
                       QColor(0x10, 0x12, 0x16));
  // Each piece is drawn inside its own rectangle: a glow must not spill on a neighbour.
  auto piece = [&p](const char* name, const QColor& ground, auto draw) {
    const QRectF r = skin::toRect(pieceRect(name));
    p.save();
    p.setClipRect(r);
    p.fillRect(r, ground);
    draw(r);
    p.restore();
  };
  piece("Llarg2", pal::panel, [&](QRectF r) { skin::drawLongKey(p, r, KeyState::Pressed); });
  piece("ImgLedPush", pal::panel, [&](QRectF r) { skin::drawLongKey(p, r, KeyState::Held); });
  piece("ImgLedOn", pal::panel, [&](QRectF r) { skin::drawLongKey(p, r, KeyState::Lit); });
  piece("imgGo", QColor(0x10, 0x1C, 0x15), [&](QRectF r) { skin::drawGoKey(p, r, true); });
  piece("imgBO", pal::panel, [&](QRectF r) { skin::drawSquareKey(p, r, "B.O.", pal::red, true); });
  piece("imgXfaderMode", pal::panel,
        [&](QRectF r) { skin::drawSquareKey(p, r, "TIME", pal::blue, true); });
  piece("led_ON", pal::panel, [&](QRectF r) { skin::drawSelector(p, r, true); });
  piece("Led_On2", pal::panel, [&](QRectF r) { skin::drawLedBar(p, r, true); });
  piece("imgFLASH", pal::panel, [&](QRectF r) { skin::drawFlashKey(p, r, true); });
}

// The strip is read one pixel a colour; the rows around it repeat the colour
// so that a reader off by one row still finds it.
void drawColourStrip(q::look::Bitmap& bmp) {
  for (int y = 0; y < kColourStrip.height; ++y)
    for (int x = 0; x < kColourStrip.width; ++x) {
      const int column = std::clamp(x, 1, kSkinColourCount);
      bmp.setPixel(kColourStrip.left + x, kColourStrip.top + y, kStripColours[column - 1]);
    }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: quintara-skin FILE.bmp [preview.png]\n");
    return 2;
  }
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QGuiApplication app(argc, argv);
  QImage img(kSkinWidth, kDeskHeight, QImage::Format_RGB32);
  img.fill(pal::desk);
  {
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    QLinearGradient g(0, 0, 0, kDeskHeight);
    g.setColorAt(0, QColor(0x13, 0x15, 0x19));
    g.setColorAt(1, QColor(0x0B, 0x0C, 0x0F));
    p.fillRect(QRect(0, 0, kDeskWidth, kDeskHeight), g);
    drawDesk(p);
    drawParts(p);
  }
  q::look::Bitmap bmp(img.width(), img.height());
  for (int y = 0; y < img.height(); ++y)
    for (int x = 0; x < img.width(); ++x) bmp.setPixel(x, y, img.pixel(x, y) & 0xFFFFFF);
  drawColourStrip(bmp);
  if (!bmp.save(argv[1])) {
    std::fprintf(stderr, "quintara-skin: cannot write %s\n", argv[1]);
    return 1;
  }
  if (argc > 2) img.save(argv[2]);
  return 0;
}
