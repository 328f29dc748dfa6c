#pragma once
// A Windows bitmap held in memory as 0xRRGGBB pixels. The console reads its
// skin's colour strip with it when no desk is there to load the picture (the
// headless console, tests), and the skin tool writes the default skin with it.

#include <cstdint>
#include <string>
#include <vector>

namespace q::look {

class Bitmap {
 public:
  Bitmap() = default;
  Bitmap(int width, int height, uint32_t fill = 0)
      : width_(width), height_(height), pixels_(size_t(width) * size_t(height), fill) {}

  int width() const { return width_; }
  int height() const { return height_; }
  bool empty() const { return pixels_.empty(); }
  // 0xRRGGBB; a pixel outside the picture reads as black, as a blank piece would.
  uint32_t pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return 0;
    return pixels_[size_t(y) * size_t(width_) + size_t(x)];
  }
  void setPixel(int x, int y, uint32_t rgb) {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return;
    pixels_[size_t(y) * size_t(width_) + size_t(x)] = rgb & 0xFFFFFF;
  }

  // Reads an uncompressed bitmap of 1, 4, 8, 24 or 32 bits a pixel. On
  // failure returns false and says why in error; the bitmap is then unchanged.
  bool load(const std::string& path, std::string& error);
  // Writes a 24-bit bitmap, bottom-up, as every painting program reads it.
  bool save(const std::string& path) const;

 private:
  int width_ = 0, height_ = 0;
  std::vector<uint32_t> pixels_;
};

}  // namespace q::look
