// The twin patch windows: what typing writes in each, paging, the edit and
// file menus, the turn from one twin to the other, and that both agree with
// each other and with the frame the mixer builds through the patch.

#include <fstream>

#include "engine/views/patch_console_view.h"
#include "engine/views/patch_dmx_view.h"
#include "support/console_fixture.h"

namespace q::test {
namespace {

class PatchTest : public ConsoleFixture {
 protected:
  void SetUp() override { console().start(); }
  PatchDmxView& byDmx() {
    form1().menu("mnuPatch").click();
    return *console().windows.find<PatchDmxView>("frmPatch");
  }
  PatchConsoleView& byConsole() {
    byDmx().ReverseBtn.click();
    return *console().windows.find<PatchConsoleView>("frmInvPatch");
  }
  static void enter(PatchWindow& w, int box, const std::string& text) {
    w.txtPatch(box).setText(text);
    w.txtPatch(box).keyPress(13);
  }
  std::vector<uint8_t> frame(int from, int to) {
    v().MixDirty = kTrue;
    form1().DMXTimer.onTick();
    return {v().DMXData.begin() + from - 1, v().DMXData.begin() + to};
  }
};

TEST_F(PatchTest, ByDmxOpensOnTheFirstPageWithThePatchSwitch) {
  v().PatchMap.set(2, 40);
  v().PatchOn = kTrue;
  PatchDmxView& w = byDmx();
  EXPECT_TRUE(w.isVisible());
  EXPECT_EQ(w.Label2.caption(), "DMX Channel - Quintara Channel");
  EXPECT_EQ(w.Label1.caption(), "1 to 64");
  EXPECT_EQ(w.Channel(0).caption(), "1");
  EXPECT_EQ(w.Channel(63).caption(), "64");
  EXPECT_EQ(w.txtPatch(2).text(), "40");
  EXPECT_EQ(w.txtPatch(64).text(), "64");
  EXPECT_EQ(w.Check1.checked(), 1);
  EXPECT_EQ(w.menu("mnuOpen").caption(), "Open patch file");
  EXPECT_EQ(w.menu("mnuDeleteAll").caption(), "DeleteAll");
  EXPECT_EQ(v().PatchMap.get(2), 40) << "filling the boxes is not typing";
}

TEST_F(PatchTest, ByDmxTakesEveryChangeOfABoxThatIsANumber) {
  PatchDmxView& w = byDmx();
  const std::pair<const char*, int> cases[] = {
      {"7", 7},    {"0", 0},   {"512", 512}, {"300", 300}, {"12.5", 12},
      {"-0.4", 0}, {" 9 ", 9}, {"512.6", 9}, {"513", 9},   {"-1", 9},
      {"abc", 9},  {"", 9},    {"1e309", 9}, {"7x", 9},    {"99999999999", 9}};
  v().PatchMap.set(5, 1);
  for (const auto& [text, entry] : cases) {
    w.txtPatch(5).setText(text);
    EXPECT_EQ(v().PatchMap.get(5), entry) << '"' << text << '"';
  }
  EXPECT_TRUE(dialogs.shown.empty()) << "out-of-range text is dropped without a word";
  v().MixDirty = kFalse;
  w.txtPatch(5).setText("abc");
  EXPECT_EQ(v().MixDirty, kFalse) << "text that is no number ends the handling";
  w.txtPatch(5).setText("600");
  EXPECT_EQ(v().MixDirty, kTrue) << "any number raises MixDirty";
}

TEST_F(PatchTest, ByDmxPagesOverAll512Channels) {
  PatchDmxView& w = byDmx();
  w.Command1.click();
  EXPECT_EQ(w.page, 0);
  for (int i = 0; i < 10; ++i) w.Command2.click();
  EXPECT_EQ(w.page, PatchDmxView::kLastPage);
  EXPECT_EQ(w.Label1.caption(), "449 to 512");
  EXPECT_EQ(w.Channel(63).caption(), "512");
  w.txtPatch(64).setText("3");
  EXPECT_EQ(v().PatchMap.get(512), 3);
  w.Command1.click();
  EXPECT_EQ(w.Label1.caption(), "385 to 448");
  EXPECT_EQ(w.txtPatch(1).text(), "385");
}

TEST_F(PatchTest, ByConsoleListsTheDmxChannelsOfEachConsoleChannelRising) {
  v().PatchMap.set(30, 3);
  v().PatchMap.set(9, 3);
  v().PatchMap.set(3, 0);
  PatchConsoleView& w = byConsole();
  EXPECT_EQ(console().windows.find("frmPatch"), nullptr) << "the twin it came from is unloaded";
  EXPECT_EQ(w.Label2.caption(), "Quintara Channel - DMX Channel");
  EXPECT_EQ(w.Label1.caption(), "1 to 20");
  EXPECT_EQ(w.txtPatch(3).text(), "9,30,");
  EXPECT_EQ(w.txtPatch(4).text(), "4,");
  EXPECT_EQ(w.menu("mnuSave").caption(), "Save as ...");
}

TEST_F(PatchTest, ByConsoleEnterPatchesEveryListedChannelAndOnlyAdds) {
  PatchConsoleView& w = byConsole();
  enter(w, 3, "7");
  EXPECT_EQ(v().PatchMap.get(7), 3);
  EXPECT_EQ(w.txtPatch(3).text(), "3,7,");
  // A channel taken out of the list keeps its entry; the redraw shows it back.
  enter(w, 3, "8, 10,");
  EXPECT_EQ(w.txtPatch(3).text(), "3,7,8,10,");
  EXPECT_EQ(w.txtPatch(7).text(), "") << "DMX 7 moved away from console channel 7";
  // Typing alone does nothing until Enter.
  w.txtPatch(5).setText("11");
  EXPECT_EQ(v().PatchMap.get(11), 11);
  // Blank places in the list hold no number.
  enter(w, 5, ",,12,");
  EXPECT_EQ(v().PatchMap.get(12), 5);
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(PatchTest, ByConsoleToldOfAChannelOutsideTheTableKeepsWhatCameBefore) {
  PatchConsoleView& w = byConsole();
  for (const char* bad : {"20,600,21", "20,0,21", "20,abc,21", "20,-3,21", "20,512.7,21"}) {
    v().PatchMap.set(20, 20);
    v().PatchMap.set(21, 21);
    dialogs.shown.clear();
    enter(w, 2, bad);
    EXPECT_EQ(v().PatchMap.get(20), 2) << bad;
    EXPECT_EQ(v().PatchMap.get(21), 21) << bad;
    ASSERT_EQ(dialogs.shown.size(), 1u) << bad;
    EXPECT_NE(dialogs.shown[0].find("is outside 1 to 512"), std::string::npos);
  }
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX Quintara | Reverse Patch: DMX channel \"512.7\" is outside 1 to 512; the "
            "list was patched up to it");
}

TEST_F(PatchTest, ByConsolePagesUpToTheFirstPageAtOrBeyondTheChannelsInUse) {
  v().MaxChans = 512;
  PatchConsoleView& w = byConsole();
  for (int i = 0; i < 40; ++i) w.Command2.click();
  EXPECT_EQ(w.page, 26);
  EXPECT_EQ(w.Label1.caption(), "521 to 540");
  EXPECT_EQ(w.txtPatch(1).text(), "");
  // A console channel beyond the table can't be patched.
  enter(w, 1, "5");
  EXPECT_EQ(v().PatchMap.get(5), 5);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0],
            "MSGBOX Quintara | Reverse Patch: console channel 521 is beyond 512; nothing was "
            "patched");
  v().MaxChans = 40;
  w.page = 0;
  for (int i = 0; i < 5; ++i) w.Command2.click();
  EXPECT_EQ(w.page, 2);
}

