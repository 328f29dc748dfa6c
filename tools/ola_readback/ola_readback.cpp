// ola_readback: reads a universe back from olad, to check what the console
// sent through OLA. Talks to olad on any RPC port, so a test can run a
// private olad beside the user's own.
//
//   ola_readback --port P --patch-dummy UNIVERSE   patch the dummy device's first output to
//   UNIVERSE ola_readback --port P --fetch UNIVERSE         print the universe's 512 slots
//
// Exit status 0 on success, 1 when olad could not be reached or refused.

#include <ola/Callback.h>
#include <ola/DmxBuffer.h>
#include <ola/client/OlaClient.h>
#include <ola/io/SelectServer.h>
#include <ola/network/IPV4Address.h>
#include <ola/network/SocketAddress.h>
#include <ola/network/TCPSocket.h>
#include <ola/plugin_id.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Session {
  ola::io::SelectServer ss;
  std::unique_ptr<ola::network::TCPSocket> socket;
  std::unique_ptr<ola::client::OlaClient> client;
  bool ok = false;

  bool open(int port) {
    socket.reset(ola::network::TCPSocket::Connect(
        ola::network::IPV4SocketAddress(ola::network::IPV4Address::Loopback(), uint16_t(port))));
    if (!socket) return false;
    client = std::make_unique<ola::client::OlaClient>(socket.get());
    if (!client->Setup()) return false;
    ss.AddReadDescriptor(socket.get());
    ss.RegisterSingleTimeout(5000, ola::NewSingleCallback(&ss, &ola::io::SelectServer::Terminate));
    return true;
  }
};

void patched(Session* s, const ola::client::Result& r) {
  s->ok = r.Success();
  if (!s->ok) std::fprintf(stderr, "ola_readback: patch: %s\n", r.Error().c_str());
  s->ss.Terminate();
}

void gotDevices(Session* s, unsigned universe, const ola::client::Result& r,
                const std::vector<ola::client::OlaDevice>& devices) {
  if (!r.Success() || devices.empty() || devices[0].OutputPorts().empty()) {
    std::fprintf(stderr, "ola_readback: no dummy device: %s\n", r.Error().c_str());
    s->ss.Terminate();
    return;
  }
  const ola::client::OlaDevice& d = devices[0];
  s->client->Patch(d.Alias(), d.OutputPorts()[0].Id(), ola::client::OUTPUT_PORT, ola::client::PATCH,
                   universe, ola::NewSingleCallback(&patched, s));
}

int patchDummy(Session& s, unsigned universe) {
  s.client->FetchDeviceInfo(ola::OLA_PLUGIN_DUMMY,
                            ola::NewSingleCallback(&gotDevices, &s, universe));
  s.ss.Run();
  return s.ok ? 0 : 1;
}

void gotDmx(Session* s, const ola::client::Result& r, const ola::client::DMXMetadata&,
            const ola::DmxBuffer& data) {
  s->ok = r.Success();
  if (s->ok) {
    for (unsigned k = 0; k < 512; ++k)
      std::printf(k ? " %u" : "%u", k < data.Size() ? data.Get(k) : 0);
    std::printf("\n");
  } else {
    std::fprintf(stderr, "ola_readback: fetch: %s\n", r.Error().c_str());
  }
  s->ss.Terminate();
}

int fetch(Session& s, unsigned universe) {
  s.client->FetchDMX(universe, ola::NewSingleCallback(&gotDmx, &s));
  s.ss.Run();
  return s.ok ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  int port = 9010;
  std::string action;
  unsigned universe = 1;
  for (int i = 1; i + 1 < argc; i += 2) {
    if (std::strcmp(argv[i], "--port") == 0) {
      port = std::atoi(argv[i + 1]);
    } else {
      action = argv[i];
      universe = unsigned(std::strtoul(argv[i + 1], nullptr, 10));
    }
  }
  if (action != "--patch-dummy" && action != "--fetch") {
    std::fprintf(stderr, "usage: ola_readback [--port P] (--patch-dummy | --fetch) UNIVERSE\n");
    return 2;
  }
  Session s;
  if (!s.open(port)) {
    std::fprintf(stderr, "ola_readback: olad not reachable on port %d\n", port);
    return 1;
  }
  return action == "--fetch" ? fetch(s, universe) : patchDummy(s, universe);
}
