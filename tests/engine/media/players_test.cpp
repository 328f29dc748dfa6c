// The players as the console drives them: what its numbers mean as sound,
// what it does when a player tells of a new state or of a medium it can't
// play, and where the settings send the sound.

#include <cmath>
#include <fstream>

#include "engine/media/player_scales.h"
#include "support/console_fixture.h"
#include "support/fake_media_player.h"

namespace q::test {
namespace {

TEST(PlayerScales, VolumeIsHundredthsOfADecibelDown) {
  EXPECT_DOUBLE_EQ(gainForVolume(0), 1.0);
  EXPECT_NEAR(gainForVolume(-600), 0.501187, 1e-6);
  EXPECT_NEAR(20 * std::log10(gainForVolume(-3060)), -30.6, 1e-9);
  EXPECT_NEAR(gainForVolume(-2000), 0.1, 1e-12);
}

TEST(PlayerScales, BalanceTakesTheFarSideDownAndLeavesTheNearSide) {
  const StereoGains left = gainsForBalance(-2000), centre = gainsForBalance(0),
                    right = gainsForBalance(2016);
  EXPECT_DOUBLE_EQ(left.left, 1.0);
  EXPECT_NEAR(left.right, 0.1, 1e-12);
  EXPECT_DOUBLE_EQ(centre.left, 1.0);
  EXPECT_DOUBLE_EQ(centre.right, 1.0);
  EXPECT_NEAR(20 * std::log10(right.left), -20.16, 1e-9);
  EXPECT_DOUBLE_EQ(right.right, 1.0);
  // As a pan that attenuates the far side linearly.
  EXPECT_NEAR(panForBalance(-2000), -0.9, 1e-12);
  EXPECT_DOUBLE_EQ(panForBalance(0), 0.0);
  EXPECT_NEAR(panForBalance(2000), 0.9, 1e-12);
  EXPECT_GE(panForBalance(-2000000000), -1.0);
  EXPECT_LE(panForBalance(2000000000), 1.0);
}

class SinkRecorder : public FakeMediaPlayer {
 public:
  void setAudioSink(const std::string& d) override { sink = d; }
  std::string sink = "(never set)";
};

class PlayerEvents : public ConsoleFixture {
 protected:
  PlayerEvents() {
    players[0] = &p0;
    players[1] = &p1;
  }
  SinkRecorder p0, p1;
};

TEST_F(PlayerEvents, EveryStateChangeOfEitherPlayerPutsBothSpeedsBack) {
  console().start();
  v().Player1Rate = 1.5;
  v().Player2Rate = 0.5f;
  p1.onPlayStateChange(0, 2);
  EXPECT_DOUBLE_EQ(p0.rate(), 1.5);
  EXPECT_DOUBLE_EQ(p1.rate(), 0.5);
  v().Player1Rate = 2.0;
  p0.onPlayStateChange(2, 0);
  EXPECT_DOUBLE_EQ(p0.rate(), 2.0);
}

TEST_F(PlayerEvents, AMediumThatCantPlayIsToldOnceByItsPlayersName) {
  console().start();
  control("MpLoad(1)").drop("/shows/intro.mp3");
  p1.onFailure("no decoder for its format is installed");
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX Quintara | Media Player 2 can't play /shows/intro.mp3: no decoder for its "
            "format is installed");
  // The light goes on.
  EXPECT_TRUE(form1().DMXTimer.isEnabled());
}

TEST_F(PlayerEvents, TheSettingsSayWhereTheSoundGoes) {
  std::ofstream(path("Quintara.INI")) << "[Setup]\nAudioSink=alsasink device=hw:2\n";
  console().start();
  EXPECT_EQ(p0.sink, "alsasink device=hw:2");
  EXPECT_EQ(p1.sink, "alsasink device=hw:2");
}

TEST_F(PlayerEvents, WithoutTheSettingThePlayersUseTheirOwnDefault) {
  std::ofstream(path("Quintara.INI")) << "[Setup]\nAudioSink=alsasink\n";
  commandLine = "quintara -default";
  console().start();
  EXPECT_EQ(p0.sink, "");
}

}  // namespace
}  // namespace q::test
