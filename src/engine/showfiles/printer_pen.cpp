#include "engine/showfiles/printer_pen.h"

namespace q {

void PrinterPen::newPageIfFull() {
  if (CurrentY <= 0 || CurrentY + canvas_.lineHeight(font) <= canvas_.pageHeight()) return;
  canvas_.newPage();
  CurrentY = 0;
}

void PrinterPen::printOn(const std::string& text) {
  newPageIfFull();
  canvas_.text(CurrentX, CurrentY, text, font);
  CurrentX += canvas_.textWidth(text, font);
}

void PrinterPen::print(const std::string& text) {
  const double left = CurrentX;
  std::string_view rest = text;
  do {
    newPageIfFull();
    const size_t n = fitting(rest, pageWidth() - CurrentX);
    if (n > 0) canvas_.text(CurrentX, CurrentY, std::string(rest.substr(0, n)), font);
    rest.remove_prefix(n);
    CurrentY += canvas_.lineHeight(font);
    CurrentX = rest.empty() ? 0 : left;
  } while (!rest.empty());
}

size_t PrinterPen::fitting(std::string_view text, double width) {
  // A line with no room left at all (a caption past the edge) is printed as it is.
  if (width <= 0) return text.size();
  if (canvas_.textWidth(std::string(text), font) <= width) return text.size();
  // Piece by piece, each ending after a comma or a blank.
  size_t fit = 0;
  double used = 0;
  while (fit < text.size()) {
    size_t end = text.find_first_of(", ", fit);
    end = end == std::string_view::npos ? text.size() : end + 1;
    const double w = canvas_.textWidth(std::string(text.substr(fit, end - fit)), font);
    if (used + w > width) break;
    used += w;
    fit = end;
  }
  if (fit > 0) return fit;
  // One piece wider than the line: as many characters as fit, at least one.
  size_t low = 1, high = text.size();
  while (low < high) {
    const size_t mid = (low + high + 1) / 2;
    if (canvas_.textWidth(std::string(text.substr(0, mid)), font) <= width)
      low = mid;
    else
      high = mid - 1;
  }
  // Never inside a character of several bytes.
  while (low < text.size() && (static_cast<unsigned char>(text[low]) & 0xC0) == 0x80) ++low;
  return low;
}

void PrinterPen::line(double x1, double y1, double x2, double y2, int rgb) {
  canvas_.rule(x1, y1, x2, y2, rgb);
  CurrentX = x2;
  CurrentY = y2;
}

}  // namespace q
