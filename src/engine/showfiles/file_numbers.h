#pragma once
// Numbers as the show-file readers take them, and the pair list
// "1a255,7a128," that every format uses for channel levels.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/showfiles/line_file.h"

namespace q {

// The text as a whole number: a decimal number with blanks around it,
// rounded half to even. nullopt for anything else, or beyond 32 bits.
std::optional<long> wholeOf(std::string_view text);
// The text as a real number, blanks around allowed; nullopt if it is none.
std::optional<double> realOf(std::string_view text);
// The lenient reading: the leading number of the text, 0 when there is none.
double leadingOf(std::string_view text);

// Converters that stop the reader at its line when the text won't do; what
// names the value in the message.
long wholeIn(const LineReader& r, std::string_view text, long low, long high, const char* what);
uint8_t byteIn(const LineReader& r, std::string_view text, const char* what);
double realIn(const LineReader& r, std::string_view text, const char* what);

// Shortest decimal text that reads back as the same double ("0.5", "12").
std::string shortestText(double d);
// The same for a 32-bit float, as a font size is kept ("8.25").
std::string shortestText(float f);

// Reads a pair list until it is used up, calling store(channel, level) per
// pair. Channels outside low..high stop the reader at its line.
template <class Store>
void readPairs(const LineReader& r, std::string_view list, long low, long high, Store&& store) {
  while (!list.empty()) {
    const size_t a = list.find('a');
    if (a == std::string_view::npos) r.fail("pair without 'a'");
    const long channel = wholeIn(r, list.substr(0, a), low, high, "channel");
    list.remove_prefix(a + 1);
    const size_t comma = list.find(',');
    if (comma == std::string_view::npos) r.fail("pair without ','");
    const uint8_t level = byteIn(r, list.substr(0, comma), "level");
    list.remove_prefix(comma + 1);
    store(channel, level);
  }
}

// Appends "channel a level ," to a pair list.
inline void appendPair(std::string& out, int channel, std::string_view level) {
  out += std::to_string(channel);
  out += 'a';
  out += level;
  out += ',';
}
void appendPair(std::string& out, int channel, int level);

}  // namespace q
