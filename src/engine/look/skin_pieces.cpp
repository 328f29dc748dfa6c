#include "engine/look/skin_pieces.h"

namespace q::look {

PixelRect pieceRect(std::string_view name) {
  for (const Piece& p : kFixedPieces)
    if (p.name == name) return p.rect;
  return {};
}

bool isKnobElement(int element) {
  if (element < 1) return false;
  const int colour = element / 10;
  const int shape = element % 10;
  return colour < kKnobColours && shape >= 1 && shape <= kKnobShapes;
}

PixelRect knobRect(int element) {
  if (!isKnobElement(element)) return {};
  const int row = element / 10;
  const int column = element % 10 - 1;
  return {769 + kKnobWidth * column, kKnobHeight * row, kKnobWidth, kKnobHeight};
}

std::vector<int> knobElements() {
  std::vector<int> out;
  for (int r = 0; r < kKnobColours; ++r)
    for (int c = 0; c < kKnobShapes; ++c) out.push_back(10 * r + c + 1);
  return out;
}

PixelPoint colourPixel(SkinColour c) {
  return {kColourStrip.left + static_cast<int>(c), kColourStrip.top + 1};
}

}  // namespace q::look
