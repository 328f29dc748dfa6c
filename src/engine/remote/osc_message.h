#pragma once
// One OSC message as the console takes it from the network or gives it to
// the network: an address and a few typed arguments. The network adapter
// decodes whatever the wire carried into this; the console never sees bytes.

#include <cstdint>
#include <string>
#include <vector>

namespace q {

struct OscArg {
  // Other: a type the console does not read (a blob, a time tag, a MIDI
  // message ...); a message that carries one where a value is wanted is ignored.
  enum class Type { Int, Float, Double, String, Other };

  Type type = Type::Other;
  double number = 0;  // Int, Float and Double
  std::string text;   // String

  static OscArg integer(int32_t n) { return {Type::Int, double(n), {}}; }
  static OscArg real(float f) { return {Type::Float, double(f), {}}; }
  static OscArg precise(double d) { return {Type::Double, d, {}}; }
  static OscArg string(std::string s) { return {Type::String, 0, std::move(s)}; }
  static OscArg other() { return {}; }

  bool isNumber() const { return type == Type::Int || type == Type::Float || type == Type::Double; }
  bool operator==(const OscArg&) const = default;
};

struct OscMessage {
  std::string address;
  std::vector<OscArg> args;

  bool operator==(const OscMessage&) const = default;
};

}  // namespace q
