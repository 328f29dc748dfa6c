#pragma once
// Text laid out once and then only drawn. A view that shows the same few
// captions over and over (a chaser's step, a channel's level) keeps each one
// laid out in its font, so that a repaint draws glyphs and never shapes text.

#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QString>
#include <string_view>
#include <vector>

namespace q::gui {

class StaticTextCache {
 public:
  // The text laid out in the font. The cache starts afresh when the font
  // changes, or when it has grown past what a view ever shows.
  const QStaticText& get(const QString& text, const QFont& font);
  // The same for a console string; a number of up to three digits (a level,
  // a channel, a step) is found without hashing.
  const QStaticText& get(std::string_view text, const QFont& font);

 private:
  static constexpr int kMostTexts = 2048;
  static QStaticText laidOut(const QString& text, const QFont& font);
  void follow(const QFont& font);

  QHash<QString, QStaticText> texts_;
  // Numbers by their digit count and value: "7", "07" and "007" apart.
  std::vector<QStaticText> numbers_;
  std::vector<bool> laid_;
  QFont font_;
};

}  // namespace q::gui
