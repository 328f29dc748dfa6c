#include "gui/views/static_text_cache.h"

namespace q::gui {

namespace {
// Where a number of one to three digits sits in the table, or -1.
int numberSlot(std::string_view text) {
  if (text.empty() || text.size() > 3) return -1;
  int value = 0;
  for (char ch : text) {
    if (ch < '0' || ch > '9') return -1;
    value = value * 10 + (ch - '0');
  }
  return int(text.size() - 1) * 1000 + value;
}
constexpr int kNumberSlots = 3000;
}  // namespace

QStaticText StaticTextCache::laidOut(const QString& text, const QFont& font) {
  QStaticText laid(text);
  laid.setTextFormat(Qt::PlainText);
  laid.setPerformanceHint(QStaticText::AggressiveCaching);
  laid.prepare(QTransform(), font);
  return laid;
}

void StaticTextCache::follow(const QFont& font) {
  if (font == font_ && texts_.size() < kMostTexts) return;
  texts_.clear();
  numbers_.clear();
  laid_.clear();
  font_ = font;
}

const QStaticText& StaticTextCache::get(const QString& text, const QFont& font) {
  follow(font);
  auto found = texts_.find(text);
  if (found != texts_.end()) return *found;
  return *texts_.insert(text, laidOut(text, font));
}

const QStaticText& StaticTextCache::get(std::string_view text, const QFont& font) {
  const int slot = numberSlot(text);
  if (slot < 0) return get(QString::fromUtf8(text.data(), qsizetype(text.size())), font);
  follow(font);
  if (numbers_.empty()) {
    numbers_.resize(kNumberSlots);
    laid_.assign(kNumberSlots, false);
  }
  QStaticText& laid = numbers_[size_t(slot)];
  if (!laid_[size_t(slot)]) {
    laid = laidOut(QString::fromLatin1(text.data(), qsizetype(text.size())), font);
    laid_[size_t(slot)] = true;
  }
  return laid;
}

}  // namespace q::gui
