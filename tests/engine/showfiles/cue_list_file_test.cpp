// The cue list file: its exact layout, the reader's four-letter keys, and
// where a bad line leaves the list.

#include "engine/playback/cue_record.h"
#include "files_fixture.h"

namespace q::test {

class CueListFileTest : public FilesFixture {
 protected:
  void setText(int row, int col, const std::string& t) {
    v().Cues.setCell(int16_t(row), int16_t(col), t);
  }
  std::string cue(int row, int col) { return cell(v().Cues, row, col); }
  // Loads through the operator's path: a failure becomes the error box.
  void load(const std::string& p) { console().files.load("cuelist", p); }
};

TEST_F(CueListFileTest, SaveWritesTheLayoutWithNumbersForTheOptionalLines) {
  Variables& vars = v();
  vars.ShowName = "Hamlet";
  vars.ShowDate = "1.2.2024";
  vars.CueCount = 2;
  setText(1, cue::kNumber, "1");
  setText(1, cue::kFunction, "1");
  for (int c = cue::kWaitUp; c <= cue::kDownTime; ++c)
    setText(1, c, std::to_string(c - cue::kWaitUp + 5));
  setText(1, cue::kName, "Opening, a look");
  setText(1, cue::kVar, "song.wav");
  setText(1, cue::kAutoGo, "");               // filled but empty: written as the number 0
  setText(1, cue::kPlayer1Action, "2.50 x");  // read leniently: 2.5
  vars.Cues.setCell(1, cue::kChaser1Level, 128.0);
  vars.Cues.setCell(1, 1, uint8_t(255));
  vars.Cues.setCell(1, 17, uint8_t(40));
  vars.Cues.setCell(1, 200, uint8_t(9));           // above MaxChans: lost
  vars.Cues.setCell(1, cue::kUnused, uint8_t(1));  // never in a file
  setText(2, cue::kNumber, "2.5");
  setText(2, cue::kFunction, "07");
  console().files.save("cuelist", path("a.qcl"));
  EXPECT_EQ(read(path("a.qcl")), crlf({kRule,
                                       "SHOW:Hamlet",
                                       "DATE:1.2.2024",
                                       kRule,
                                       "MEM:1",
                                       "FUNCTION:1",
                                       "TIMES:5,6,7,8,",
                                       "NAME:Opening, a look",
                                       "VAR:song.wav",
                                       "AUTOGO:0",
                                       "PLR1:2.5",
                                       "FX1L:128",
                                       "CHAN:1a255,17a40,",
                                       kRule,
                                       "MEM:2.5",
                                       "FUNCTION:07",
                                       "TIMES:,,,,",
                                       "NAME:",
                                       "CHAN:",
                                       kRule}));
}

TEST_F(CueListFileTest, ReaderTakesFourLettersKeepsTextsAndFollowsTheLastMem) {
  v().CueCount = 3;  // an old list, wiped by the load
  setText(3, cue::kName, "old");
  load(write(
      "b.qcl",
      {"NAME:before any cue", "SHOW:Tempest", "DATE:today", kRule, "mem:lower case is skipped",
       "MEM:10", "CHAN:3a7,1a255,", "NAMEs are cut after five:x", "TIMES:1,2.5,,4,extra",
       "FUNCTION:02", "VAR:", "AUTOGO:", "' any comment", "MEM:11", "FX2S:abc", "VAR:run me"},
      "\n"));
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_EQ(get("CueCount"), "2");
  EXPECT_EQ(get("ShowName"), "Tempest");
  EXPECT_EQ(get("ShowDate"), "today");
  EXPECT_EQ(cue(0, cue::kName), "before any cue");  // lines before the first MEM: go to row 0
  EXPECT_EQ(cue(1, cue::kNumber), "10");
  EXPECT_EQ(cue(1, 3), "7");
  EXPECT_EQ(v().Cues.Cell(1, 1), Value(uint8_t(255)));  // levels become bytes
  EXPECT_EQ(cue(1, cue::kName), " are cut after five:x");
  EXPECT_EQ(v().Cues.Cell(1, cue::kUpTime), Value(std::string("2.5")));  // the rest stays text
  EXPECT_EQ(cue(1, cue::kWaitDown), "");
  EXPECT_EQ(cue(1, cue::kDownTime), "4");
  EXPECT_TRUE(v().Cues.cellIsEmpty(1, cue::kVar));      // an empty VAR: stores nothing ...
  EXPECT_FALSE(v().Cues.cellIsEmpty(1, cue::kAutoGo));  // ... an empty AUTOGO: an empty text
  EXPECT_EQ(cue(2, cue::kChaser2Speed), "abc");
  EXPECT_EQ(cue(2, cue::kVar), "run me");
  EXPECT_EQ(cue(3, cue::kName), "");
  EXPECT_EQ(console().files.cueListFileName, path("b.qcl"));
}

TEST_F(CueListFileTest, ABadLineStopsTheReaderWithTheCuesBeforeItLoaded) {
  struct Case {
    std::string line, reason;
  };
  const Case cases[] = {{"FUNC", "line shorter than its keyword"},
                        {"TIMES:1,2,3,4", "times without a comma after each value"},
                        {"CHAN:1a5,2", "pair without 'a'"},
                        {"CHAN:1a5,2a6", "pair without ','"},
                        {"CHAN:1a256,", "level above 255"},
                        {"CHAN:xa1,", "channel is not a number"},
                        {"CHAN:40000a1,", "channel 40000 outside -32768..32767"}};
  for (const auto& c : cases) {
    dialogs.shown.clear();
    const std::string p = write("bad.qcl", {"MEM:1", "CHAN:1a9,", "MEM:2", c.line, "NAME:after"});
    load(p);
    EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + p + ", line 4: " + c.reason);
    EXPECT_EQ(get("CueCount"), "2") << c.line;
    EXPECT_EQ(cue(1, 1), "9");
    EXPECT_EQ(cue(2, cue::kName), "");
  }
}

