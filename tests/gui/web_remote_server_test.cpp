// The desk's web port with real sockets: the page over HTTP, the state over
// the WebSocket within a poll of a change, the PIN beyond loopback, and a
// client that never reads costing a bounded amount before it is dropped.

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTcpSocket>
#include <QWebSocket>
#include <cerrno>
#include <thread>

#include "desk_fixture.h"
#include "gui/qt_dialogs.h"
#include "gui/web_remote_server.h"

namespace q {
namespace {

class WebRemoteServerTest : public test::DeskFixture {
 protected:
  void start(const std::string& address, gui::WebClientBounds bounds = {}) {
    desk();
    server = std::make_unique<gui::WebRemoteServer>(console(), qtDialogs, bounds);
    std::string error;
    ASSERT_TRUE(server->listen(address, 0, error)) << error;
    url = QStringLiteral("ws://%1:%2/ws").arg(QString::fromStdString(address)).arg(server->port());
  }
  // Connects a page's socket and gathers what it is sent.
  std::unique_ptr<QWebSocket> page(QStringList& got) {
    auto s = std::make_unique<QWebSocket>();
    QObject::connect(s.get(), &QWebSocket::textMessageReceived,
                     [&got](const QString& m) { got << m; });
    s->open(QUrl(url));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return s->state() == QAbstractSocket::ConnectedState; }, 3000));
    return s;
  }
  void TearDown() override {
    server.reset();
    DeskFixture::TearDown();
  }
  gui::QtDialogs qtDialogs;
  std::unique_ptr<gui::WebRemoteServer> server;
  QString url;
};

TEST_F(WebRemoteServerTest, ServesThePageAndPushesTheStateWithinAPoll) {
  start("127.0.0.1");
  EXPECT_FALSE(server->pin().needed());
  QTcpSocket http;
  http.connectToHost(QHostAddress::LocalHost, server->port());
  ASSERT_TRUE(http.waitForConnected(2000));
  http.write("GET / HTTP/1.1\r\nHost: x\r\n\r\n");
  QByteArray body;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (body += http.readAll()).contains("</html>"); }, 3000));
  EXPECT_TRUE(body.startsWith("HTTP/1.1 200"));
  EXPECT_TRUE(body.contains("X-Frame-Options: DENY"));

  QStringList got;
  auto s = page(got);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !got.isEmpty(); }, 2000));
  EXPECT_TRUE(got.last().startsWith(R"({"t":"state")"));
  s->sendTextMessage(R"({"do":"gm","level":0.2})");
  QElapsedTimer t;
  t.start();
  ASSERT_TRUE(QTest::qWaitFor([&] { return got.last().contains(R"("gm":0.2)"); }, 2000));
  EXPECT_LT(t.elapsed(), 100);
  EXPECT_EQ(form1().SMaster.position(), 204);
}

// The state is looked at every poll only while a page is connected.
TEST_F(WebRemoteServerTest, APortNobodyUsesWatchesNothing) {
  start("127.0.0.1");
  EXPECT_FALSE(server->watching()) << "listening alone wakes the console for nobody";
  QStringList got;
  auto first = page(got);
  ASSERT_TRUE(QTest::qWaitFor([&] { return server->watching(); }, 2000));
  QStringList other;
  auto second = page(other);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !other.isEmpty(); }, 2000));
  first->close();
  ASSERT_TRUE(QTest::qWaitFor([&] { return server->clients() == 1; }, 2000));
  EXPECT_TRUE(server->watching()) << "one page is still there";
  const QString before = other.last();
  form1().SMaster.setPosition(100);
  EXPECT_TRUE(QTest::qWaitFor([&] { return other.last() != before; }, 2000))
      << "the page left gets the change";
  second->close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !server->watching(); }, 2000));
}

TEST_F(WebRemoteServerTest, BeyondLoopbackNothingIsDoneBeforeThePin) {
  start("127.0.0.2");
  ASSERT_TRUE(server->pin().needed());
  EXPECT_TRUE(server->notice().endsWith(QString::fromStdString("PIN " + server->pin().pin())));
  QStringList got;
  auto s = page(got);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !got.isEmpty(); }, 2000));
  EXPECT_EQ(got.first(), R"({"t":"pin","wrong":false,"waitMs":0})");
  s->sendTextMessage(R"({"do":"gm","level":0})");
  QTest::qWait(100);
  EXPECT_EQ(form1().SMaster.position(), 0);  // still full: no PIN yet
  s->sendTextMessage(QString::fromStdString(R"({"pin":")" + server->pin().pin() + "\"}"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return got.last().startsWith(R"({"t":"state")"); }, 2000));
  s->sendTextMessage(R"({"do":"gm","level":0})");
  EXPECT_TRUE(QTest::qWaitFor([&] { return form1().SMaster.position() == 255; }, 2000));

  // A page from another site may not open a socket here at all.
  QWebSocket foreign(QStringLiteral("http://evil.example"));
  foreign.open(QUrl(url));
  QTest::qWait(300);
  EXPECT_NE(foreign.state(), QAbstractSocket::ConnectedState);
}

