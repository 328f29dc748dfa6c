#pragma once
// The console's printer through Qt: the pages the engine lays out go to the
// system's default printer (CUPS), or into a PDF file where there is none.
// The headless console always writes the PDF; it has no application of its
// own, so the printer makes one on the offscreen platform the first time it
// prints, for the fonts, and keeps it until it goes.

#include <QGuiApplication>
#include <memory>

#include "engine/core/printer.h"

namespace q::gui {

class QtPagePrinter : public Printer {
 public:
  enum class Target { DefaultPrinter, PdfOnly };
  explicit QtPagePrinter(Target target) : target_(target) {}
  ~QtPagePrinter() override;

  std::unique_ptr<PageCanvas> begin(const PrintJob& job, std::string& why) override;

 private:
  void ensureApplication();
  Target target_;
  std::unique_ptr<QGuiApplication> app_;
};

}  // namespace q::gui
