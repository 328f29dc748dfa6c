// Datagrams as they come off the network: messages and bundles are split,
// anything broken stops the split and is told, and no byte pattern, nor the
// SysEx reader's, can read outside what arrived.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "engine/remote/msc.h"
#include "engine/remote/osc_packet.h"

namespace q::test {
namespace {

using Bytes = std::vector<uint8_t>;

Bytes message(const std::string& path) {
  Bytes b(path.begin(), path.end());
  b.resize((b.size() / 4 + 1) * 4, 0);
  b.insert(b.end(), {',', 0, 0, 0});
  return b;
}

Bytes bundle(const std::vector<Bytes>& elements) {
  Bytes b = {'#', 'b', 'u', 'n', 'd', 'l', 'e', 0, 0, 0, 0, 0, 0, 0, 0, 1};
  for (const Bytes& e : elements) {
    const uint32_t n = uint32_t(e.size());
    b.insert(b.end(), {uint8_t(n >> 24), uint8_t(n >> 16), uint8_t(n >> 8), uint8_t(n)});
    b.insert(b.end(), e.begin(), e.end());
  }
  return b;
}

std::vector<std::string> split(const Bytes& packet, bool& whole, size_t limit = 64) {
  std::vector<std::string> paths;
  whole = splitOscPacket(
      packet, [&](std::span<const uint8_t> m) { paths.emplace_back(m.begin(), m.end()); }, limit);
  for (std::string& p : paths) p = p.c_str();
  return paths;
}

TEST(OscPacket, MessagesAndBundlesSplitBrokenOnesAreTold) {
  bool whole = false;
  EXPECT_EQ(split(message("/quintara/go"), whole), std::vector<std::string>{"/quintara/go"});
  EXPECT_TRUE(whole);
  const Bytes nested = bundle({message("/a"), bundle({message("/b"), message("/c")})});
  EXPECT_EQ(split(nested, whole), (std::vector<std::string>{"/a", "/b", "/c"}));
  EXPECT_TRUE(whole);
  EXPECT_TRUE(split(bundle({}), whole).empty());
  EXPECT_TRUE(whole);

  Bytes cut = nested;
  cut.resize(cut.size() - 4);
  EXPECT_EQ(split(cut, whole), std::vector<std::string>{"/a"});  // the inner bundle runs short
  EXPECT_FALSE(whole);
  EXPECT_EQ(split(bundle({message("/a"), message("/b"), message("/c")}), whole, 2).size(), 2u);
  EXPECT_FALSE(whole);  // more than the console takes from one datagram

  Bytes deep = message("/deep");
  for (int i = 0; i < 9; ++i) deep = bundle({deep});
  EXPECT_TRUE(split(deep, whole).empty());
  EXPECT_FALSE(whole);
  for (const Bytes& bad : {Bytes{}, Bytes{'/', 'a', 0}, Bytes{'x', 0, 0, 0}, Bytes{'#', 'b', 0, 0},
                           bundle({Bytes{'/', 'a', 0}})}) {
    split(bad, whole);
    EXPECT_FALSE(whole);
  }
}

// Random bytes, and random changes of real packets: the readers stay inside
// what they were given (the sanitizers watch) and never take a foreign command.
TEST(OscPacket, NoBytesLeadOutside) {
  std::mt19937 rng(20261123);
  const Bytes good = bundle({message("/quintara/go"), bundle({message("/quintara/cut")})});
  const Bytes go = {0xF0, 0x7F, 0x01, 0x02, 0x01, 0x01, '1', '2', 0x00, '1', 0xF7};
  for (int round = 0; round < 20000; ++round) {
    Bytes b = round % 2 ? good : go;
    if (round % 3 == 0) b.resize(rng() % 64);
    for (uint8_t& x : b)
      if (rng() % 8 == 0) x = uint8_t(rng());
    b.resize(rng() % (b.size() + 1));
    bool whole = false;
    for (const std::string& p : split(b, whole)) EXPECT_EQ(p[0], '/');
    if (const auto c = parseMsc(b, 1)) {
      ASSERT_GE(b.size(), 7u);
      EXPECT_TRUE(b[2] == 1 || b[2] == 0x7F);
      EXPECT_LE(c->cue.size(), b.size());
    }
  }
}

}  // namespace
}  // namespace q::test
