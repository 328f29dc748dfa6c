#pragma once
// Where the parts of the channels matrix stand for a window size, in twips.
// The grid takes what the window gives beyond a fixed frame: its row
// headings on the left, the channel numbers over it, the output strip, the
// horizontal bar and the position text under it, the vertical bar on the
// right. A cell is 400 twips wide and 255 high.

namespace q {

struct Place {
  double left = 0, top = 0, width = 0, height = 0;
  bool operator==(const Place&) const = default;
};

struct MatrixLayout {
  static constexpr double kCellWidth = 400;
  static constexpr double kCellHeight = 255;
  // In its normal state the window's height is held between these.
  static constexpr double kMinHeight = 1700;
  static constexpr double kMaxHeight = 7085;
  // The size it opens at: twenty channels and every row.
  static constexpr double kOpenWidth = 9400;
  static constexpr double kOpenHeight = kMaxHeight;

  double width = 0, height = 0;  // the window's
  Place picture1;                // the grid
  Place picture2;                // channel numbers
  Place picture3;                // output strip
  Place picture4;                // row headings
  Place lbl1;                    // "OUT"
  Place vscScroll, hscScroll;
  Place lblTopLeft;
  Place txtedit;  // laid over the last pressed cell
  // The bars' greatest positions as the last layout set them.
  int vscMax = 18;
  int hscMax = 1;

  // Lays the parts out for a window of width by height; a window too small
  // for any of it (as a minimised one) keeps the layout it had: false then.
  bool layOut(double width, double height, int maxChans);
  // The height the window is held at in its normal state.
  static double held(double height);
  // Cells of the grid that can be seen, a part of one counting whole.
  int visibleRows() const;
  int visibleColumns() const;
};

}  // namespace q