TEST_F(PatchTest, OneToOneAndDeleteAllCoverAll512WhateverMaxChans) {
  v().MaxChans = 64;
  PatchDmxView& w = byDmx();
  w.Command4.click();
  for (int d : {1, 64, 65, 512}) EXPECT_EQ(v().PatchMap.get(d), 0) << d;
  EXPECT_EQ(w.txtPatch(1).text(), "0");
  w.menu("mnuOnetoOne").click();
  for (int d : {1, 64, 65, 512}) EXPECT_EQ(v().PatchMap.get(d), d) << d;
  EXPECT_TRUE(dialogs.shown.empty()) << "neither asks";
  PatchConsoleView& inv = byConsole();
  inv.menu("mnuDeleteAll").click();
  EXPECT_EQ(v().PatchMap.get(512), 0);
  EXPECT_EQ(inv.txtPatch(1).text(), "");
}

TEST_F(PatchTest, TheTwinsAgreeWithEachOtherAndWithTheFrame) {
  v().chan(2, 0) = 200;  // console channel 2 on stage
  v().chan(5, 0) = 100;
  PatchDmxView& w = byDmx();
  w.Command4.click();
  w.Check1.setChecked(1);
  EXPECT_EQ(v().PatchOn, kTrue);
  EXPECT_EQ(frame(1, 6), std::vector<uint8_t>(6, 0)) << "an empty patch sends nothing";
  w.txtPatch(10).setText("2");
  w.menu("mnuView1").click();  // its own side: nothing
  ASSERT_EQ(console().windows.find("frmPatch"), &w);
  w.menu("mnuView2").click();
  auto* inv = console().windows.find<PatchConsoleView>("frmInvPatch");
  ASSERT_NE(inv, nullptr);
  EXPECT_EQ(console().windows.find("frmPatch"), nullptr);
  EXPECT_EQ(inv->txtPatch(2).text(), "10,");
  EXPECT_EQ(inv->Check1.checked(), 1);
  enter(*inv, 5, "40,41");
  // (Outputs 11 to 30 wait while output 10 is lit on the live display's Output view.)
  const std::vector<uint8_t> out = frame(1, 42);
  EXPECT_EQ(out[9], 200);
  EXPECT_EQ(std::vector<uint8_t>(out.begin() + 38, out.end()),
            (std::vector<uint8_t>{0, 100, 100, 0}));
  inv->menu("mnuView1").click();
  PatchDmxView& back = *console().windows.find<PatchDmxView>("frmPatch");
  EXPECT_EQ(back.txtPatch(40).text(), "5");
  EXPECT_EQ(back.txtPatch(41).text(), "5");
  back.Check1.setChecked(0);
  EXPECT_EQ(v().PatchOn, kFalse);
  EXPECT_EQ(frame(1, 5), (std::vector<uint8_t>{0, 200, 0, 0, 100})) << "the patch is left aside";
}

