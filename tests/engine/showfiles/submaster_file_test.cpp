// The submaster file: the block layout, the reader's two-letter keys, the
// merge of columns, and what reader and writer deliberately do differently.

#include "files_fixture.h"

namespace q::test {

class SubmasterFileTest : public FilesFixture {
 protected:
  void load(const std::string& p) { console().files.load("submasters", p); }
  // The eleven lines of strip n's block in a file just saved.
  std::string block(const std::string& file, int n) {
    const std::string text = read(file);
    const size_t from = text.find("SUB:" + std::to_string(n) + "\r\n");
    return text.substr(from, text.find(kRule, from) - from + kRule.size() + 2);
  }
};

TEST_F(SubmasterFileTest, SaveWritesEachBlockWithItsBlanksFontFieldsAndNonZeroLevels) {
  MainWindow& f = form1();
  v().SubKnob[1] = 23;
  v().SubMidi[1] = 7;
  f.FaderFunc(4).setCaption("INV");
  f.Slabel(4).setText("Front wash");
  f.Fader(4).toolTip = "tip";
  TextStyle s;
  s.fontName = "Arial";
  s.fontSize = 8.25;
  s.bold = true;
  s.underline = true;
  s.foreColor = 0x0000FF;  // blue: 0xFF0000 on file, red in the lowest byte
  s.backColor = 0x102030;
  f.Slabel(4).setStyle(s);
  f.Fader(4).setPosition(55);
  v().chan(1, 3) = 255;
  v().chan(7, 3) = 128;
  v().chan(300, 3) = 5;  // above MaxChans: not saved
  SaveSubmasters(console(), path("s.qsm"));
  const std::string head = crlf({kRule, "SHOW:Unnamed", "DATE:No save date", kRule, "SUB:1"});
  EXPECT_EQ(read(path("s.qsm")).substr(0, head.size()), head);
  EXPECT_EQ(block(path("s.qsm"), 2),
            crlf({"SUB:2", "KNOB: 23 ", "FUNCTION:INV", "NAME:Front wash", "TOOLTIP:tip",
                  "FONT:Arial;8.25;True;False;False;True;16711680", "BACKGROUND:3153936", "MIDI:7",
                  "LEVEL:200", "CHAN:1a255,7a128,", kRule}));
  // A strip left at the toolkit's look carries the system colours.
  EXPECT_EQ(block(path("s.qsm"), 3),
            crlf({"SUB:3", "KNOB: 1 ", "FUNCTION:SUB",
                  "NAME:", "TOOLTIP:", "FONT:;0;False;False;False;False;-2147483640",
                  "BACKGROUND:-2147483643", "MIDI:0", "LEVEL:0", "CHAN:", kRule}));
}

TEST_F(SubmasterFileTest, ReaderMatchesTwoLettersAndMergesColumns) {
  v().chan(2, 4) = 99;  // strip 5's column: kept, the file has no pair for channel 2
  v().chan(3, 4) = 50;
  load(write("m.qsm",
             {"SHOW:Lear", "DATE:d", "SUxx3", "NAxyzStrip three", "FUNCTION:SMA", "LEVEL:100",
              "MIDI:12", "KNOB: 34 ", "TOOLTIP:hello", "BACKGROUND:255",
              "FONT:Times New Roman;12;False;True;True;False;65280", "CHAN:3a1,512a7,",
              "nonsense line", "", kRule},
             "\n"));
  EXPECT_TRUE(dialogs.shown.empty()) << lastBox();
  MainWindow& f = form1();
  EXPECT_EQ(get("ShowName"), "Lear");
  EXPECT_EQ(f.Slabel(5).text(), "Strip three");
  EXPECT_EQ(f.FaderFunc(5).caption(), "SMA");
  // FUNCTION: came first, so the fader moved as a master of the submasters.
  EXPECT_EQ(f.Fader(5).position(), 155);
  EXPECT_EQ(get("SubMasterLevel"), "100");
  EXPECT_EQ(get("SubMidi(3)"), "12");
  EXPECT_EQ(f.Fader(5).knobPicture, "Knob(34)");
  EXPECT_EQ(get("SubKnob(3)"), "1");  // the reader never stores the knob
  EXPECT_EQ(f.Fader(5).toolTip, "hello");
  const TextStyle& s = f.Slabel(5).style;
  EXPECT_EQ(s.fontName, "Times New Roman");
  EXPECT_EQ(s.fontSize, 12);
  EXPECT_TRUE(s.italic && s.strikeout && !s.bold && !s.underline);
  EXPECT_EQ(s.foreColor, 0x00FF00);
  EXPECT_EQ(s.backColor, 0xFF0000);
  EXPECT_EQ(v().chan(2, 4), 99);
  EXPECT_EQ(v().chan(3, 4), 1);
  EXPECT_EQ(v().chan(512, 4), 7);  // any channel, whatever MaxChans
  EXPECT_EQ(get("MixDirty"), "-1");
}

TEST_F(SubmasterFileTest, ALevelEqualToThePositionRunsNoFaderHandling) {
  v().SubLevel[0] = 33;  // stale on purpose
  load(write("l.qsm", {"SUB:1", "LEVEL:0"}));
  EXPECT_EQ(get("SubLevel(1)"), "33");
  load(write("l.qsm", {"SUB:1", "LEVEL:10"}));
  EXPECT_EQ(get("SubLevel(1)"), "10");
}

TEST_F(SubmasterFileTest, ABadLineStopsTheReaderWithEarlierFieldsApplied) {
  struct Case {
    std::string line, reason;
  };
  const Case cases[] = {{"KNOB: 5 ", "no knob picture 5"},
                        {"FONT:Arial;10;True", "font line without ';' after its bold flag"},
                        {"FONT:Arial;big;", "font size is not a number"},
                        {"FONT:Arial;10;yes;", "font bold flag is not True or False"},
                        {"LEVEL:300", "level outside 0..255"},
                        {"MIDI:256", "MIDI controller above 255"},
                        {"CHAN:513a1,", "channel 513 outside 1..512"},
                        {"SUB:21", ""},
                        {"BA", "line shorter than its keyword"}};
  for (const auto& c : cases) {
    dialogs.shown.clear();
    form1().Slabel(3).setText("");
    const std::string p = write("bad.qsm", {"SUB:1", "NAME:before", c.line, "NAME:after"});
    load(p);
    const std::string reason =
        c.reason.empty() ? "line 4: submaster 21 outside 1..20" : "line 3: " + c.reason;
    EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + p + ", " + reason) << c.line;
    if (!c.reason.empty()) {
      EXPECT_EQ(form1().Slabel(3).text(), "before") << c.line;
    }
  }
  // A font line that breaks after its name has set the name.
  load(write("f.qsm", {"SUB:2", "FONT:Courier;x"}));
  EXPECT_EQ(form1().Slabel(4).style.fontName, "Courier");
  // A strip's line before any SUB: has no strip to go to.
  load(write("n.qsm", {"NAME:who"}));
  EXPECT_EQ(lastBox(), "MSGBOX ERROR | Error loading file : " + path("n.qsm") +
                           ", line 1: no SUB: line before it");
}

TEST_F(SubmasterFileTest, SaveLoadSaveGivesTheSameBytes) {
  MainWindow& f = form1();
  v().MaxChans = 512;
  for (int n = 3; n <= 22; ++n) {
    f.FaderFunc(n).setCaption(n % 2 ? "SUB" : "BYP");
    f.Slabel(n).setText("Strip ä" + std::to_string(n));
    f.Fader(n).setPosition(n * 11);
    for (int ch = n; ch <= 512; ch += 17) v().chan(ch, n - 1) = uint8_t(ch % 255 + 1);
  }
  SaveSubmasters(console(), path("a.qsm"));
  for (int n = 3; n <= 22; ++n) {
    f.Slabel(n).setText("");
    f.Fader(n).setPosition(255);
  }
  LoadSubmasters(console(), path("a.qsm"));
  SaveSubmasters(console(), path("b.qsm"));
  EXPECT_EQ(read(path("b.qsm")), read(path("a.qsm")));
  EXPECT_EQ(f.Slabel(9).text(), "Strip ä9");
}

}  // namespace q::test
