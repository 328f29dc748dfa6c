#include "gui/desk/splash_screen.h"

#include <QLinearGradient>
#include <QPainter>

#include "gui/desk/program_pages.h"

namespace q::gui {

SplashScreen::SplashScreen(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
  setObjectName("frmSplash");
  setFixedSize(440, 230);
  setAttribute(Qt::WA_DeleteOnClose);
  setFocusPolicy(Qt::StrongFocus);
}

void SplashScreen::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  QLinearGradient g(0, 0, 0, height());
  g.setColorAt(0, QColor(0x1C, 0x1F, 0x25));
  g.setColorAt(1, QColor(0x0B, 0x0C, 0x0F));
  p.fillRect(rect(), g);
  p.setPen(QColor(0x2C, 0x31, 0x39));
  p.drawRect(rect().adjusted(0, 0, -1, -1));
  // A row of lit strip lamps: the console's own sign.
  for (int i = 0; i < 20; ++i) {
    const QColor lamp = i % 5 == 4 ? QColor(0x36, 0xE0, 0x6E) : QColor(0xFF, 0xB4, 0x20);
    p.setPen(Qt::NoPen);
    p.setBrush(lamp.darker(100 + (i * 37) % 120));
    p.drawEllipse(QPointF(40 + i * 19, 40), 4, 4);
  }
  QFont title("DejaVu Sans");
  title.setPixelSize(42);
  title.setBold(true);
  title.setLetterSpacing(QFont::AbsoluteSpacing, 6);
  p.setFont(title);
  p.setPen(QColor(0xFF, 0xB4, 0x20));
  p.drawText(QRect(0, 62, width(), 60), Qt::AlignCenter, QStringLiteral("QUINTARA"));
  QFont small("DejaVu Sans");
  small.setPixelSize(13);
  p.setFont(small);
  p.setPen(QColor(0xC9, 0xCF, 0xD8));
  p.drawText(QRect(0, 122, width(), 22), Qt::AlignCenter, tr("Theatre lighting console"));
  p.setPen(QColor(0x6E, 0x77, 0x84));
  p.drawText(QRect(0, 146, width(), 20), Qt::AlignCenter, tr("Version %1").arg(programVersion()));
  small.setPixelSize(11);
  p.setFont(small);
  p.drawText(QRect(0, 196, width(), 20), Qt::AlignCenter, tr("Click or press a key to go on"));
}

void SplashScreen::mousePressEvent(QMouseEvent*) {
  emit dismissed();
  close();
}

void SplashScreen::keyPressEvent(QKeyEvent*) {
  emit dismissed();
  close();
}

}  // namespace q::gui
