#include "gui/desk/desk_palette.h"

#include <QApplication>
#include <QHash>
#include <QStyleFactory>

namespace q::gui {

namespace {

constexpr QRgb kDefaultGround = 0xFF15171B;
constexpr QRgb kAmber = 0xFFFFB420;  // the desk's focus and selection colour
constexpr int kSampleStep = 3;       // every third pixel each way is plenty to find the ground

// The most frequent colour of the picture: on a skin, its panels' ground.
QColor groundColour(const QImage& skin) {
  if (skin.isNull()) return QColor(kDefaultGround);
  const QImage rgb = skin.convertToFormat(QImage::Format_RGB32);
  QHash<QRgb, int> counts;
  QRgb best = kDefaultGround;
  int bestCount = 0;
  for (int y = 0; y < rgb.height(); y += kSampleStep) {
    const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
    for (int x = 0; x < rgb.width(); x += kSampleStep) {
      const int n = ++counts[line[x]];
      if (n > bestCount) {
        bestCount = n;
        best = line[x];
      }
    }
  }
  return QColor(best);
}

}  // namespace

QPalette paletteFromSkin(const QImage& skin) {
  const QColor ground = groundColour(skin);
  const bool dark = ground.lightness() < 128;
  const QColor text = dark ? QColor(0xE8, 0xEC, 0xF2) : QColor(0x10, 0x12, 0x16);
  const QColor field = dark ? ground.darker(150) : ground.lighter(115);
  const QColor button = dark ? ground.lighter(160) : ground.darker(110);
  // lighter() of pure black stays black: keep a visible step for the buttons.
  const QColor raised = button == ground ? QColor(0x2A, 0x2F, 0x37) : button;

  QPalette p;
  p.setColor(QPalette::Window, ground);
  p.setColor(QPalette::WindowText, text);
  p.setColor(QPalette::Base, field);
  p.setColor(QPalette::AlternateBase, dark ? ground : ground.darker(105));
  p.setColor(QPalette::Text, text);
  p.setColor(QPalette::PlaceholderText, text.darker(dark ? 160 : 60));
  p.setColor(QPalette::Button, raised);
  p.setColor(QPalette::ButtonText, text);
  p.setColor(QPalette::BrightText, QColor(kAmber));
  p.setColor(QPalette::ToolTipBase, raised);
  p.setColor(QPalette::ToolTipText, text);
  p.setColor(QPalette::Highlight, QColor(kAmber));
  p.setColor(QPalette::HighlightedText, Qt::black);
  p.setColor(QPalette::Link, QColor(kAmber));
  p.setColor(QPalette::Light, raised.lighter(130));
  p.setColor(QPalette::Midlight, raised.lighter(115));
  p.setColor(QPalette::Mid, raised.darker(130));
  p.setColor(QPalette::Dark, ground.darker(200));
  p.setColor(QPalette::Shadow, Qt::black);
  // Greyed entries stay readable but plainly out of reach.
  const QColor greyed = dark ? text.darker(190) : text.lighter(300);
  for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    p.setColor(QPalette::Disabled, role, greyed);
  return p;
}

void applySkinPalette(const QImage& skin) {
  if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion")))
    QApplication::setStyle(fusion);
  QApplication::setPalette(paletteFromSkin(skin));
}

}  // namespace q::gui
