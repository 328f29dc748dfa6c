#pragma once
// The output adapters the console knows, by InterfaceType: the entries of the
// setup window's device list, in order. Everything that chooses by adapter
// (the settings, the setup window, the three dispatches, the mixer) looks the
// entry up here, so a new adapter is one more line of the table.

#include <cstdint>

namespace q {

// Which driver serves an adapter.
enum class AdapterFamily {
  None,
  FtdiFrameSender,  // the host times the line (OpenDmx)
  Widget,           // the DMX USB PRO times the line itself
  ParallelPort,     // listed and configured, with no output
  Sunlite,          // the vendor libraries, one module each
  Oksid,
  Velleman,
  Ola,
};

enum AdapterFlag : uint8_t {
  // The mixer hands the adapter each channel as it makes it; nothing goes
  // out on the output tick.
  kTakesChannelsInMix = 1,
};

struct InterfaceEntry {
  const char* name;  // as the device list shows it
  AdapterFamily family;
  int channelLimit;  // applied when chosen in the setup window; 0 for none
  const char* link;  // the vendor's page
  uint8_t flags = 0;

  constexpr bool has(AdapterFlag f) const { return (flags & f) != 0; }
};

// The console's own page, opened from the setup window for "-[ None ]-".
inline constexpr const char* kConsolePage = "https://github.com/quintara-console/quintara";

inline constexpr InterfaceEntry kInterfaces[] = {
    {"-[ None ]-", AdapterFamily::None, 0, kConsolePage},
    {"Enttec Open DMX USB", AdapterFamily::FtdiFrameSender, 0, "https://www.enttec.com"},
    {"Enttec DMXUSB PRO", AdapterFamily::Widget, 0, "https://www.enttec.com"},
    {"Manolator 256", AdapterFamily::ParallelPort, 256,
     "https://duckduckgo.com/?q=Manolator+256+DMX"},
    {"Tovan Relk 64", AdapterFamily::ParallelPort, 64, "https://duckduckgo.com/?q=Tovan+Relk+DMX"},
    {"Sunlite USB 256", AdapterFamily::Sunlite, 0, "https://www.sunlitepro.com"},
    {"HumanData USB-003", AdapterFamily::FtdiFrameSender, 0, "https://www.hdl.co.jp"},
    {"OksiD DMX 3/1", AdapterFamily::Oksid, 0, "https://duckduckgo.com/?q=OksiD+DMX+3%2F1"},
    {"Velleman K8062 / VM116", AdapterFamily::Velleman, 0, "https://www.velleman.eu",
     kTakesChannelsInMix},
    {"Nextec  Free USB DMX", AdapterFamily::FtdiFrameSender, 0,
     "https://duckduckgo.com/?q=Nextec+Free+USB+DMX"},
    {"OLA (Open Lighting Architecture)", AdapterFamily::Ola, 0,
     "https://www.openlighting.org/ola/"},
};

inline constexpr int kAdapterCount = int(sizeof kInterfaces / sizeof kInterfaces[0]);
static_assert(kAdapterCount <= 256, "InterfaceType is one byte");

inline constexpr bool isInterfaceType(int type) { return type >= 0 && type < kAdapterCount; }

// The entry of an InterfaceType. A value beyond the table (which nothing
// the console reads or offers can give) stands for no adapter.
inline constexpr const InterfaceEntry& interfaceEntry(int type) {
  return kInterfaces[isInterfaceType(type) ? type : 0];
}

inline bool isFtdiFrameSender(int type) {
  return interfaceEntry(type).family == AdapterFamily::FtdiFrameSender;
}

}  // namespace q
