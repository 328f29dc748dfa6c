// libFuzzer target over what the network and the MIDI input hand the
// console from outside: OSC datagrams and SysEx messages. The first byte
// picks the reader, the rest is what arrived.
//
//   (configured as for fuzz_show_readers)
//   ninja -C build-fuzz fuzz_remote
//   build-fuzz/tools/fuzz/fuzz_remote -max_total_time=60

#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/remote/msc.h"
#include "engine/remote/osc_packet.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::span<const uint8_t> rest(data + 1, size - 1);
  if (data[0] % 2 == 0) {
    size_t total = 0;
    q::splitOscPacket(rest, [&total](std::span<const uint8_t> m) { total += m.size(); });
  } else {
    (void)q::parseMsc(rest, data[0] >> 1);
  }
  return 0;
}
