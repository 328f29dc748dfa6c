#pragma once
// Printing: the console lays its pages out itself (the cue list printout)
// and needs of the outside world only a page canvas, in twips from the top
// left corner of the printable area: text at a point in a font, a filled
// rule, a picture, a new page. The desk prints through Qt on the default
// printer, or into a PDF file where there is none; tests record the pages.

#include <memory>
#include <string>

#include "engine/look/bitmap.h"

namespace q {

struct PageFont {
  std::string name = "ARIAL";
  double points = 9;
  bool bold = false;
  bool italic = false;
};

class PageCanvas {
 public:
  virtual ~PageCanvas() = default;
  // The printable area of a page.
  virtual double pageWidth() const = 0;
  virtual double pageHeight() const = 0;
  // How far a text reaches to the right, and how high one line of the font is.
  virtual double textWidth(const std::string& text, const PageFont& font) = 0;
  virtual double lineHeight(const PageFont& font) = 0;
  // Text with its top left corner at x, y.
  virtual void text(double x, double y, const std::string& text, const PageFont& font) = 0;
  // A box filled with 0xRRGGBB between two corners.
  virtual void rule(double x1, double y1, double x2, double y2, int rgb) = 0;
  // A picture with its top left corner at x, y, at 15 twips a pixel.
  virtual void picture(double x, double y, const look::Bitmap& picture) = 0;
  virtual void newPage() = 0;
  // Ends the document and hands it over. False, with why, when it could not be finished.
  virtual bool finish(std::string& why) = 0;
};

struct PrintJob {
  std::string title;
  // Where the pages go as a PDF file when there is no printer.
  std::string pdfPath;
};

class Printer {
 public:
  virtual ~Printer() = default;
  // Starts a document; null, with why, when no page can be started.
  virtual std::unique_ptr<PageCanvas> begin(const PrintJob& job, std::string& why) = 0;
};

}  // namespace q
