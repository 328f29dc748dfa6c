// The special cue dialog: a modal window over the cue list that appends a
// function cue at the end of the list, and drops its content box.

#include <gtest/gtest.h>

#include <algorithm>

#include "cue_list_fixture.h"
#include "engine/core/console.h"
#include "engine/cuelist/special_cue.h"

namespace q::test {
namespace {

class SpecialCue : public CueListFixture {
 protected:
  SpCue& dialog() {
    open().menu("mnuSpecialCue").click();
    return *console().windows.find<SpCue>("SpCue");
  }
  int index(SpCue& d, const std::string& line) {
    const auto& items = d.Tipus.items();
    return int(std::find(items.begin(), items.end(), line) - items.begin());
  }
};

TEST_F(SpecialCue, OpensModalWithItsPresetsAndTheFunctionLines) {
  addCue("1", "a");
  addCue("2", "b");
  SpCue& d = dialog();
  EXPECT_TRUE(d.isVisible());
  EXPECT_TRUE(d.isModal());
  EXPECT_EQ(d.caption(), "Add a special cue:");
  EXPECT_EQ(d.txtNumber.text(), "3");
  EXPECT_EQ(d.txtName.text(), "No Cue name");
  EXPECT_EQ(d.Tipus.count(), 40);
  EXPECT_EQ(d.Tipus.items().front(), "02: Jump");
  EXPECT_EQ(d.Tipus.items()[6], "11: Program Sub 1");
  EXPECT_EQ(d.Tipus.items().back(), "47: Player 2 Balance");
  EXPECT_EQ(d.Tipus.listIndex(), -1);
}

TEST_F(SpecialCue, TheChosenLineSetsTheContentCaptionAndTheBrowseButton) {
  SpCue& d = dialog();
  struct Case {
    const char* line;
    const char* caption;
    bool browse;
  };
  for (const Case& c :
       {Case{"06: Run Ext. Program", "Filename:", true},
        Case{"07: Show message", "Message:", false},
        Case{"09: Load file in Prog", "Filename:", true}, Case{"02: Jump", "Jump to:", false},
        Case{"31: Player 1 Load", "Filename:", true}, Case{"25: Program Sub 15", "String:", false},
        Case{"03: Load Status", "Filename:", false}}) {
    d.Tipus.setListIndex(index(d, c.line));
    EXPECT_EQ(d.Label2.caption(), c.caption) << c.line;
    EXPECT_EQ(d.btn_Busca.visible(), c.browse) << c.line;
  }
  // Lines the table passes over leave everything as it was.
  d.Tipus.setListIndex(index(d, "42: Player 2 Play"));
  EXPECT_EQ(d.Label2.caption(), "Filename:");
  d.Tipus.setListIndex(index(d, "08: Sub. level change"));
  EXPECT_EQ(d.Label2.caption(), "Filename:");
  dialogs.queueAnswer("/bin/true");
  d.btn_Busca.click();
  EXPECT_EQ(d.txtContent.text(), "/bin/true");
}

TEST_F(SpecialCue, OkAppendsTheFunctionCueAtTheEndAndDropsTheContent) {
  addCue("1", "a");
  addCue("9", "b");
  SpCue& d = dialog();
  d.txtNumber.setText("4.5");
  d.Tipus.setListIndex(index(d, "07: Show message"));
  d.txtName.setText("Interval");
  d.txtContent.setText("Twenty minutes");
  d.btn_Ok.click();
  EXPECT_EQ(console().windows.find("SpCue"), nullptr);
  EXPECT_EQ(v().CueCount, 3);
  EXPECT_EQ(cue(3, cue::kNumber), "4.5");
  EXPECT_EQ(cue(3, cue::kFunction), "07");
  EXPECT_EQ(cue(3, cue::kName), "Interval");
  EXPECT_EQ(cue(3, cue::kVar), "");
  for (int col = cue::kWaitUp; col <= cue::kDownTime; ++col) {
    EXPECT_EQ(cue(3, col), "0");
    EXPECT_TRUE(std::holds_alternative<int16_t>(v().Cues.Cell(3, int16_t(col))));
  }
  EXPECT_EQ(cue(3, 1), "");
}

TEST_F(SpecialCue, NothingChosenGivesAnEmptyFunctionAndCancelAddsNothing) {
  SpCue& d = dialog();
  d.btn_Ok.click();
  EXPECT_EQ(v().CueCount, 1);
  EXPECT_EQ(cue(1, cue::kFunction), "");
  EXPECT_EQ(cue(1, cue::kName), "No Cue name");
  SpCue& again = dialog();
  EXPECT_EQ(again.txtNumber.text(), "2");
  again.btn_Cancel.click();
  EXPECT_EQ(v().CueCount, 1);
  EXPECT_EQ(console().windows.find("SpCue"), nullptr);
}

}  // namespace
}  // namespace q::test
