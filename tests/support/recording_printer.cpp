#include "support/recording_printer.h"

namespace q::test {

namespace {
class RecordingCanvas : public PageCanvas {
 public:
  RecordingCanvas(RecordingPrinter& p, size_t doc) : p_(p), doc_(doc) {}
  double pageWidth() const override { return p_.width; }
  double pageHeight() const override { return p_.height; }
  double textWidth(const std::string& text, const PageFont& f) override {
    return double(text.size()) * 100 * f.points / 9;
  }
  double lineHeight(const PageFont& f) override { return 23 * f.points; }
  void text(double x, double y, const std::string& text, const PageFont& f) override {
    page().push_back({PageItem::Kind::Text, x, y, 0, 0, text, f, 0});
  }
  void rule(double x1, double y1, double x2, double y2, int rgb) override {
    page().push_back({PageItem::Kind::Rule, x1, y1, x2, y2, {}, {}, rgb});
  }
  void picture(double x, double y, const look::Bitmap& b) override {
    page().push_back(
        {PageItem::Kind::Picture, x, y, x + b.width() * 15.0, y + b.height() * 15.0, {}, {}, 0});
  }
  void newPage() override { doc().pages.emplace_back(); }
  bool finish(std::string& why) override {
    why = p_.refuseFinish;
    doc().finished = why.empty();
    return why.empty();
  }

 private:
  PrintedDocument& doc() { return p_.documents.at(doc_); }
  std::vector<PageItem>& page() { return doc().pages.back(); }
  RecordingPrinter& p_;
  size_t doc_;
};
}  // namespace

std::unique_ptr<PageCanvas> RecordingPrinter::begin(const PrintJob& job, std::string& why) {
  if (!refuseBegin.empty()) {
    why = refuseBegin;
    return nullptr;
  }
  documents.push_back({job});
  return std::make_unique<RecordingCanvas>(*this, documents.size() - 1);
}

}  // namespace q::test
