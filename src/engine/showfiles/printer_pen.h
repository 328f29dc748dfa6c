#pragma once
// The pen a printout is written with, as the console's printing has always
// worked: a current point that each finished line moves down and back to
// the left edge, a font, and a new page begun by itself when a line would
// pass the bottom. A text too long for the rest of its line goes on in the
// lines below, from where it began, broken after a comma or a blank, so
// that a long channel list is printed whole rather than cut at the edge.

#include <string>
#include <string_view>

#include "engine/core/printer.h"

namespace q {

class PrinterPen {
 public:
  explicit PrinterPen(PageCanvas& canvas) : canvas_(canvas) {}

  double CurrentX = 0, CurrentY = 0;
  PageFont font;

  double pageWidth() const { return canvas_.pageWidth(); }
  // Prints at the current point and stays on the line, after the text.
  void printOn(const std::string& text);
  // Prints at the current point and ends the line.
  void print(const std::string& text);
  // A filled rule between two corners; the current point moves to the second.
  void line(double x1, double y1, double x2, double y2, int rgb);

 private:
  void newPageIfFull();
  // How much of text fits in width, broken after a comma or a blank where one fits.
  size_t fitting(std::string_view text, double width);

  PageCanvas& canvas_;
};

}  // namespace q
