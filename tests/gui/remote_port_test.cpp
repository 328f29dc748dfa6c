#include <gtest/gtest.h>

#include <QTcpSocket>

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

}  // namespace
}  // namespace q