TEST_F(PatchTest, OpenAndSaveFromTheMenusWithTheReadersMessages) {
  PatchDmxView& w = byDmx();
  w.txtPatch(1).setText("9");
  dialogs.queueAnswer(path("a.qpf"));
  w.menu("mnuSave").click();
  auto lineOf = [](const std::string& file, int n) {
    std::ifstream in(file);
    std::string line;
    for (int i = 0; i < n; ++i) std::getline(in, line);
    return line;
  };
  EXPECT_EQ(lineOf(path("a.qpf"), 5), "1:9\r");
  // A cancelled save writes nothing, though the chooser still holds the name.
  w.txtPatch(1).setText("8");
  w.menu("mnuSave").click();
  EXPECT_EQ(lineOf(path("a.qpf"), 5), "1:9\r");

  // Open reads the file and redraws the page; the box keeps the switch it showed.
  std::ofstream(path("b.qpf")) << "PATCH: ON\r\n1:33\r\n";
  dialogs.queueAnswer(path("b.qpf"));
  w.menu("mnuOpen").click();
  EXPECT_EQ(v().PatchMap.get(1), 33);
  EXPECT_EQ(w.txtPatch(1).text(), "33");
  EXPECT_EQ(v().PatchOn, kTrue);
  EXPECT_EQ(w.Check1.checked(), 0);

  // A bad line stops the reader where it stands, told as every reader tells it.
  std::ofstream(path("c.qpf")) << "2:44\r\n\r\n3:55\r\n";
  dialogs.queueAnswer(path("c.qpf"));
  PatchConsoleView& inv = byConsole();
  inv.menu("mnuOpen").click();
  EXPECT_EQ(v().PatchMap.get(2), 44);
  EXPECT_EQ(v().PatchMap.get(3), 3);
  ASSERT_EQ(dialogs.shown.size(), 1u);
  const std::string box = "MSGBOX ERROR | Error loading file : " + path("c.qpf") + ", line 2: ";
  EXPECT_EQ(dialogs.shown[0].substr(0, box.size()), box);
  EXPECT_EQ(inv.txtPatch(2).text(), "") << "the page is redrawn after a failure too";
  // A missing file is told the same way; a cancelled open reads nothing.
  dialogs.queueAnswer(path("none.qpf"));
  inv.menu("mnuOpen").click();
  EXPECT_EQ(dialogs.shown.size(), 2u);
  inv.menu("mnuOpen").click();
  EXPECT_EQ(dialogs.shown.size(), 2u);
}

TEST_F(PatchTest, BothWindowsStayLoadedThroughTheMainWindowsUnload) {
  byDmx();
  console().unload();
  EXPECT_NE(console().windows.find("frmPatch"), nullptr);
}

}  // namespace
}  // namespace q::test
