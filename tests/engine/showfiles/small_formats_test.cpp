// The chaser, patch and channels files.

#include "files_fixture.h"

namespace q::test {

class SmallFormatsTest : public FilesFixture {};

TEST_F(SmallFormatsTest, ChaserKeepsFilledCellsAndReadsIntoEitherChaserWithoutClearing) {
  Variables& vars = v();
  vars.FXStepCount[0] = 2;
  vars.FX1Data.setCell(1, 1, uint8_t(255));
  vars.FX1Data.setCell(1, 3, uint8_t(0));    // filled with 0: kept
  vars.FX1Data.setCell(1, 200, uint8_t(9));  // above MaxChans
  SaveChaser(console(), path("c.qfx"), 0, kTrue);
  EXPECT_EQ(read(path("c.qfx")), crlf({"FX:0", "SHOW:Unnamed", "DATE:No save date", "RANDOM:YES",
                                       kRule, "CHAN:1a255,3a0,", kRule, "CHAN:", kRule}));

  vars.FX2Data.setCell(1, 5, uint8_t(77));  // old cells the file doesn't name stay
  vars.FX2Data.setCell(9, 5, uint8_t(78));
  vars.FXRandom[1] = kTrue;
  vars.ShowName = "kept";
  console().files.load("chaser2", write("d.qfx", {"FX:0", "SHOW:other", "RANDOM:NO", "CHAN:1a10,",
                                                  "CHAN:", "CHAN:2a20,"}));
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_EQ(vars.FXStepCount[1], 3);
  EXPECT_EQ(vars.FXRandom[1], kTrue);  // RANDOM:NO never clears
  EXPECT_EQ(cell(vars.FX2Data, 1, 1), "10");
  EXPECT_EQ(cell(vars.FX2Data, 1, 5), "77");
  EXPECT_EQ(cell(vars.FX2Data, 3, 2), "20");
  EXPECT_EQ(cell(vars.FX2Data, 9, 5), "78");
  EXPECT_EQ(vars.ShowName, "kept");

  vars.FXStepCount[0] = 0;
  SaveChaser(console(), path("e.qfx"), 0, kFalse);
  vars.FXStepCount[0] = 4;
  LoadChaser(console(), path("e.qfx"), 0);
  EXPECT_EQ(vars.FXStepCount[0], 0);
}

TEST_F(SmallFormatsTest, AChaserOfMoreThan255StepsLoadsItsStepsButNotItsCount) {
  std::string text;
  for (int i = 1; i <= 256; ++i) text += "CHAN:1a" + std::to_string(i % 256) + ",\r\n";
  const std::string p = writeRaw("long.qfx", text);
  v().FXStepCount[0] = 4;
  console().files.load("chaser1", p);
  EXPECT_EQ(lastBox(),
            "MSGBOX ERROR | Error loading file : " + p + ", line 256: more than 255 steps");
  EXPECT_EQ(v().FXStepCount[0], 4);
  EXPECT_EQ(cell(v().FX1Data, 255, 1), "255");
}

TEST_F(SmallFormatsTest, PatchWritesAll512AndReadsLinesByTheirFirstLetter) {
  Variables& vars = v();
  for (int ch = 1; ch <= 512; ++ch) vars.PatchMap[ch - 1] = int16_t(513 - ch);
  vars.PatchOn = kTrue;
  SavePatch(console(), path("p.qpf"));
  const std::string text = read(path("p.qpf"));
  const std::string head =
      crlf({kRule, "'                       Orvaldi Patch File", kRule, "PATCH: ON", "1:512"});
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_NE(text.find("\r\n512:1\r\n"), std::string::npos);
  vars.PatchMap.fill(0);
  LoadPatch(console(), path("p.qpf"));
  EXPECT_EQ(vars.PatchMap[0], 512);
  EXPECT_EQ(vars.PatchOn, kTrue);

  // Any line starting with P switches; only an exact "ON" at the end turns it on.
  console().files.load("patch", write("q.qpf", {"Patch is On", "3:  -7", "4:9.5xyz"}));
  EXPECT_EQ(vars.PatchOn, kFalse);
  EXPECT_EQ(vars.PatchMap[2], -7);
  EXPECT_EQ(vars.PatchMap[3], 10);   // rounded half to even
  EXPECT_EQ(vars.PatchMap[4], 508);  // untouched
  // An empty line is an entry for channel 0, which doesn't exist.
  console().files.load("patch", write("r.qpf", {"PATCH: ON", "5:1", "", "6:1"}));
  EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + path("r.qpf") +
                           ", line 3: entry 0 outside 1..512");
  EXPECT_EQ(vars.PatchMap[4], 1);
  EXPECT_EQ(vars.PatchMap[5], 507);
  EXPECT_EQ(vars.PatchOn, kTrue);
}

