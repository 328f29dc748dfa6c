#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "support/console_fixture.h"

namespace q::test {

class MixerTest : public ConsoleFixture {
 protected:
  void mix() { console().mixer.MixOutput(); }
  int dmx(int ch) { return v().DMXData[ch - 1]; }
  int mixed(int ch) { return v().MixBuffer[ch - 1]; }
  void strip(int n, const char* word, int level) {
    form1().FaderFunc(n + 2).setCaption(word);
    v().SubLevel[n - 1] = uint8_t(level);
  }
  void identityPatch() {
    for (int n = 1; n <= kChannels; ++n) v().PatchMap[n - 1] = int16_t(n);
    v().PatchOn = kTrue;
  }
};

TEST_F(MixerTest, CrossfadeAddsSharesFlooredApartAndClampsTheSum) {
  v().chan(1, kStageColumn) = 200;
  v().chan(1, kProgColumn) = 200;
  v().ProgLevel = 255;
  v().chan(2, kStageColumn) = 255;
  v().chan(2, kProgColumn) = 255;
  mix();
  EXPECT_EQ(mixed(1), 255);  // 400 clamped, not the higher of the two
  v().StageLevel = 128;
  v().ProgLevel = 127;
  v().chan(3, kStageColumn) = 100;
  v().chan(3, kProgColumn) = 100;
  mix();
  EXPECT_EQ(mixed(2), 255);
  EXPECT_EQ(mixed(3), 50 + 49);  // each share floored on its own: a fade dips
  // 155/255 x 51 is 31 in exact arithmetic and a hair less in double.
  v().StageLevel = 155;
  v().ProgLevel = 0;
  v().chan(4, kStageColumn) = 51;
  mix();
  EXPECT_EQ(mixed(4), 30);
}

TEST_F(MixerTest, GrandMasterIsTheOneProductThatRounds) {
  v().chan(1, kStageColumn) = 255;
  v().chan(2, kStageColumn) = 127;
  v().chan(3, kStageColumn) = 128;
  form1().SMaster.setPosition(127);
  v().GrandMaster = 7;  // recomputed at the head of the mix
  mix();
  EXPECT_EQ(v().GrandMaster, 128);
  EXPECT_EQ(dmx(1), 128);
  form1().SMaster.setPosition(254);
  mix();
  EXPECT_EQ(dmx(2), 0);  // 0.498
  EXPECT_EQ(dmx(3), 1);  // 0.502
  EXPECT_EQ(mixed(3), 128);
}

TEST_F(MixerTest, SubmasterRolesComeFromTheFunctionWord) {
  // SUB: master first, then the strip's own level, floored once at the end.
  strip(1, "SUB", 155);
  v().SubMasterLevel = 51;
  v().chan(1, 2) = 255;
  // Two INV strips take 100 each from 150; the second is clamped at 0.
  v().chan(2, kStageColumn) = 150;
  strip(2, "INV", 255);
  strip(3, "INV", 255);
  v().chan(2, 3) = 100;
  v().chan(3, 3) = 100;
  v().chan(3, 4) = 100;
  v().chan(3, kStageColumn) = 150;
  // A later SUB raises the channel again; INV is not scaled by the submaster master.
  strip(4, "SUB", 255);
  v().chan(3, 5) = 255;
  strip(5, "SMA", 255);
  v().chan(4, 6) = 255;
  mix();
  EXPECT_EQ(mixed(1), 30);  // 31 in exact arithmetic
  EXPECT_EQ(mixed(2), 50);
  EXPECT_EQ(mixed(3), 51);  // 150 - 100 - 100 -> 0, then floor(51/255 x 255)
  EXPECT_EQ(mixed(4), 0);
}

TEST_F(MixerTest, BypassSurvivesBlackoutAndSkipsTheGrandMaster) {
  v().chan(1, 2) = 255;
  v().chan(2, 2) = 200;
  v().chan(2, kStageColumn) = 100;
  strip(1, "BYP", 255);
  v().BlackOut = kTrue;
  mix();
  EXPECT_EQ(dmx(1), 255);
  EXPECT_EQ(dmx(2), 200);
  EXPECT_EQ(mixed(2), 100);  // a bypass strip is not part of the mix itself
  strip(1, "SUB", 255);
  mix();
  EXPECT_EQ(dmx(1), 0);
  v().BlackOut = kFalse;
  mix();
  EXPECT_EQ(dmx(1), 255);
}

TEST_F(MixerTest, RunningChasersAndMidiRaiseTheMix) {
  v().FX1Data.setCell(2, 1, uint8_t{200});
  v().FX1Data.setCell(2, 2, uint8_t{51});
  v().FX1Data.setCell(1, 3, uint8_t{255});  // not the current step
  v().FX2Data.setCell(1, 3, std::string("120"));
  v().FX2Data.setCell(1, 4, 2.5);
  v().FX1Level = 155;
  form1().FxStep[0]->setCaption("2");
  v().chan(1, kStageColumn) = 90;
  v().chan(5, kMidiColumn) = 254;
  v().MidiLevel = 128;
  mix();
  EXPECT_EQ(mixed(1), 90);  // chasers stopped: nothing of theirs
  form1().FXTimer[0]->setRunning(true);
  form1().FXTimer[1]->setRunning(true);
  mix();
  EXPECT_EQ(mixed(1), 121);  // floor(200 x 155/255)
  EXPECT_EQ(mixed(2), 30);
  EXPECT_EQ(mixed(3), 120);
  EXPECT_EQ(mixed(4), 2);
  EXPECT_EQ(mixed(5), 127);
}

TEST_F(MixerTest, ChannelsAboveMaxChansKeepTheirLastBytes) {
  v().MaxChans = 512;
  v().chan(200, kStageColumn) = 90;
  mix();
  v().MaxChans = 128;
  v().chan(200, kStageColumn) = 10;
  mix();
  EXPECT_EQ(mixed(200), 90);
  EXPECT_EQ(dmx(200), 90);
  // Through the patch, an output fed by channel 200 shows the stale mix.
  identityPatch();
  v().PatchMap[0] = 200;
  mix();
  EXPECT_EQ(dmx(1), 90);
  EXPECT_EQ(v().MixDirty, kFalse);
}

TEST_F(MixerTest, PatchPassFeedsOutputsAndLeavesUnpatchedSlots) {
  identityPatch();
  form1().menu("mnuScreenLive").click();  // no label test: every output is reached
  v().chan(3, kStageColumn) = 60;
  v().chan(3, 2) = 200;
  strip(1, "BYP", 255);
  v().PatchMap[9] = 3;  // one channel may feed many outputs
  v().PatchMap[2] = 0;  // unpatched: keeps its byte
  v().PatchMap[4] = -1;
  v().DMXData[2] = 33;
  v().DMXData[4] = 44;
  form1().SMaster.setPosition(128);
  mix();
  EXPECT_EQ(dmx(10), 200);  // bypass of the logical row, after the master
  EXPECT_EQ(dmx(3), 33);
  EXPECT_EQ(dmx(5), 44);
  EXPECT_EQ(v().I, 513);
}

TEST_F(MixerTest, OutputViewLabelTestMakesThePatchPassJumpTo31) {
  identityPatch();
  for (int ch = 1; ch <= 40; ++ch) v().chan(ch, kStageColumn) = 100;
  for (int ch = 2; ch <= 40; ++ch) v().DMXData[ch - 1] = 7;
  mix();
  EXPECT_EQ(dmx(1), 100);
  for (int ch = 2; ch <= 30; ++ch) ASSERT_EQ(dmx(ch), 7) << ch;
  EXPECT_EQ(dmx(31), 100);
  EXPECT_EQ(dmx(40), 100);
  // The labels: output 1, then output 31 over and over until the strip is full.
  std::vector<std::string> labels;
  for (const DrawItem& it : form1().Picture1.items())
    if (it.y == 2) labels.push_back(it.text);
  ASSERT_EQ(labels.size(), 30u);
  EXPECT_EQ(labels[0], "001");
  EXPECT_EQ(labels[29], "031");
}

TEST_F(MixerTest, InterfaceEightGetsEachMasteredChannelWithoutBypass) {
  std::vector<std::pair<int, int>> got;
  console().mixer.perChannelOutput = [&](int ch, uint8_t val) { got.push_back({ch, val}); };
  int repaints = 0;
  console().mixer.outputMixed.add([&] { ++repaints; });
  v().InterfaceType = 8;
  v().MaxChans = 20;
  v().chan(2, kStageColumn) = 100;
  v().chan(2, 2) = 255;
  strip(1, "BYP", 255);
  mix();
  ASSERT_EQ(got.size(), 20u);
  EXPECT_EQ(got[1], std::make_pair(2, 100));
  EXPECT_EQ(dmx(2), 255);
  got.clear();
  identityPatch();
  form1().menu("mnuScreenLive").click();
  v().PatchMap[0] = 2;
  v().PatchMap[1] = 0;
  mix();
  ASSERT_EQ(got.size(), 511u);  // every patched output, by output number
  EXPECT_EQ(got[0], std::make_pair(1, 100));
  EXPECT_EQ(got[1].first, 3);
  EXPECT_EQ(repaints, 2);
}

// The mix written out plainly, channel by channel, against the tables, the
// strips weighed by multipliers (155 at a full master keeps its table),
// the merged strip groups and the cached chaser steps, over changing random shows.
TEST_F(MixerTest, MatchesThePlainMixOverChangingShows) {
  std::mt19937 rng(7);
  auto pick = [&](std::initializer_list<int> from) {
    return *(from.begin() + rng() % from.size());
  };
  const char* words[] = {"SUB", "SUB", "BYP", "SMA", "INV"};  // every other show without INV
  for (int round = 0; round < 40; ++round) {
    Variables& s = v();
    s.MaxChans = int16_t(pick({20, 128, 300, 512}));
    s.StageLevel = uint8_t(pick({0, 128, 155, 255}));
    s.ProgLevel = uint8_t(pick({0, 127, 255}));
    s.SubMasterLevel = uint8_t(pick({51, 255}));
    s.FX1Level = uint8_t(pick({155, 255}));
    s.BlackOut = rng() % 4 ? kFalse : kTrue;
    form1().SMaster.setPosition(pick({0, 127, 254}));
    for (int n = 1; n <= kSubmasters; ++n) {
      const int level = round % 4 == 0 ? 255 - 9 * n : pick({0, 1, 85, 155, 255});  // or all apart
      strip(n, words[rng() % (4 + round % 2)], level);
    }
    for (int k = 0; k < 2; ++k) {
      form1().FXTimer[k]->setRunning(rng() % 2);
      form1().FxStep[k]->setCaption(std::to_string(1 + rng() % 2));
    }
    for (int i = 0; i < 300; ++i) {
      const int ch = 1 + int(rng() % 512);
      v().chan(ch, int(rng() % kColumns)) =
          uint8_t(pick({0, 51, 100, 147, 255}) + (rng() % 3 == 0));
      v().fxData(int(rng() % 2)).setCell(int16_t(1 + rng() % 2), int16_t(ch), uint8_t(rng() % 256));
    }
    mix();
    auto fl = [](double x) { return int(std::floor(x)); };
    for (int ch = 1; ch <= s.MaxChans; ++ch) {
      auto col = [&](int c) { return double(s.chan(ch, c)); };
      const int sum = fl(s.ProgLevel / 255.0 * col(1)) + fl(s.StageLevel / 255.0 * col(0));
      int mb = sum < 255 ? sum : 255;
      for (int j = 1; j <= kSubmasters; ++j) {
        const std::string& w = form1().FaderFunc(j + 2).caption();
        const double sl = s.SubLevel[j - 1] / 255.0;
        if (w == "SUB") mb = std::max(mb, fl(s.SubMasterLevel / 255.0 * col(j + 1) * sl));
        if (w == "INV") mb = std::max(0, mb - fl(sl * col(j + 1)));
      }
      for (int k = 0; k < 2; ++k)
        if (form1().FXTimer[k]->isEnabled()) {
          const int16_t step = int16_t(std::stoi(form1().FxStep[k]->caption()));
          const double lv = (k ? s.FX2Level : s.FX1Level) / 255.0;
          mb = std::max(mb, fl(s.fxData(k).number(step, int16_t(ch)) * lv));
        }
      mb = std::max(mb, fl(s.MidiLevel / 255.0 * col(23)));
      int out = int(std::nearbyint(s.GrandMaster / 255.0 * mb));
      for (int j = 1; j <= kSubmasters; ++j)
        if (form1().FaderFunc(j + 2).caption() == "BYP")
          out = std::max(out, fl(s.SubLevel[j - 1] / 255.0 * col(j + 1)));
      ASSERT_EQ(mixed(ch), mb) << "round " << round << " channel " << ch;
      ASSERT_EQ(dmx(ch), out) << "round " << round << " channel " << ch;
    }
  }
}

}  // namespace q::test
