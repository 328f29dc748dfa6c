#include "engine/look/bitmap.h"

#include <bit>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace q::look {

namespace {

constexpr int kMaxSide = 16384;  // no skin is larger; a bigger header is a broken file

uint32_t le32(const std::vector<uint8_t>& b, size_t at) {
  return uint32_t(b[at]) | uint32_t(b[at + 1]) << 8 | uint32_t(b[at + 2]) << 16 |
         uint32_t(b[at + 3]) << 24;
}
uint16_t le16(const std::vector<uint8_t>& b, size_t at) { return uint16_t(b[at] | b[at + 1] << 8); }

// One colour channel taken out of a packed pixel by its mask, scaled to 0..255.
uint32_t channel(uint32_t px, uint32_t mask) {
  if (!mask) return 0;
  const int shift = std::countr_zero(mask);
  const uint32_t max = mask >> shift;
  return ((px & mask) >> shift) * 255 / max;
}

struct Header {
  int width = 0, height = 0, bpp = 0;
  bool topDown = false;
  uint32_t compression = 0, offset = 0;
  uint32_t masks[3] = {0, 0, 0};
  std::vector<uint32_t> palette;
};

bool readHeader(const std::vector<uint8_t>& b, Header& h, std::string& error) {
  if (b.size() < 26 || b[0] != 'B' || b[1] != 'M') return error = "not a bitmap", false;
  h.offset = le32(b, 10);
  const uint32_t dib = le32(b, 14);
  if (dib == 12) {  // the old OS/2 core header
    h.width = le16(b, 18);
    h.height = int16_t(le16(b, 20));
    h.bpp = le16(b, 24);
  } else if (dib >= 40 && b.size() >= 14 + size_t(dib)) {
    h.width = int32_t(le32(b, 18));
    h.height = int32_t(le32(b, 22));
    h.bpp = le16(b, 28);
    h.compression = le32(b, 30);
  } else {
    return error = "unknown bitmap header", false;
  }
  h.topDown = h.height < 0;
  if (h.topDown) h.height = -h.height;
  if (h.width <= 0 || h.height <= 0 || h.width > kMaxSide || h.height > kMaxSide)
    return error = "bad bitmap size", false;
  if (h.compression != 0 && h.compression != 3)
    return error = "compressed bitmaps are not supported", false;
  if (h.bpp == 16 || h.bpp == 32) {
    const bool fields = h.compression == 3;
    const size_t at = 54;  // masks follow a 40-byte header, or sit at the same place inside V4/V5
    if (fields && b.size() >= at + 12) {
      for (int i = 0; i < 3; ++i) h.masks[i] = le32(b, at + 4 * size_t(i));
    } else if (h.bpp == 16) {
      h.masks[0] = 0x7C00, h.masks[1] = 0x03E0, h.masks[2] = 0x001F;
    } else {
      h.masks[0] = 0xFF0000, h.masks[1] = 0x00FF00, h.masks[2] = 0x0000FF;
    }
  } else if (h.bpp == 1 || h.bpp == 4 || h.bpp == 8) {
    const size_t entry = dib == 12 ? 3 : 4;
    size_t count = size_t(1) << h.bpp;
    if (dib >= 40 && le32(b, 46) != 0 && le32(b, 46) < count) count = le32(b, 46);
    const size_t at = 14 + dib;
    for (size_t i = 0; i < count && at + entry * (i + 1) <= b.size(); ++i) {
      const size_t p = at + entry * i;
      h.palette.push_back(uint32_t(b[p + 2]) << 16 | uint32_t(b[p + 1]) << 8 | b[p]);
    }
  } else if (h.bpp != 24) {
    return error = "unsupported bits per pixel", false;
  }
  return true;
}

uint32_t readPixel(const std::vector<uint8_t>& b, size_t row, int x, const Header& h) {
  switch (h.bpp) {
    case 24: {
      const size_t p = row + size_t(x) * 3;
      return uint32_t(b[p + 2]) << 16 | uint32_t(b[p + 1]) << 8 | b[p];
    }
    case 32:
    case 16: {
      const uint32_t px = h.bpp == 32 ? le32(b, row + size_t(x) * 4) : le16(b, row + size_t(x) * 2);
      return channel(px, h.masks[0]) << 16 | channel(px, h.masks[1]) << 8 | channel(px, h.masks[2]);
    }
    default: {
      const int perByte = 8 / h.bpp;
      const uint8_t byte = b[row + size_t(x / perByte)];
      const int shift = 8 - h.bpp * (x % perByte + 1);
      const size_t index = (byte >> shift) & ((1u << h.bpp) - 1);
      return index < h.palette.size() ? h.palette[index] : 0;
    }
  }
}

}  // namespace

bool Bitmap::load(const std::string& path, std::string& error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return error = "cannot open " + path, false;
  const std::vector<uint8_t> b((std::istreambuf_iterator<char>(in)),
                               std::istreambuf_iterator<char>());
  Header h;
  if (!readHeader(b, h, error)) return false;
  const size_t stride = (size_t(h.width) * size_t(h.bpp) + 31) / 32 * 4;
  if (h.offset > b.size() || b.size() - h.offset < stride * size_t(h.height))
    return error = "bitmap is cut short", false;
  Bitmap out(h.width, h.height);
  for (int y = 0; y < h.height; ++y) {
    const size_t row = h.offset + stride * size_t(h.topDown ? y : h.height - 1 - y);
    uint32_t* dst = out.pixels_.data() + size_t(y) * size_t(h.width);
    if (h.bpp == 24) {  // the usual skin: straight copy, no per-pixel dispatch
      const uint8_t* src = b.data() + row;
      for (int x = 0; x < h.width; ++x, src += 3)
        dst[x] = uint32_t(src[2]) << 16 | uint32_t(src[1]) << 8 | src[0];
    } else {
      for (int x = 0; x < h.width; ++x) dst[x] = readPixel(b, row, x, h);
    }
  }
  *this = std::move(out);
  return true;
}

bool Bitmap::save(const std::string& path) const {
  const size_t stride = (size_t(width_) * 3 + 3) / 4 * 4;
  const uint32_t imageSize = uint32_t(stride * size_t(height_));
  std::vector<uint8_t> b(54 + imageSize, 0);
  auto put32 = [&b](size_t at, uint32_t v) {
    for (int i = 0; i < 4; ++i) b[at + size_t(i)] = uint8_t(v >> (8 * i));
  };
  b[0] = 'B', b[1] = 'M';
  put32(2, uint32_t(b.size()));
  put32(10, 54);
  put32(14, 40);
  put32(18, uint32_t(width_));
  put32(22, uint32_t(height_));
  b[26] = 1;
  b[28] = 24;
  put32(34, imageSize);
  put32(38, 2835);  // 72 dots per inch
  put32(42, 2835);
  for (int y = 0; y < height_; ++y) {
    const size_t row = 54 + stride * size_t(height_ - 1 - y);
    for (int x = 0; x < width_; ++x) {
      const uint32_t p = pixel(x, y);
      b[row + size_t(x) * 3] = uint8_t(p);
      b[row + size_t(x) * 3 + 1] = uint8_t(p >> 8);
      b[row + size_t(x) * 3 + 2] = uint8_t(p >> 16);
    }
  }
  const std::string tmp = path + ".tmp";
  {
    std::ofstream out(tmp, std::ios::binary | std::ios::trunc);
    if (!out.write(reinterpret_cast<const char*>(b.data()), std::streamsize(b.size())))
      return false;
  }
  return std::rename(tmp.c_str(), path.c_str()) == 0;
}

}  // namespace q::look
