// A careless or hostile OSC sender, for the console's flood test: COUNT
// datagrams to 127.0.0.1:PORT as fast as the network takes them, a mix of
// well-formed fader moves, wrong types, levels out of range, unknown
// addresses, truncated packets, garbage and bundles.
//
//   osc_flood PORT COUNT      prints how many datagrams it sent

#include <arpa/inet.h>
#include <lo/lo.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

std::vector<uint8_t> serialise(const char* path, lo_message m) {
  size_t size = lo_message_length(m, path);
  std::vector<uint8_t> out(size);
  lo_message_serialise(m, path, out.data(), &size);
  lo_message_free(m);
  return out;
}

std::vector<uint8_t> floatMessage(const char* path, float f) {
  lo_message m = lo_message_new();
  lo_message_add_float(m, f);
  return serialise(path, m);
}

std::vector<uint8_t> stringMessage(const char* path, const char* s) {
  lo_message m = lo_message_new();
  lo_message_add_string(m, s);
  return serialise(path, m);
}

// A bundle of n copies of one message, nested once.
std::vector<uint8_t> bundle(const std::vector<uint8_t>& m, int n) {
  std::vector<uint8_t> b = {'#', 'b', 'u', 'n', 'd', 'l', 'e', 0, 0, 0, 0, 0, 0, 0, 0, 1};
  for (int i = 0; i < n; ++i) {
    const uint32_t size = htonl(uint32_t(m.size()));
    const auto* s = reinterpret_cast<const uint8_t*>(&size);
    b.insert(b.end(), s, s + 4);
    b.insert(b.end(), m.begin(), m.end());
  }
  return b;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: osc_flood PORT COUNT\n");
    return 2;
  }
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(uint16_t(std::atoi(argv[1])));
  to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const long count = std::atol(argv[2]);
  const int fd = socket(AF_INET, SOCK_DGRAM, 0);
  if (fd < 0) return 2;

  std::vector<std::vector<uint8_t>> kinds;
  kinds.push_back(floatMessage("/quintara/fader/2", 0.5f));
  kinds.push_back(stringMessage("/quintara/fader/2", "full"));
  kinds.push_back(floatMessage("/quintara/fader/2", 7.0f));
  kinds.push_back(floatMessage("/quintara/fader/99", 1.0f));
  kinds.push_back(floatMessage("/nobody/here", 1.0f));
  std::vector<uint8_t> cut = floatMessage("/quintara/grandmaster", 1.0f);
  cut.resize(cut.size() - 3);
  kinds.push_back(cut);
  kinds.push_back({0xde, 0xad, 0xbe, 0xef, 0, 1, 2});
  kinds.push_back({'#', 'b', 'u', 'n', 'd', 'l', 'e', 0, 1, 2});
  kinds.push_back(bundle(floatMessage("/quintara/fader/2", 0.25f), 200));

  long sent = 0;
  for (long i = 0; i < count; ++i) {
    const auto& d = kinds[size_t(i) % kinds.size()];
    // A full socket buffer waits here: the sender goes as fast as the kernel lets it.
    if (sendto(fd, d.data(), d.size(), 0, reinterpret_cast<sockaddr*>(&to), sizeof to) >= 0) ++sent;
  }
  close(fd);
  std::printf("%ld\n", sent);
  return 0;
}
