// The printed cue list: where each line, rule and the logo land, page
// breaks, long channel lists, and what a print leaves behind when the
// printer fails or there is none.

#include <gtest/gtest.h>

#include <filesystem>

#include "cue_list_fixture.h"
#include "engine/core/console.h"
#include "engine/showfiles/cue_list_printout.h"
#include "support/recording_printer.h"

namespace q::test {
namespace {

class Printout : public CueListFixture {
 protected:
  Printout() { printer = &paper; }
  const PrintedDocument& print() {
    open().menu("mnuPrint").click();
    return paper.documents.at(0);
  }
  RecordingPrinter paper;
};

TEST_F(Printout, HeaderRuleAndOneBlockOfLabelledLinesForEachCue) {
  addCue("1", "House to half", {{1, 128}, {17, 40}});
  setCue(1, cue::kWaitUp, std::string("5"));
  setCue(1, cue::kUpTime, std::string("10"));
  setCue(1, cue::kWaitDown, std::string("0"));
  setCue(1, cue::kDownTime, std::string("20"));
  setCue(1, cue::kVar, std::string("intro.mp3"));
  setCue(1, cue::kChaser1Action, std::string("1"));  // not printed
  v().ShowName = "Hamlet";
  v().ShowDate = "1 May";
  const PrintedDocument& doc = print();
  EXPECT_EQ(doc.job.title, "Cue List");
  EXPECT_EQ(doc.job.pdfPath, path("CueList.pdf"));
  EXPECT_TRUE(doc.finished);
  ASSERT_EQ(doc.pages.size(), 1u);
  EXPECT_EQ(doc.texts(),
            (std::vector<std::string>{"Hamlet", "1 May", "CUE NUMBER: ", "1", "CUE TYPE: ", "1",
                                      "TIMES: ", "5,10,0,20,", "CUE NAME: ", "House to half",
                                      "VARIABLE: ", "intro.mp3", "CHANNELS: ", "1a128,17a40,"}));
  const std::vector<PageItem>& p = doc.pages[0];
  // The show in 20 points at 500, 250; the date in italic 12 points at 600.
  EXPECT_EQ(p[0].font.name, "ARIAL");
  EXPECT_EQ(p[0].font.points, 20);
  EXPECT_EQ(p[0].x, 500);
  EXPECT_EQ(p[0].y, 250);
  EXPECT_TRUE(p[1].font.italic);
  EXPECT_EQ(p[1].font.points, 12);
  EXPECT_EQ(p[1].x, 600);
  EXPECT_EQ(p[1].y, 250 + 460);
  // A green rule across the page, 10 high, under the date.
  EXPECT_EQ(p[2].kind, PageItem::Kind::Rule);
  EXPECT_EQ(p[2].rgb, 65280);
  EXPECT_EQ(p[2].x, 0);
  EXPECT_EQ(p[2].x2, paper.width);
  EXPECT_EQ(p[2].y, 986);
  EXPECT_EQ(p[2].y2, 996);
  // Captions bold at 200, values plain behind them, in 9 points, 10 below the rule.
  EXPECT_TRUE(p[3].font.bold);
  EXPECT_EQ(p[3].font.points, 9);
  EXPECT_EQ(p[3].x, 200);
  EXPECT_EQ(p[3].y, 1006);
  EXPECT_FALSE(p[4].font.bold);
  EXPECT_EQ(p[4].x, 200 + 1200);
  EXPECT_EQ(p[4].y, 1006);
  EXPECT_EQ(p[5].y, 1006 + 207);
  // The cue's thin rule, then the logo at the top right.
  const PageItem& rule = p[p.size() - 2];
  EXPECT_EQ(rule.kind, PageItem::Kind::Rule);
  EXPECT_EQ(rule.y, 1006 + 6 * 207);
  EXPECT_EQ(rule.y2, rule.y + 3);
  EXPECT_EQ(p.back().kind, PageItem::Kind::Picture);
  EXPECT_EQ(p.back().x, paper.width - 2500);
  EXPECT_EQ(p.back().y, 100);
}

TEST_F(Printout, AnEmptyListPrintsTheHeaderTheRuleAndTheLogo) {
  const PrintedDocument& doc = print();
  EXPECT_EQ(doc.texts(), (std::vector<std::string>{"Unnamed", "No save date"}));
  ASSERT_EQ(doc.pages[0].size(), 4u);
  EXPECT_EQ(doc.pages[0][2].kind, PageItem::Kind::Rule);
  EXPECT_EQ(doc.pages[0][3].kind, PageItem::Kind::Picture);
}

TEST_F(Printout, ACueWithoutLevelsPrintsTheChannelsCaptionAlone) {
  addCue("2", "Dark");
  const std::vector<std::string> texts = print().texts();
  EXPECT_EQ(texts.back(), "CHANNELS: ");
}

TEST_F(Printout, NewPagesBeginByThemselvesAtTheBottom) {
  for (int i = 1; i <= 40; ++i) addCue(std::to_string(i), "cue " + std::to_string(i));
  const PrintedDocument& doc = print();
  ASSERT_GT(doc.pages.size(), 1u);
  // A page goes on from its top; no text passes the bottom.
  EXPECT_EQ(doc.pages[1].front().y, 0);
  for (const auto& page : doc.pages)
    for (const PageItem& i : page) {
      if (i.kind == PageItem::Kind::Text) {
        EXPECT_LE(i.y + 207, paper.height);
      }
    }
  // The logo is placed on the page the list ends on.
  EXPECT_EQ(doc.pages.back().back().kind, PageItem::Kind::Picture);
  std::string all;
  for (size_t k = 0; k < doc.pages.size(); ++k)
    for (const std::string& t : doc.texts(k)) all += t + "|";
  EXPECT_NE(all.find("CUE NAME: |cue 40|"), std::string::npos);
}

TEST_F(Printout, ALongChannelListGoesOnBelowFromWhereItBegan) {
  v().MaxChans = 512;
  std::initializer_list<std::pair<int, int>> none = {};
  addCue("1", "all", none);
  for (int ch = 1; ch <= 512; ++ch) setCue(1, ch, uint8_t(255));
  const PrintedDocument& doc = print();
  std::string list;
  double x = -1;
  for (const auto& page : doc.pages)
    for (const PageItem& i : page)
      if (i.kind == PageItem::Kind::Text && (i.text[0] >= '0' && i.text[0] <= '9') &&
          i.text.find('a') != std::string::npos) {
        list += i.text;
        if (x < 0) x = i.x;
        EXPECT_EQ(i.x, x);
        EXPECT_LE(i.x + i.text.size() * 100, paper.width);
        EXPECT_EQ(i.text.back(), ',') << "broken after a comma";
      }
  std::string whole;
  for (int ch = 1; ch <= 512; ++ch) whole += std::to_string(ch) + "a255,";
  EXPECT_EQ(list, whole);
}

TEST_F(Printout, TheListIsSavedToTempFirstAlsoWhenThePrinterFails) {
  addCue("1", "a");
  paper.refuseBegin = "the printer is out of paper";
  open().menu("mnuPrint").click();
  EXPECT_NE(read(path("temp.qcl")).find("NAME:a"), std::string::npos);
  EXPECT_EQ(console().files.cueListFileName, path("temp.qcl"));
  EXPECT_EQ(dialogs.shown, (std::vector<std::string>{
                               "MSGBOX Print Cue list | The cue list could not be printed: the "
                               "printer is out of paper"}));
  paper.refuseBegin.clear();
  paper.refuseFinish = "the PDF file cannot be written";
  open().menu("mnuPrint").click();
  EXPECT_EQ(dialogs.shown.size(), 2u);
  EXPECT_EQ(v().CueCount, 1);
}

class PrintoutWithoutPrinter : public CueListFixture {};

TEST_F(PrintoutWithoutPrinter, OrWithoutAWritableFolderItIsOneMessage) {
  addCue("1", "a");
  open().menu("mnuPrint").click();
  EXPECT_EQ(dialogs.shown, (std::vector<std::string>{
                               "MSGBOX Print Cue list | The cue list could not be printed: this "
                               "console has no printer and no PDF writer"}));
  std::filesystem::remove(path("temp.qcl"));
  std::filesystem::create_directory(path("temp.qcl"));
  dialogs.shown.clear();
  open().menu("mnuPrint").click();
  ASSERT_EQ(dialogs.shown.size(), 1u);
  EXPECT_EQ(dialogs.shown[0].rfind("MSGBOX ERROR | Error saving file : ", 0), 0u);
}

}  // namespace
}  // namespace q::test
