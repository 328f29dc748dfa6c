// The tables windows show tell their listeners what changed: one change, one
// notice, with the rectangle that holds it; a bulk writer's changes as one.

#include "engine/core/table_change.h"

#include <fstream>

#include "support/console_fixture.h"

namespace q::test {
namespace {

class TableNotices : public ConsoleFixture {
 protected:
  void watch(TableNotifier& n) {
    n.listen([this](const TableChange& c) { heard.push_back(c); });
  }
  std::vector<TableChange> heard;
};

TEST_F(TableNotices, OneCellOneNoticeAndNoneForTheSameValue) {
  watch(v().ChanTable.changes);
  v().ChanTable.set(5, 2, 77);
  v().ChanTable.set(5, 2, 77);
  v().chan(6, 3) = 1;
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[0], (TableChange{5, 5, 2, 2}));
  EXPECT_EQ(heard[1], (TableChange{6, 6, 3, 3}));

  heard.clear();
  watch(v().Cues.changes);
  v().Cues.setCell(3, 520, std::string("Intro"));
  v().Cues.setCell(3, 520, std::string("Intro"));
  v().Cues.setCell(3, 520, Value{});
  ASSERT_EQ(heard.size(), 2u);
  EXPECT_EQ(heard[1], (TableChange{3, 3, 520, 520}));

  heard.clear();
  watch(v().PatchMap.changes);
  v().PatchMap[9] = 3;
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0], (TableChange{10, 10, 0, 0}));
}

TEST_F(TableNotices, ADirectCommandIsToldOnceWithItsChannels) {
  console().start();
  watch(v().ChanTable.changes);
  auto& direct = *console().registry.find<TextBox>("Direct");
  direct.setText("3/12a50");
  direct.keyPress(13);
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_EQ(heard[0], (TableChange{3, 12, 0, 0}));
}

TEST_F(TableNotices, ABulkWriteIsOneNoticeThatHoldsAllItsCells) {
  console().start();
  watch(v().Cues.changes);
  {
    std::ofstream f(path("list.qcl"), std::ios::binary);
    f << "SHOW:Test\r\nDATE:today\r\nMEM:1\r\nFUNCTION:1\r\nCHAN:4a100,9a50,\r\n"
         "MEM:2\r\nFUNCTION:1\r\n";
  }
  console().files.load("cuelist", path("list.qcl"));
  ASSERT_EQ(heard.size(), 1u);
  EXPECT_TRUE(heard[0].contains(1, 4));
  EXPECT_TRUE(heard[0].contains(2, 513));

  // RESET DESK: once per table, whatever it wipes.
  heard.clear();
  std::vector<TableChange> levels;
  v().ChanTable.changes.listen([&](const TableChange& c) { levels.push_back(c); });
  v().chan(40, 7) = 9;
  levels.clear();
  dialogs.queueAnswer("OK");
  form1().menu("mnuNew").click();
  ASSERT_EQ(levels.size(), 1u);
  EXPECT_TRUE(levels[0].contains(40, 7));
  EXPECT_EQ(heard.size(), 1u);
}

TEST_F(TableNotices, TheMixerTellsItsListenersAfterEveryMix) {
  console().start();
  int mixes = 0;
  console().mixer.outputMixed.add([&] { ++mixes; });
  v().MixDirty = kTrue;
  form1().DMXTimer.tick();
  form1().DMXTimer.tick();  // clean: no mix
  EXPECT_EQ(mixes, 1);
}

}  // namespace
}  // namespace q::test
