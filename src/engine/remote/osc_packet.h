#pragma once
// One OSC datagram as it comes off the network: a message, or a bundle
// ("#bundle", a time tag, then elements each led by its size) holding
// messages and more bundles. The console plays bundles at once, whatever
// their time tag: it keeps no queue of messages for later, so no sender can
// make it hoard them.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace q {

// The raw bytes of each message in the packet, in order, at most maxMessages
// of them and bundles at most 8 deep. False when the packet is not all well
// formed or holds more: what was found before the fault has been given.
bool splitOscPacket(std::span<const uint8_t> packet,
                    const std::function<void(std::span<const uint8_t>)>& each,
                    size_t maxMessages = 64);

}  // namespace q
