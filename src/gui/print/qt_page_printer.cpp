#include "gui/print/qt_page_printer.h"

#include <QFile>
#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>

namespace q::gui {

namespace {
constexpr double kTwipsPerInch = 1440;
constexpr double kTwipsPerPixel = 15;  // a picture's pixel at 96 dots an inch
// A PDF page: A4 with a quarter inch round it, as a printer's margins would be.
constexpr double kPdfMarginMm = 6.35;

QImage imageOf(const look::Bitmap& b) {
  QImage img(b.width(), b.height(), QImage::Format_RGB32);
  for (int y = 0; y < b.height(); ++y)
    for (int x = 0; x < b.width(); ++x) img.setPixel(x, y, 0xFF000000u | b.pixel(x, y));
  return img;
}

// Pages on a Qt paint device, in twips from the printable area's corner.
// The painter draws in the device's own dots, so that type is sized in true
// points; every coordinate is turned from twips into dots here.
class QtCanvas : public PageCanvas {
 public:
  // pdfPart/pdfPath: a PDF is written beside its name and put in its place at the end.
  QtCanvas(std::unique_ptr<QPagedPaintDevice> device, QString pdfPart, QString pdfPath)
      : device_(std::move(device)), pdfPart_(std::move(pdfPart)), pdfPath_(std::move(pdfPath)) {}
  ~QtCanvas() override {
    if (painter_.isActive()) painter_.end();
    if (!pdfPart_.isEmpty()) QFile::remove(pdfPart_);
  }

  bool start() {
    if (!painter_.begin(device_.get())) return false;
    dots_ = device_->logicalDpiX() / kTwipsPerInch;
    return true;
  }

  double pageWidth() const override { return device_->width() / dots_; }
  double pageHeight() const override { return device_->height() / dots_; }
  double textWidth(const std::string& text, const PageFont& f) override {
    return QFontMetricsF(font(f), device_.get()).horizontalAdvance(QString::fromStdString(text)) /
           dots_;
  }
  double lineHeight(const PageFont& f) override {
    return QFontMetricsF(font(f), device_.get()).lineSpacing() / dots_;
  }
  void text(double x, double y, const std::string& text, const PageFont& f) override {
    const QFont qf = font(f);
    painter_.setFont(qf);
    painter_.setPen(Qt::black);
    const double ascent = QFontMetricsF(qf, device_.get()).ascent();
    painter_.drawText(QPointF(x * dots_, y * dots_ + ascent), QString::fromStdString(text));
  }
  void rule(double x1, double y1, double x2, double y2, int rgb) override {
    const QRectF box(QPointF(x1 * dots_, y1 * dots_), QPointF(x2 * dots_, y2 * dots_));
    painter_.fillRect(box.normalized(), QColor::fromRgb(QRgb(0xFF000000u | unsigned(rgb))));
  }
  void picture(double x, double y, const look::Bitmap& b) override {
    const double k = kTwipsPerPixel * dots_;
    painter_.drawImage(QRectF(x * dots_, y * dots_, b.width() * k, b.height() * k), imageOf(b));
  }
  void newPage() override { device_->newPage(); }

  bool finish(std::string& why) override {
    if (!painter_.end()) {
      why = "the pages could not be finished";
      return false;
    }
    if (pdfPart_.isEmpty()) return true;
    device_.reset();  // the PDF file is complete once its writer is gone
    QFile::remove(pdfPath_);
    if (!QFile::rename(pdfPart_, pdfPath_)) {
      why = "cannot write " + pdfPath_.toStdString();
      return false;
    }
    pdfPart_.clear();
    return true;
  }

 private:
  static QFont font(const PageFont& f) {
    QFont q(QString::fromStdString(f.name));
    q.setStyleHint(QFont::SansSerif);
    q.setPointSizeF(f.points);
    q.setBold(f.bold);
    q.setItalic(f.italic);
    return q;
  }

  std::unique_ptr<QPagedPaintDevice> device_;
  QString pdfPart_, pdfPath_;
  QPainter painter_;
  double dots_ = 1;
};
}  // namespace

QtPagePrinter::~QtPagePrinter() = default;

void QtPagePrinter::ensureApplication() {
  if (QCoreApplication::instance()) return;
  // Fonts need a platform; the headless console has no screen.
  static int argc = 3;
  static char name[] = "quintara", platform[] = "-platform", offscreen[] = "offscreen";
  static char* argv[] = {name, platform, offscreen, nullptr};
  app_ = std::make_unique<QGuiApplication>(argc, argv);
}

std::unique_ptr<PageCanvas> QtPagePrinter::begin(const PrintJob& job, std::string& why) {
  ensureApplication();
  if (target_ == Target::DefaultPrinter) {
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (!info.isNull()) {
      auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
      printer->setDocName(QString::fromStdString(job.title));
      auto canvas = std::make_unique<QtCanvas>(std::move(printer), QString(), QString());
      if (canvas->start()) return canvas;
      why = "the printer " + info.printerName().toStdString() + " cannot be used";
      return nullptr;
    }
  }
  const QString path = QString::fromStdString(job.pdfPath);
  const QString part = path + ".part";
  auto pdf = std::make_unique<QPdfWriter>(part);
  pdf->setTitle(QString::fromStdString(job.title));
  pdf->setCreator(QStringLiteral("Quintara"));
  pdf->setResolution(int(kTwipsPerInch));
  pdf->setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                 QMarginsF(kPdfMarginMm, kPdfMarginMm, kPdfMarginMm, kPdfMarginMm),
                                 QPageLayout::Millimeter));
  auto canvas = std::make_unique<QtCanvas>(std::move(pdf), part, path);
  if (canvas->start()) return canvas;
  why = "cannot write " + job.pdfPath;
  return nullptr;
}

}  // namespace q::gui
