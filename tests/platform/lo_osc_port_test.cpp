// The OSC socket on loopback: liblo's types arrive as the console's, a
// datagram that is no OSC is told, the descriptor the host watches stays
// the same through a move, and feedback leaves in OSC's wire format.

#include <gtest/gtest.h>
#include <lo/lo.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <random>
#include <string>
#include <vector>

#include "platform/osc/lo_osc_port.h"

namespace q::test {
namespace {

// Listens on a free loopback port; its number.
int listenSomewhere(LoOscPort& port) {
  static std::mt19937 rng{uint32_t(getpid())};
  std::string error;
  for (int tries = 0; tries < 50; ++tries) {
    const int p = 30000 + int(rng() % 30000);
    if (port.listen("127.0.0.1", p, error)) return p;
  }
  return 0;
}

void pumpUntil(LoOscPort& port, const std::function<bool()>& done, int rounds = 100) {
  for (int i = 0; i < rounds && !done(); ++i) {
    pollfd p{port.wakeFd(), POLLIN, 0};
    if (poll(&p, 1, 20) > 0) port.pump();
  }
}

TEST(LoOscPort, TypesArriveAsTheConsolesAndNoiseIsTold) {
  LoOscPort port;
  const int fd = port.wakeFd();
  const int number = listenSomewhere(port);
  ASSERT_NE(number, 0);
  EXPECT_EQ(port.wakeFd(), fd);
  std::vector<OscMessage> got;
  int malformed = 0;
  port.onMessage = [&](const OscMessage& m) { got.push_back(m); };
  port.onMalformed = [&] { ++malformed; };

  lo_address to = lo_address_new("127.0.0.1", std::to_string(number).c_str());
  lo_send(to, "/quintara/x", "ifdshT", 7, 0.5f, 0.25, "go", int64_t(3));
  const int raw = socket(AF_INET, SOCK_DGRAM, 0);
  sockaddr_in at{};
  at.sin_family = AF_INET;
  at.sin_port = htons(uint16_t(number));
  at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const char junk[] = "/quintara/go\0\0\0\0,f";  // a float promised, none there
  sendto(raw, junk, sizeof junk - 1, 0, reinterpret_cast<sockaddr*>(&at), sizeof at);
  pumpUntil(port, [&] { return got.size() == 1 && malformed == 1; });
  ASSERT_EQ(got.size(), 1u);
  EXPECT_EQ(malformed, 1);
  EXPECT_EQ(got[0].address, "/quintara/x");
  EXPECT_EQ(got[0].args,
            (std::vector<OscArg>{OscArg::integer(7), OscArg::real(0.5f), OscArg::precise(0.25),
                                 OscArg::string("go"), OscArg::precise(3), OscArg::other()}));

  // Moved to another port: the old one hears nothing, the watched descriptor is the same.
  const int moved = listenSomewhere(port);
  ASSERT_NE(moved, 0);
  ASSERT_NE(moved, number);
  EXPECT_EQ(port.wakeFd(), fd);
  lo_send(to, "/quintara/go", "");
  pumpUntil(
      port, [] { return false; }, 10);
  EXPECT_EQ(got.size(), 1u);
  lo_address_free(to);
  close(raw);
}

TEST(LoOscPort, FeedbackLeavesAsOsc) {
  lo_server watcher = lo_server_new_with_proto(nullptr, LO_UDP, nullptr);
  ASSERT_NE(watcher, nullptr);
  std::vector<std::string> seen;
  lo_server_add_method(
      watcher, nullptr, nullptr,
      [](const char* path, const char* types, lo_arg** argv, int, lo_message, void* user) {
        auto& s = *static_cast<std::vector<std::string>*>(user);
        s.push_back(std::string(path) + " " + types + " " +
                    (types[0] == 's' ? std::string(&argv[0]->s) : std::to_string(argv[0]->f)));
        return 0;
      },
      &seen);
  LoOscPort port;
  std::string error;
  ASSERT_TRUE(port.setDestination("127.0.0.1", lo_server_get_port(watcher), error)) << error;
  port.send({"/quintara/stage/name", {OscArg::string("Sunrise")}});
  port.send({"/quintara/fader/1", {OscArg::real(0.5f)}});
  for (int i = 0; i < 2; ++i) lo_server_recv_noblock(watcher, 1000);
  EXPECT_EQ(seen, (std::vector<std::string>{"/quintara/stage/name s Sunrise",
                                            "/quintara/fader/1 f 0.500000"}));
  lo_server_free(watcher);
}

}  // namespace
}  // namespace q::test
