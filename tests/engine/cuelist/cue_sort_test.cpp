// "Sort by Cue number" as the console has always sorted: rising numbers,
// equal numbers reversed, numbers of 0 and below left behind in the copy
// rows, the action columns staying where they were, the shared counters.

#include <gtest/gtest.h>

#include "cue_list_fixture.h"
#include "engine/core/console.h"
#include "engine/cuelist/cue_sort.h"

namespace q::test {
namespace {

class CueSort : public CueListFixture {
 protected:
  void sort() { open().menu("mnuSort").click(); }
  std::vector<std::string> column(int col, int rows) {
    std::vector<std::string> r;
    for (int row = 1; row <= rows; ++row) r.push_back(cue(row, col));
    return r;
  }
  using Texts = std::vector<std::string>;
};

TEST_F(CueSort, PutsTheCuesInRisingOrderOfTheirNumbersReadAsNumbers) {
  addCue("10", "ten", {{1, 10}});
  addCue("9", "nine", {{1, 9}});
  addCue("2.5", "two and a half", {{2, 25}});
  sort();
  EXPECT_EQ(column(cue::kNumber, 3), (Texts{"2.5", "9", "10"}));
  EXPECT_EQ(column(cue::kName, 3), (Texts{"two and a half", "nine", "ten"}));
  EXPECT_EQ(column(1, 3), (Texts{"", "9", "10"}));
  EXPECT_EQ(column(2, 3), (Texts{"25", "", ""}));
  EXPECT_EQ(v().CueCount, 3);
  // The loops ran on the shared counters.
  EXPECT_EQ(v().J, 522);
  EXPECT_EQ(v().I, 4);
  // The copy rows were all taken, so they are empty again.
  EXPECT_EQ(column(cue::kNumber, 6), (Texts{"2.5", "9", "10", "", "", ""}));
}

TEST_F(CueSort, EqualNumbersComeOutInReverseOrder) {
  addCue("5", "first");
  addCue("5", "second");
  addCue("1", "one");
  sort();
  EXPECT_EQ(column(cue::kName, 3), (Texts{"one", "second", "first"}));
}

TEST_F(CueSort, NumbersOfZeroAndBelowAreLeftBehindInTheCopyRows) {
  addCue("2", "two");
  addCue("0", "zero", {{1, 77}});
  addCue("1", "one");
  sort();
  EXPECT_EQ(column(cue::kName, 3), (Texts{"", "one", "two"}));
  EXPECT_EQ(cue(1, cue::kNumber), "");
  // Rows 4..6 are the copies: the one never taken keeps its cue.
  EXPECT_EQ(column(cue::kName, 6), (Texts{"", "one", "two", "", "zero", ""}));
  EXPECT_EQ(cue(5, 1), "77");
}

TEST_F(CueSort, ADeletedRowReadsAsZeroAndIsLeftOut) {
  addCue("3", "three");
  addCue("4", "gone");
  addCue("1", "one");
  open().Picture3.mouseDown({MouseButton::Left, 0, 300});
  open().menu("mnuDelete").click();
  sort();
  EXPECT_EQ(column(cue::kName, 3), (Texts{"", "one", "three"}));
}

TEST_F(CueSort, TheActionColumnsStayWhereTheyWere) {
  addCue("2", "two");
  addCue("1", "one");
  setCue(1, cue::kAutoGo, std::string("1"));
  setCue(1, cue::kChaser1Action, std::string("1"));
  setCue(1, cue::kVar, std::string("msg"));
  sort();
  EXPECT_EQ(column(cue::kName, 2), (Texts{"one", "two"}));
  EXPECT_EQ(column(cue::kAutoGo, 2), (Texts{"1", ""}));
  EXPECT_EQ(column(cue::kChaser1Action, 2), (Texts{"1", ""}));
  // Column 521 moves with its cue.
  EXPECT_EQ(column(cue::kVar, 2), (Texts{"", "msg"}));
}

TEST_F(CueSort, ALaterLoadKeepsTheLeftOversBeyondTheList) {
  addCue("1", "one");
  addCue("0", "zero", {{1, 77}, {9, 5}});
  sort();
  ASSERT_EQ(cue(4, cue::kName), "zero");
  // A load wipes only as far as the list reached; a fourth cue lands on the left-over.
  console().files.load("cuelist", write("four.qcl", {"MEM:1", "NAME:a", "CHAN:2a1,", "MEM:2",
                                                     "NAME:b", "CHAN:", "MEM:3", "NAME:c",
                                                     "CHAN:", "MEM:4", "NAME:d", "CHAN:"}));
  EXPECT_EQ(v().CueCount, 4);
  EXPECT_EQ(cue(4, cue::kName), "d");
  EXPECT_EQ(cue(4, 1), "77");
  EXPECT_EQ(cue(4, 9), "5");
}

TEST_F(CueSort, AnEmptyListSortsToNothingAndAnOverlongOneIsRefused) {
  v().J = 17;
  sort();
  EXPECT_EQ(v().J, 17);
  EXPECT_TRUE(dialogs.shown.empty());
  v().CueCount = kMaxSortedCues + 1;
  sort();
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX Sort by Cue number | A list of more than 16383 cues cannot be sorted.");
  EXPECT_EQ(v().J, 17);
}

}  // namespace
}  // namespace q::test
