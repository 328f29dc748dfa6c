#include "engine/look/logo.h"

#include <array>
#include <cstdint>

namespace q::look {

namespace {
constexpr int kWidth = 150, kHeight = 36;
constexpr int kScale = 3;  // pixels a dot of the letters

// Letters of five by seven dots, one byte a row, the leftmost dot in bit 4.
using Glyph = std::array<uint8_t, 7>;
constexpr Glyph kQ = {0x0E, 0x11, 0x11, 0x11, 0x15, 0x12, 0x0D};
constexpr Glyph kU = {0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E};
constexpr Glyph kI = {0x0E, 0x04, 0x04, 0x04, 0x04, 0x04, 0x0E};
constexpr Glyph kN = {0x11, 0x19, 0x15, 0x15, 0x13, 0x11, 0x11};
constexpr Glyph kT = {0x1F, 0x04, 0x04, 0x04, 0x04, 0x04, 0x04};
constexpr Glyph kA = {0x0E, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11};
constexpr Glyph kR = {0x1E, 0x11, 0x11, 0x1E, 0x14, 0x12, 0x11};
constexpr std::array<const Glyph*, 8> kName = {&kQ, &kU, &kI, &kN, &kT, &kA, &kR, &kA};

constexpr uint32_t kAmber = 0xFFB420;
constexpr uint32_t kGreen = 0x36E06E;

void box(Bitmap& b, int x, int y, int w, int h, uint32_t rgb) {
  for (int j = y; j < y + h; ++j)
    for (int i = x; i < x + w; ++i) b.setPixel(i, j, rgb);
}

void glyph(Bitmap& b, const Glyph& g, int x, int y, uint32_t rgb) {
  for (int row = 0; row < 7; ++row)
    for (int col = 0; col < 5; ++col)
      if (g[size_t(row)] & (0x10 >> col))
        box(b, x + col * kScale, y + row * kScale, kScale, kScale, rgb);
}
}  // namespace

Bitmap consoleLogo(bool onDark) {
  const uint32_t paper = onDark ? 0x15171B : 0xFFFFFF;
  const uint32_t ink = onDark ? 0xE8ECF2 : 0x30343A;
  Bitmap b(kWidth, kHeight, paper);
  // Twenty lamps, every fifth one green, as on the desk's strips.
  for (int i = 0; i < 20; ++i) box(b, 3 + i * 7 + 1, 2, 4, 4, i % 5 == 4 ? kGreen : kAmber);
  const int pitch = 6 * kScale;
  const int left = (kWidth - (int(kName.size()) * pitch - kScale)) / 2;
  for (size_t k = 0; k < kName.size(); ++k) glyph(b, *kName[k], left + int(k) * pitch, 10, ink);
  box(b, left, kHeight - 3, int(kName.size()) * pitch - kScale, 1, kAmber);
  return b;
}

}  // namespace q::look
