#pragma once
// What every widget of the desk shares: the console it shows, the skin it is
// cut from, and the zoom at which the fixed layout is drawn. The layout is in
// skin pixels; the whole desk scales by one factor.

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPainter>
#include <QRect>
#include <functional>

#include "engine/look/skin_pieces.h"
#include "gui/desk/skin_sheet.h"
#include "gui/views/view_binding.h"

namespace q {
class Console;
class Control;
}  // namespace q

namespace q::gui {

class DeskContext : public QObject {
  Q_OBJECT
 public:
  explicit DeskContext(Console& c) : console(c) {}

  Console& console;
  SkinSheet sheet;

  double zoom() const { return zoom_; }
  void setZoom(double z);

  // A skin rectangle on the screen, and a skin size at the zoom.
  QRect place(const look::PixelRect& r) const;
  QSize scaled(int w, int h) const;
  // The whole desk's background at the zoom, scaled once.
  QPixmap deskPicture() const;
  // Paints the part of the background under a skin rectangle, as placed at the
  // zoom, at the painter's origin: a track or a picture's background matches
  // the skin around it to the pixel.
  void paintBackground(QPainter& p, const look::PixelRect& r) const;
  // Only the part of it (in the painter's coordinates) that needs painting.
  void paintBackground(QPainter& p, const look::PixelRect& r, const QRect& part) const;
  // The desk's type at a height given in skin pixels.
  QFont font(double px, bool bold = false, bool condensed = false) const;
  static QColor colour(int rgb) { return QColor::fromRgb(QRgb(0xFF000000u | unsigned(rgb))); }
  // Fills a frame or dialog in one of the skin's colours; -1 leaves it as it is.
  static void fillBack(QWidget* w, int rgb);

  // Tells every widget to cut its pictures again and take its new place.
  void reskin() { emit reskinned(); }

 signals:
  void reskinned();

 private:
  double zoom_ = 1;
};

}  // namespace q::gui
