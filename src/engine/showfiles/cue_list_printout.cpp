#include "engine/showfiles/cue_list_printout.h"

#include <algorithm>

#include "engine/core/console.h"
#include "engine/look/logo.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/printer_pen.h"
#include "engine/showfiles/show_formats.h"

namespace q {

namespace {
constexpr int kRuleColour = 0x00FF00;  // 65280
constexpr double kLeft = 200;
constexpr double kLogoFromRight = 2500, kLogoTop = 100;
const char* const kTitle = "Print Cue list";

std::string cell(const Variables& v, int row, int column) {
  return toText(v.Cues.Cell(int16_t(row), int16_t(column)));
}

// A bold caption at the left margin and its value behind it, plain.
void labelled(PrinterPen& pen, const char* caption, const std::string& value) {
  pen.CurrentX = kLeft;
  pen.font.bold = true;
  pen.printOn(caption);
  pen.font.bold = false;
  pen.print(value);
}

// The cue's levels as a pair list, as the cue list file writes them.
std::string channelList(const Variables& v, int row) {
  std::string list;
  const int channels = std::clamp<int>(v.MaxChans, 0, kChannels);
  for (int ch = 1; ch <= channels; ++ch) {
    if (v.Cues.cellIsEmpty(int16_t(row), int16_t(ch))) continue;
    list += std::to_string(ch) + "a" + cell(v, row, ch) + ",";
  }
  return list;
}

void printCue(PrinterPen& pen, const Variables& v, int row) {
  pen.CurrentY += 10;
  labelled(pen, "CUE NUMBER: ", cell(v, row, cue::kNumber));
  labelled(pen, "CUE TYPE: ", cell(v, row, cue::kFunction));
  std::string times;
  for (int col = cue::kWaitUp; col <= cue::kDownTime; ++col) times += cell(v, row, col) + ",";
  labelled(pen, "TIMES: ", times);
  labelled(pen, "CUE NAME: ", cell(v, row, cue::kName));
  labelled(pen, "VARIABLE: ", cell(v, row, cue::kVar));
  labelled(pen, "CHANNELS: ", channelList(v, row));
  pen.line(0, pen.CurrentY, pen.pageWidth(), pen.CurrentY + 3, kRuleColour);
}

void failed(Console& c, const std::string& why) {
  c.dialogs().msgBox(kTitle, "The cue list could not be printed: " + why, MsgButtons::OK,
                     MsgIcon::Critical);
}
}  // namespace

void PrintCueList(Console& c, PageCanvas& canvas) {
  PrinterPen pen(canvas);
  pen.font.name = "ARIAL";
  pen.CurrentX = 500;
  pen.CurrentY = 250;
  pen.font.points = 20;
  pen.print(cueListShowName(c));
  pen.font.points = 12;
  pen.font.italic = true;
  pen.CurrentX = 600;
  pen.print(cueListShowDate(c));
  pen.font.italic = false;
  pen.line(0, pen.CurrentY, pen.pageWidth(), pen.CurrentY + 10, kRuleColour);
  pen.font.points = 9;
  for (int row = 1; row <= c.v.CueCount; ++row) printCue(pen, c.v, row);
  canvas.picture(pen.pageWidth() - kLogoFromRight, kLogoTop, look::consoleLogo(false));
}

void mnuPrintCueList(Console& c) {
  const std::string temp = c.files.printListPath();
  if (!c.files.trySave(temp, [&] { SaveCueList(c, temp); })) return;
  Printer* printer = c.host().printer;
  if (!printer) {
    failed(c, "this console has no printer and no PDF writer");
    return;
  }
  std::string why;
  std::unique_ptr<PageCanvas> canvas =
      printer->begin({"Cue List", c.homeDir() + "/CueList.pdf"}, why);
  if (!canvas) {
    failed(c, why);
    return;
  }
  PrintCueList(c, *canvas);
  if (!canvas->finish(why)) failed(c, why);
}

}  // namespace q