TEST_F(SmallFormatsTest, ChannelsSaveTheEditColumnAndLoadMergesIntoTheColumnOfTheMoment) {
  Variables& vars = v();
  vars.EditColumn = 5;
  vars.chan(1, 4) = 10;
  vars.chan(2, 4) = 0;
  vars.chan(128, 4) = 20;
  SaveChannels(console(), path("c.qch"), "Warm");
  EXPECT_EQ(read(path("c.qch")),
            crlf({kRule, "NAME:Warm", "DATE:", kRule, "CHAN:1a10,128a20,", kRule}));
  vars.EditColumn = 2;
  vars.chan(3, 1) = 33;
  dialogs.queueAnswer("OK");
  console().files.load("channels", path("c.qch"));
  EXPECT_EQ(dialogs.shown, std::vector<std::string>{"MSGBOX Load Single File | Loaded:Warm"});
  EXPECT_EQ(vars.chan(1, 1), 10);
  EXPECT_EQ(vars.chan(128, 1), 20);
  EXPECT_EQ(vars.chan(3, 1), 33);
  EXPECT_EQ(vars.MixDirty, kTrue);
}

TEST_F(SmallFormatsTest, ChannelClipboardCopiesCutsAndPastesBetweenColumns) {
  Variables& vars = v();
  MainWindow& f = form1();
  vars.EditColumn = 3;
  vars.chan(4, 2) = 44;
  vars.chan(200, 2) = 9;  // above MaxChans: neither copied nor zeroed
  f.menu("mnuChanCut").click();
  EXPECT_EQ(vars.chan(4, 2), 0);
  EXPECT_EQ(vars.chan(200, 2), 9);
  vars.EditColumn = 4;
  vars.chan(5, 3) = 55;
  f.menu("mnuChanPaste").click();
  EXPECT_EQ(vars.chan(4, 3), 44);
  EXPECT_EQ(vars.chan(5, 3), 55);      // merged
  EXPECT_TRUE(dialogs.shown.empty());  // the clipboard has no name and stays quiet
  EXPECT_EQ(read(console().files.channelClipboardPath()),
            crlf({kRule, "NAME:", "DATE:", kRule, "CHAN:4a44,", kRule}));
}

TEST_F(SmallFormatsTest, ChannelFileMenusGoThroughTheSharedChooser) {
  Variables& vars = v();
  vars.EditColumn = 1;
  vars.chan(1, 0) = 1;
  dialogs.queueAnswer(path("named.qch"));
  dialogs.queueAnswer("Look A");
  form1().menu("mnuSaveChan").click();
  EXPECT_EQ(dialogs.shown, std::vector<std::string>{"INPUTBOX Save Channels | Channels name ? | "});
  EXPECT_NE(read(path("named.qch")).find("NAME:Look A\r\n"), std::string::npos);
  // A cancelled open loads what the chooser last held.
  vars.EditColumn = 2;
  form1().menu("mnuLoadChan").click();
  EXPECT_EQ(vars.chan(1, 1), 1);
  EXPECT_EQ(console().CDialog1.Filter, "Orvaldi Channels Document (*.qch)|*.qch");
}

}  // namespace q::test
