#include "engine/remote/json_message.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace q {

namespace {

// A cursor over the text; every read says whether it found what it wanted.
class Reader {
 public:
  explicit Reader(std::string_view t) : t_(t) {}

  void blanks() {
    while (i_ < t_.size() && (t_[i_] == ' ' || t_[i_] == '\t' || t_[i_] == '\n' || t_[i_] == '\r'))
      ++i_;
  }
  bool eat(char c) {
    blanks();
    if (i_ >= t_.size() || t_[i_] != c) return false;
    ++i_;
    return true;
  }
  bool atEnd() {
    blanks();
    return i_ == t_.size();
  }
  bool word(std::string_view w) {
    blanks();
    if (t_.substr(i_, w.size()) != w) return false;
    i_ += w.size();
    return true;
  }

  bool string(std::string& out) {
    if (!eat('"')) return false;
    while (i_ < t_.size()) {
      const char c = t_[i_++];
      if (c == '"') return true;
      if (static_cast<unsigned char>(c) < 0x20) return false;
      if (c != '\\') {
        out += c;
        continue;
      }
      if (i_ >= t_.size()) return false;
      const char e = t_[i_++];
      switch (e) {
        case '"':
          out += '"';
          break;
        case '\\':
          out += '\\';
          break;
        case '/':
          out += '/';
          break;
        case 'b':
          out += '\b';
          break;
        case 'f':
          out += '\f';
          break;
        case 'n':
          out += '\n';
          break;
        case 'r':
          out += '\r';
          break;
        case 't':
          out += '\t';
          break;
        case 'u':
          if (!escapedChar(out)) return false;
          break;
        default:
          return false;
      }
    }
    return false;
  }

  bool number(double& out) {
    blanks();
    const size_t start = i_;
    while (i_ < t_.size() && (std::isdigit(static_cast<unsigned char>(t_[i_])) || t_[i_] == '-' ||
                              t_[i_] == '+' || t_[i_] == '.' || t_[i_] == 'e' || t_[i_] == 'E'))
      ++i_;
    const size_t n = i_ - start;
    if (n == 0 || n > 40) return false;
    char buf[48];
    t_.copy(buf, n, start);
    buf[n] = 0;
    char* end = nullptr;
    out = std::strtod(buf, &end);
    return end == buf + n && std::isfinite(out);
  }

 private:
  // \uXXXX as UTF-8; the page sends no surrogate pairs, so they read as "?".
  bool escapedChar(std::string& out) {
    if (i_ + 4 > t_.size()) return false;
    unsigned code = 0;
    for (int k = 0; k < 4; ++k) {
      const char h = t_[i_++];
      code <<= 4;
      if (h >= '0' && h <= '9')
        code |= unsigned(h - '0');
      else if (h >= 'a' && h <= 'f')
        code |= unsigned(h - 'a' + 10);
      else if (h >= 'A' && h <= 'F')
        code |= unsigned(h - 'A' + 10);
      else
        return false;
    }
    if (code >= 0xD800 && code <= 0xDFFF) code = '?';
    if (code < 0x80) {
      out += char(code);
    } else if (code < 0x800) {
      out += char(0xC0 | (code >> 6));
      out += char(0x80 | (code & 0x3F));
    } else {
      out += char(0xE0 | (code >> 12));
      out += char(0x80 | ((code >> 6) & 0x3F));
      out += char(0x80 | (code & 0x3F));
    }
    return true;
  }

  std::string_view t_;
  size_t i_ = 0;
};

bool readField(Reader& r, JsonObject& o) {
  std::string key;
  if (!r.string(key) || !r.eat(':')) return false;
  r.blanks();
  std::string s;
  double d = 0;
  if (r.string(s))
    o[key] = std::move(s);
  else if (r.word("true"))
    o[key] = true;
  else if (r.word("false"))
    o[key] = false;
  else if (r.word("null"))
    o.erase(key);
  else if (r.number(d))
    o[key] = d;
  else
    return false;
  return true;
}

}  // namespace

std::optional<JsonObject> readJsonObject(std::string_view text, size_t maxLength) {
  if (text.size() > maxLength) return std::nullopt;
  Reader r(text);
  JsonObject o;
  if (!r.eat('{')) return std::nullopt;
  if (!r.eat('}')) {
    do {
      if (!readField(r, o)) return std::nullopt;
    } while (r.eat(','));
    if (!r.eat('}')) return std::nullopt;
  }
  if (!r.atEnd()) return std::nullopt;
  return o;
}

const std::string* jsonText(const JsonObject& o, std::string_view key) {
  const auto it = o.find(key);
  return it == o.end() ? nullptr : std::get_if<std::string>(&it->second);
}

std::optional<double> jsonNumber(const JsonObject& o, std::string_view key) {
  const auto it = o.find(key);
  if (it == o.end()) return std::nullopt;
  if (const double* d = std::get_if<double>(&it->second)) return *d;
  return std::nullopt;
}

std::string jsonQuoted(std::string_view s) {
  std::string out = "\"";
  for (const char c : s) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", unsigned(c));
          out += buf;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

void JsonWriter::name(std::string_view key) {
  if (!first_) out_ += ',';
  first_ = false;
  out_ += jsonQuoted(key);
  out_ += ':';
}

JsonWriter& JsonWriter::text(std::string_view key, std::string_view value) {
  name(key);
  out_ += jsonQuoted(value);
  return *this;
}

JsonWriter& JsonWriter::number(std::string_view key, double value) {
  name(key);
  if (!std::isfinite(value)) value = 0;
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.6g", value);
  out_ += buf;
  return *this;
}

JsonWriter& JsonWriter::flag(std::string_view key, bool value) {
  name(key);
  out_ += value ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::open(std::string_view key) {
  name(key);
  out_ += '{';
  first_ = true;
  return *this;
}

JsonWriter& JsonWriter::close() {
  out_ += '}';
  first_ = false;
  return *this;
}

std::string JsonWriter::done() { return out_ + "}"; }

}  // namespace q
