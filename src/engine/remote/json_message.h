#pragma once
// The few bits of JSON the web remote speaks: a flat object of strings,
// numbers and booleans in from the page, and the same written out. The
// reader takes nothing else: no nesting, no arrays, nothing longer than a
// bound. A message it cannot read is no message, and the remote ignores it.

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace q {

using JsonField = std::variant<std::string, double, bool>;
using JsonObject = std::map<std::string, JsonField, std::less<>>;

// Nothing for text that is not one flat object, or longer than maxLength.
std::optional<JsonObject> readJsonObject(std::string_view text, size_t maxLength = 4096);

// A field of the wanted kind, or nothing.
const std::string* jsonText(const JsonObject& o, std::string_view key);
std::optional<double> jsonNumber(const JsonObject& o, std::string_view key);

// Builds one object field by field; nested objects by open/close.
class JsonWriter {
 public:
  JsonWriter() { out_ = "{"; }
  JsonWriter& text(std::string_view key, std::string_view value);
  JsonWriter& number(std::string_view key, double value);
  JsonWriter& flag(std::string_view key, bool value);
  JsonWriter& open(std::string_view key);
  JsonWriter& close();
  std::string done();

 private:
  void name(std::string_view key);
  std::string out_;
  bool first_ = true;
};

// A string as a JSON string literal, quotes included.
std::string jsonQuoted(std::string_view s);

}  // namespace q
