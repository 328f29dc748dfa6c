#include "engine/remote/osc_packet.h"

#include <cstring>

namespace q {

namespace {
constexpr char kBundleTag[] = "#bundle";  // with its NUL, 8 bytes
constexpr size_t kTagSize = 8, kTimeTagSize = 8;
constexpr int kMaxDepth = 8;

bool isBundle(std::span<const uint8_t> p) {
  return p.size() >= kTagSize && std::memcmp(p.data(), kBundleTag, kTagSize) == 0;
}

uint32_t bigEndian32(const uint8_t* b) {
  return uint32_t(b[0]) << 24 | uint32_t(b[1]) << 16 | uint32_t(b[2]) << 8 | uint32_t(b[3]);
}

struct Splitter {
  const std::function<void(std::span<const uint8_t>)>& each;
  size_t left;

  bool element(std::span<const uint8_t> p, int depth) {
    if (p.empty() || p.size() % 4 != 0) return false;
    if (!isBundle(p)) {
      if (p[0] != '/' || left == 0) return false;
      --left;
      each(p);
      return true;
    }
    if (depth >= kMaxDepth || p.size() < kTagSize + kTimeTagSize) return false;
    p = p.subspan(kTagSize + kTimeTagSize);
    while (!p.empty()) {
      if (p.size() < 4) return false;
      const uint32_t size = bigEndian32(p.data());
      if (size > p.size() - 4 || !element(p.subspan(4, size), depth + 1)) return false;
      p = p.subspan(4 + size);
    }
    return true;
  }
};
}  // namespace

bool splitOscPacket(std::span<const uint8_t> packet,
                    const std::function<void(std::span<const uint8_t>)>& each, size_t maxMessages) {
  Splitter s{each, maxMessages};
  return s.element(packet, 0);
}

}  // namespace q