// A socket with a tiny window, connected to the port.
int smallClient(quint16 port) {
  const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
  const int small = 1024;
  ::setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_port = htons(port);
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  (void)!::connect(fd, reinterpret_cast<sockaddr*>(&a), sizeof a);
  return fd;
}

// One that shakes hands as a page's socket and then never reads.
int deafClient(quint16 port) {
  const int fd = smallClient(port);
  const std::string hello =
      "GET /ws HTTP/1.1\r\nHost: 127.0.0.1\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
      "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n\r\n";
  (void)!::write(fd, hello.data(), hello.size());
  return fd;
}

TEST_F(WebRemoteServerTest, AClientThatNeverReadsIsHeldBackThenDroppedWhileOthersGoOn) {
  start("127.0.0.1", {.holdBack = 4096, .stuckMs = 1500, .maxClients = 4, .socketBuffer = 4096});
  const int deaf = deafClient(server->port());
  QStringList got;
  auto reader = page(got);
  ASSERT_TRUE(QTest::qWaitFor([&] { return server->clients() == 2; }, 2000));
  // A state that changes on every poll, for as long as the deaf client lasts.
  QElapsedTimer t;
  t.start();
  int moves = 0;
  while (server->clients() == 2 && t.elapsed() < 20000) {
    form1().SMaster.setPosition(++moves % 256);
    QTest::qWait(gui::WebRemoteServer::kPollMs);
  }
  EXPECT_EQ(server->clients(), 1);  // the deaf one is gone
  // The reader saw the latest state all along.
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        form1().SMaster.setPosition(100);
        return got.last().contains(R"("gm":0.607843)");
      },
      2000));
  ::close(deaf);
}

// One masked text frame, as a browser sends it.
std::string clientFrame(const std::string& text) {
  std::string f = {char(0x81), char(0x80 | text.size())};
  const char mask[4] = {1, 2, 3, 4};
  f.append(mask, 4);
  for (size_t i = 0; i < text.size(); ++i) f += char(text[i] ^ mask[i % 4]);
  return f;
}

TEST_F(WebRemoteServerTest, AFloodOfMessagesIsTakenInBitesAndTheLoopGoesOn) {
  start("127.0.0.1");
  const int fd = deafClient(server->port());
  ASSERT_TRUE(QTest::qWaitFor([&] { return server->clients() == 1; }, 2000));
  std::string flood;
  for (int i = 0; i < 100000; ++i) flood += clientFrame(R"({"do":"gm","level":0.5})");
  std::thread writer([&] { (void)!::send(fd, flood.data(), flood.size(), MSG_NOSIGNAL); });
  // A timer of the desk's loop: its longest wait while the flood is taken.
  QElapsedTimer t, gap;
  t.start();
  gap.start();
  qint64 longest = 0;
  QTimer tick;
  QObject::connect(&tick, &QTimer::timeout, [&] { longest = std::max(longest, gap.restart()); });
  tick.start(5);
  QTest::qWait(2000);
  ::shutdown(fd, SHUT_RDWR);
  writer.join();
  ::close(fd);
  EXPECT_LT(longest, 100) << "the loop stood still while the flood was read";
  EXPECT_EQ(form1().SMaster.position(), 127);  // the first of them was taken
}

TEST_F(WebRemoteServerTest, AClientAskingForThePageWithoutReadingIsCutOff) {
  start("127.0.0.1");
  const int fd = smallClient(server->port());
  std::string asks;
  for (int i = 0; i < 2000; ++i) asks += "GET / HTTP/1.1\r\nHost: x\r\n\r\n";
  // About 25 MB of pages asked for; the desk must not hold them.
  std::thread writer([&] {
    for (size_t sent = 0; sent < asks.size();) {
      const ssize_t n = ::send(fd, asks.data() + sent, asks.size() - sent, MSG_NOSIGNAL);
      if (n <= 0) break;
      sent += size_t(n);
    }
  });
  QTest::qWait(1500);
  // Read now: what was sent before the cut, and then the end.
  size_t got = 0;
  char buf[65536];
  QElapsedTimer t;
  t.start();
  while (t.elapsed() < 10000) {
    const ssize_t n = ::recv(fd, buf, sizeof buf, MSG_DONTWAIT);
    if (n == 0 || (n < 0 && errno != EAGAIN && errno != EWOULDBLOCK)) break;
    if (n > 0) got += size_t(n);
    QTest::qWait(1);
  }
  EXPECT_LT(got, 4u << 20) << "the desk kept answering a client that did not read";
  ::shutdown(fd, SHUT_RDWR);
  writer.join();
  ::close(fd);
  // The desk still serves a page to whoever reads.
  QTcpSocket http;
  http.connectToHost(QHostAddress::LocalHost, server->port());
  ASSERT_TRUE(http.waitForConnected(2000));
  http.write("GET / HTTP/1.1\r\nHost: x\r\n\r\n");
  QByteArray body;
  EXPECT_TRUE(QTest::qWaitFor([&] { return (body += http.readAll()).contains("</html>"); }, 3000));
}

}  // namespace
}  // namespace q
