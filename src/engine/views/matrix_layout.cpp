#include "engine/views/matrix_layout.h"

#include <algorithm>
#include <cmath>

#include "engine/core/value.h"

namespace q {

namespace {
// The fixed frame round the grid.
constexpr double kGridLeft = 960;
constexpr double kGridTop = 300;
constexpr double kHeadingLeft = 60;
constexpr double kHeadingWidth = 880;
constexpr double kBar = 255;
// What the window keeps beside and under the grid.
constexpr double kFrameWidth = 1400;
constexpr double kFrameHeight = 1400;
// Rows: the channel table's 22 named columns and the spare one under them.
constexpr int kRows = 23;
}  // namespace

double MatrixLayout::held(double h) { return std::clamp(h, kMinHeight, kMaxHeight); }

bool MatrixLayout::layOut(double w, double h, int maxChans) {
  if (h <= 1600 || w <= 2000) return false;
  width = w;
  height = h;
  const double gridWidth = w - kFrameWidth;
  const double gridHeight = h - kFrameHeight;
  vscScroll = {w - 400, kGridTop, kBar, gridHeight};
  picture1 = {kGridLeft, kGridTop, gridWidth, gridHeight};
  picture2 = {kGridLeft, kGridTop - 270, gridWidth, kCellHeight};
  picture4 = {kHeadingLeft, kGridTop, kHeadingWidth, gridHeight};
  // The strip, with its heading, stays right under the grid.
  picture3 = {kGridLeft, h - 1080, gridWidth, kCellHeight};
  lbl1 = {kHeadingLeft, h - 1080, kHeadingWidth, kCellHeight};
  hscScroll = {kGridLeft, h - 800, gridWidth, kBar};
  lblTopLeft = {kGridLeft, h - 500, gridWidth, kCellHeight};
  // As the console sets a bar's bound: the real number rounded half to even.
  hscMax = int(std::max(1L, roundHalfEven(maxChans - gridWidth / kCellWidth + 1)));
  vscMax = int(std::max(1L, roundHalfEven(kRows - gridHeight / kCellHeight)));
  return true;
}

int MatrixLayout::visibleRows() const {
  return std::max(0, int(std::ceil(picture1.height / kCellHeight)));
}

int MatrixLayout::visibleColumns() const {
  return std::max(0, int(std::ceil(picture1.width / kCellWidth)));
}

}  // namespace q
