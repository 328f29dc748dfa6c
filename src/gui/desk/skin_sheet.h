#pragma once
// The main window's picture on the Qt side: loads the skin (any format Qt
// reads), hands its pixels to the engine's look, and cuts the pieces the
// widgets paint, scaled to the desk's zoom. Cut pictures are cached until
// the next skin or zoom.

#include <QImage>
#include <QPixmap>
#include <QSize>
#include <array>
#include <map>

#include "engine/look/look.h"
#include "engine/look/skin_pieces.h"

namespace q::gui {

class SkinSheet : public SkinPicture {
 public:
  bool load(const std::string& path, std::string& error) override;
  uint32_t pixel(int x, int y) const override;

  const QImage& image() const { return image_; }
  bool hasImage() const { return !image_.isNull(); }

  // The skin under rect, scaled to size. A part outside the picture is black.
  QPixmap cut(const look::PixelRect& rect, QSize size) const;
  // A named picture (`Llarg2`, `Knob(11)` ...) scaled to size; null when the name is no piece.
  QPixmap picture(const std::string& name, QSize size) const;
  // The skin rect a picture name stands for; empty when the name is no piece.
  static look::PixelRect pictureRect(const std::string& name);

  // Drops every cut picture (new skin, new zoom).
  void clearCache() { cache_.clear(); }

 private:
  QImage image_;
  // By the rectangle cut and the size it is scaled to: left, top, width, height, w, h.
  mutable std::map<std::array<int, 6>, QPixmap> cache_;
};

}  // namespace q::gui
