#include "gui/desk/skin_sheet.h"

#include <QImageReader>
#include <QPainter>

namespace q::gui {

bool SkinSheet::load(const std::string& path, std::string& error) {
  QImageReader reader(QString::fromStdString(path));
  QImage img = reader.read();
  if (img.isNull()) {
    error = reader.errorString().toStdString();
    return false;
  }
  image_ = img.convertToFormat(QImage::Format_RGB32);
  cache_.clear();
  return true;
}

uint32_t SkinSheet::pixel(int x, int y) const {
  if (!image_.valid(x, y)) return 0;
  return image_.pixel(x, y) & 0xFFFFFF;
}

QPixmap SkinSheet::cut(const look::PixelRect& r, QSize size) const {
  if (r.width <= 0 || r.height <= 0 || size.isEmpty()) return {};
  const std::array<int, 6> key{r.left, r.top, r.width, r.height, size.width(), size.height()};
  auto it = cache_.find(key);
  if (it != cache_.end()) return it->second;
  // Through one scratch picture of the piece's size: what lies outside the skin stays black.
  QImage piece(r.width, r.height, QImage::Format_RGB32);
  piece.fill(Qt::black);
  if (!image_.isNull()) {
    QPainter p(&piece);
    p.drawImage(QPoint(0, 0), image_, QRect(r.left, r.top, r.width, r.height));
  }
  if (piece.size() != size)
    piece = piece.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QPixmap pm = QPixmap::fromImage(piece);
  cache_.emplace(key, pm);
  return pm;
}

look::PixelRect SkinSheet::pictureRect(const std::string& name) {
  if (name.rfind("Knob(", 0) == 0 && name.size() > 6 && name.back() == ')') {
    const int element = std::atoi(name.c_str() + 5);
    return look::knobRect(element);
  }
  return look::pieceRect(name);
}

QPixmap SkinSheet::picture(const std::string& name, QSize size) const {
  const look::PixelRect r = pictureRect(name);
  if (r.width == 0) return {};
  return cut(r, size);
}

}  // namespace q::gui
