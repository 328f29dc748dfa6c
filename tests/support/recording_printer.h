#pragma once
// A printer that keeps every page as a list of what was put on it, with
// simple metrics: a character is 100 twips wide at 9 points and a line 23
// twips a point high, both in proportion to the size. It can be told to
// refuse the document or its ending, as a printer that fails.

#include <memory>
#include <string>
#include <vector>

#include "engine/core/printer.h"

namespace q::test {

struct PageItem {
  enum class Kind { Text, Rule, Picture };
  Kind kind;
  double x, y, x2 = 0, y2 = 0;
  std::string text;
  PageFont font;
  int rgb = 0;
};

struct PrintedDocument {
  PrintJob job;
  std::vector<std::vector<PageItem>> pages{1};
  bool finished = false;
  // The texts of a page, in the order printed.
  std::vector<std::string> texts(size_t page = 0) const {
    std::vector<std::string> t;
    for (const PageItem& i : pages.at(page))
      if (i.kind == PageItem::Kind::Text) t.push_back(i.text);
    return t;
  }
};

class RecordingPrinter : public Printer {
 public:
  double width = 11000, height = 16000;
  std::string refuseBegin;   // a reason: begin() fails with it
  std::string refuseFinish;  // a reason: finish() fails with it
  std::vector<PrintedDocument> documents;

  std::unique_ptr<PageCanvas> begin(const PrintJob& job, std::string& why) override;
};

}  // namespace q::test
