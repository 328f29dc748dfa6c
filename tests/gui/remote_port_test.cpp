#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QInputDialog>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>
#include <thread>

#include "desk_fixture.h"
#include "gui/qt_dialogs.h"
#include "gui/remote_port.h"

namespace q {
namespace {

TEST(RemotePortAddress, LoopbackUnlessAnAddressIsGiven) {
  QHostAddress a;
  quint16 port = 0;
  ASSERT_TRUE(gui::parseListenAddress("9000", a, port));
  EXPECT_EQ(a, QHostAddress(QHostAddress::LocalHost));
  EXPECT_EQ(port, 9000);
  ASSERT_TRUE(gui::parseListenAddress("0.0.0.0:9001", a, port));
  EXPECT_EQ(a, QHostAddress(QHostAddress::AnyIPv4));
  ASSERT_TRUE(gui::parseListenAddress("[::1]:9002", a, port));
  EXPECT_EQ(a, QHostAddress(QHostAddress::LocalHostIPv6));
  EXPECT_EQ(port, 9002);
  EXPECT_FALSE(gui::parseListenAddress("70000", a, port));
  EXPECT_FALSE(gui::parseListenAddress("desk", a, port));
  EXPECT_FALSE(gui::parseListenAddress("no.such.host:9000", a, port));
}

class RemotePortTest : public test::DeskFixture {};

TEST_F(RemotePortTest, CommandsOnThePortDriveTheDeskAndAnswerOnIt) {
  desk();
  gui::QtDialogs qtDialogs;
  gui::RemotePort port(console(), qtDialogs);
  std::string error;
  ASSERT_TRUE(port.listen("0", error)) << error;
  QTcpSocket client;
  client.connectToHost(QHostAddress::LocalHost, port.port());
  ASSERT_TRUE(client.waitForConnected(2000));
  client.write("set Fader(5) 0\r\nget SubLevel(3)\nnonsense\nget Fader(5)\n");
  QByteArray answer;
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        answer += client.readAll();
        return answer.count('\n') >= 3;
      },
      3000));
  EXPECT_EQ(answer, "SubLevel(3) = 255\nERROR line 3: unknown command 'nonsense'\nFader(5) = 0\n");
  EXPECT_EQ(form1().Fader(5).position(), 0);
}

// A raw client, for what Qt's socket cannot do: close only its sending side.
class RawClient {
 public:
  explicit RawClient(quint16 port) {
    fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(port);
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connected_ = ::connect(fd_, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0;
  }
  ~RawClient() { close(); }
  bool connected() const { return connected_; }
  void send(const std::string& s) { (void)!::write(fd_, s.data(), s.size()); }
  void finishSending() { ::shutdown(fd_, SHUT_WR); }
  void close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }
  // Reads what has come, without waiting.
  std::string take() {
    std::string got;
    char buf[4096];
    ssize_t n;
    while ((n = ::recv(fd_, buf, sizeof buf, MSG_DONTWAIT)) > 0) got.append(buf, size_t(n));
    return got;
  }

 private:
  int fd_ = -1;
  bool connected_ = false;
};

class RemoteSafety : public test::DeskFixture {
 protected:
  void SetUp() override {
    desk();
    std::string error;
    ASSERT_TRUE(port.listen("0", error)) << error;
  }
  // A fresh client still gets its answer: the desk stands.
  void expectTheDeskAnswers() {
    QTcpSocket probe;
    probe.connectToHost(QHostAddress::LocalHost, port.port());
    ASSERT_TRUE(probe.waitForConnected(2000));
    probe.write("get StageLevel\n");
    QByteArray got;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
          got += probe.readAll();
          return got.contains('\n');
        },
        5000));
    EXPECT_EQ(got, "StageLevel = 255\n");
  }
  gui::QtDialogs qtDialogs;
  gui::RemotePort port{console(), qtDialogs};
};

TEST_F(RemoteSafety, AClientThatLeavesDuringALongCommandHurtsNothing) {
  {
    RawClient c(port.port());
    ASSERT_TRUE(c.connected());
    c.send("advance 600\nget StageLevel\n");
    QTest::qWait(100);  // the command is running
  }
  QTest::qWait(800);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  expectTheDeskAnswers();
}

TEST_F(RemoteSafety, AClientThatLeavesWhileItsBoxIsOpenHurtsNothing) {
  // The box of Max. Channels waits for the operator; the client is gone meanwhile.
  QTimer::singleShot(600, [] {
    if (QWidget* box = QApplication::activeModalWidget()) box->close();
  });
  {
    RawClient c(port.port());
    c.send("click mnuMaxchans\nget MaxChans\n");
    QTest::qWait(200);
  }
  QTest::qWait(700);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  expectTheDeskAnswers();
}

TEST_F(RemoteSafety, AHalfClosedClientStillGetsItsAnswers) {
  RawClient c(port.port());
  c.send("set Fader(5) 0\nget SubLevel(3)\nget Fader(5)");  // the last line without its end
  c.finishSending();
  std::string got;
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        got += c.take();
        return std::count(got.begin(), got.end(), '\n') >= 2;
      },
      3000));
  EXPECT_EQ(got, "SubLevel(3) = 255\nFader(5) = 0\n");
}

TEST_F(RemoteSafety, AClientThatNeverReadsNeitherStarvesOthersNorLosesAnswers) {
  RawClient flood(port.port());
  constexpr int kLines = 2000;  // about 4 MB of answers: more than the socket and the bound hold
  std::string lines;
  for (int i = 0; i < kLines; ++i) lines += "dmx 1 512\n";
  std::thread writer([&] { flood.send(lines); });  // blocks while the desk holds it back
  QTest::qWait(300);
  expectTheDeskAnswers();
  // Once it reads, every answer is there, in order.
  std::string got;
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        got += flood.take();
        return std::count(got.begin(), got.end(), '\n') >= kLines;
      },
      60000));
  writer.join();
  EXPECT_EQ(std::count(got.begin(), got.end(), '\n'), kLines);
  EXPECT_EQ(got.substr(0, 12), "DMX 1-512: 0");
}

}  // namespace
}  // namespace q
