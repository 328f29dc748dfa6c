#pragma once
// The tagged value a cell of the cue and chaser tables holds: empty, byte,
// 16-bit integer, double or string. The tables store and return values as
// they are; the conversions below are how the console reads them when it
// compares or computes ("1" equals 1, an empty cell counts as 0).

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace q {

using Value = std::variant<std::monostate, uint8_t, int16_t, double, std::string>;

inline bool isEmpty(const Value& v) { return std::holds_alternative<std::monostate>(v); }

// The number a value stands for: numbers as they are, empty as 0, text read
// as a decimal number after leading blanks. nullopt for text that is not a number.
std::optional<double> numberOf(const Value& v);
// Same, with anything that is not a number read as 0.
double numberOr0(const Value& v);
// True when text parses whole as a decimal number (blanks around allowed).
bool isNumeric(const std::string& text);
// Parses whole text as a decimal number; nullopt if it is not one.
std::optional<double> parseNumber(const std::string& text);
// The leading number of a text, as a lenient reader takes it ("12abc" is 12, "abc" is 0).
double leadingNumber(const std::string& text);

// Round half to even, as the console converts a real level to a whole one.
long roundHalfEven(double x);

// How the value prints: numbers in their shortest decimal form, empty as "".
std::string toText(const Value& v);

}  // namespace q
