#include "engine/showfiles/text_codec.h"

#include <cstdint>

namespace q {

namespace {
// 0x80..0x9F of the code page. The five holes map to the C1 controls of the
// same value, as the platform's own converter does, so every byte survives
// a read and a write.
constexpr uint16_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void appendUtf8(std::string& out, uint32_t cp) {
  if (cp < 0x80) {
    out += char(cp);
  } else if (cp < 0x800) {
    out += char(0xC0 | (cp >> 6));
    out += char(0x80 | (cp & 0x3F));
  } else {
    out += char(0xE0 | (cp >> 12));
    out += char(0x80 | ((cp >> 6) & 0x3F));
    out += char(0x80 | (cp & 0x3F));
  }
}

// The byte of a code point, or -1 when the code page has none.
int byteOf(uint32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return int(cp);
  for (int i = 0; i < 32; ++i)
    if (kHigh[i] == cp) return 0x80 + i;
  return -1;
}

// Decodes one UTF-8 sequence at s[i]; returns its length, or 0 when broken.
size_t decode(std::string_view s, size_t i, uint32_t& cp) {
  const auto b = static_cast<unsigned char>(s[i]);
  size_t len = b < 0x80 ? 1 : (b >> 5) == 6 ? 2 : (b >> 4) == 14 ? 3 : (b >> 3) == 30 ? 4 : 0;
  if (len == 0 || i + len > s.size()) return 0;
  cp = len == 1 ? b : len == 2 ? (b & 0x1F) : len == 3 ? (b & 0x0F) : (b & 0x07);
  for (size_t k = 1; k < len; ++k) {
    const auto c = static_cast<unsigned char>(s[i + k]);
    if ((c >> 6) != 2) return 0;
    cp = (cp << 6) | (c & 0x3F);
  }
  static constexpr uint32_t kMin[] = {0, 0, 0x80, 0x800, 0x10000};
  if (cp < kMin[len] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return len;
}

bool isAscii(std::string_view s) {
  for (char c : s)
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  return true;
}
}  // namespace

std::string cp1252ToUtf8(std::string_view bytes) {
  if (isAscii(bytes)) return std::string(bytes);
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 2);
  for (char c : bytes) {
    const auto b = static_cast<unsigned char>(c);
    appendUtf8(out, b >= 0x80 && b < 0xA0 ? kHigh[b - 0x80] : b);
  }
  return out;
}

std::string utf8ToCp1252(std::string_view text) {
  if (isAscii(text)) return std::string(text);
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    uint32_t cp = 0;
    const size_t len = decode(text, i, cp);
    if (len == 0) {
      out += '?';
      ++i;
      continue;
    }
    const int b = byteOf(cp);
    out += b < 0 ? '?' : char(b);
    i += len;
  }
  return out;
}

bool fitsCp1252(std::string_view text) {
  for (size_t i = 0; i < text.size();) {
    uint32_t cp = 0;
    const size_t len = decode(text, i, cp);
    if (len == 0 || byteOf(cp) < 0) return false;
    i += len;
  }
  return true;
}

bool dropLastChars(std::string& text, size_t n) {
  size_t end = text.size();
  for (size_t k = 0; k < n; ++k) {
    if (end == 0) return false;
    --end;
    // Step back over continuation bytes to the start of the character.
    while (end > 0 && (static_cast<unsigned char>(text[end]) >> 6) == 2) --end;
  }
  text.resize(end);
  return true;
}

}  // namespace q