TEST_F(CueListFileTest, AMissingFileLeavesTheListAsItWas) {
  v().CueCount = 1;
  setText(1, cue::kNumber, "4");
  load(path("none.qcl"));
  EXPECT_EQ(lastBox(),
            "MSGBOX ERROR | Error loading file : " + path("none.qcl") + ", file not found");
  EXPECT_EQ(get("CueCount"), "1");
  EXPECT_EQ(cue(1, cue::kNumber), "4");
}

TEST_F(CueListFileTest, SavedListReadsBackCellForCellAndWritesTheSameBytes) {
  Variables& vars = v();
  vars.MaxChans = 512;
  vars.ShowName = "Café ½ – naïve";  // outside ASCII, inside the code page
  for (int row = 1; row <= 40; ++row) {
    ++vars.CueCount;
    setText(row, cue::kNumber, std::to_string(row));
    setText(row, cue::kFunction, row % 7 == 0 ? "7" : "1");
    for (int c = cue::kWaitUp; c <= cue::kDownTime; ++c) setText(row, c, std::to_string(row % 5));
    setText(row, cue::kName, "Cue «" + std::to_string(row) + "»");
    if (row % 3 == 0) setText(row, cue::kPlayer1Volume, std::to_string(row));
    for (int ch = row; ch <= 512; ch += 13)
      vars.Cues.setCell(int16_t(row), int16_t(ch), uint8_t(ch % 256));
  }
  std::vector<std::string> before;
  for (int row = 1; row <= 40; ++row)
    for (int col = 1; col <= cue::kLastWiped; ++col)
      before.push_back(col == cue::kUnused ? "" : cue(row, col));
  SaveCueList(console(), path("r.qcl"));
  const std::string first = read(path("r.qcl"));
  EXPECT_NE(first.find("SHOW:Caf\xE9 \xBD \x96 na\xEFve\r\n"), std::string::npos);
  vars.ShowName = "x";
  LoadCueList(console(), path("r.qcl"));
  EXPECT_EQ(vars.ShowName, "Café ½ – naïve");
  ASSERT_EQ(vars.CueCount, 40);
  std::vector<std::string> after;
  for (int row = 1; row <= 40; ++row)
    for (int col = 1; col <= cue::kLastWiped; ++col) after.push_back(cue(row, col));
  EXPECT_EQ(after, before);
  SaveCueList(console(), path("r2.qcl"));
  EXPECT_EQ(read(path("r2.qcl")), first);
}

TEST_F(CueListFileTest, ClipboardCopiesOneRowAndPasteAppendsAndRenamesTheLast) {
  Variables& vars = v();
  vars.CueCount = 3;
  for (int row = 1; row <= 3; ++row) {
    setText(row, cue::kNumber, std::to_string(row));
    setText(row, cue::kName, "cue " + std::to_string(row));
  }
  setText(2, cue::kVar, "x.wav");
  vars.Cues.setCell(2, 5, uint8_t(50));
  vars.ShowName = "Show";
  SaveCueClipboard(console(), console().files.cueClipboardPath(), 2);
  EXPECT_EQ(read(console().files.cueClipboardPath()),
            crlf({kRule, "NAME:Show", "DATE:No save date", kRule, "MEM:2", "FUNCTION:",
                  "TIMES:,,,,", "NAME:cue 2", "VAR:", "VAR:x.wav", "CHAN:5a50,", kRule}));
  PasteCueClipboard(console(), console().files.cueClipboardPath());
  EXPECT_EQ(vars.CueCount, 4);
  EXPECT_EQ(cue(3, cue::kName), "Show");  // the header's NAME: lands on the row that was last
  EXPECT_EQ(cue(4, cue::kNumber), "2");
  EXPECT_EQ(cue(4, cue::kVar), "x.wav");
  EXPECT_EQ(cue(4, 5), "50");
  EXPECT_EQ(vars.ShowDate, "No save date");
}

}  // namespace q::test
