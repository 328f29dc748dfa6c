#pragma once
// The printed cue list: the show's name and date over a green rule, then a
// block of labelled lines for each cue (number, type, times, name, variable,
// channels) closed by a thin rule, and the console's logo at the top right
// of the last page. Page breaks come by themselves when the text reaches
// the bottom. The auto-go, player and chaser columns are not printed.

#include "engine/core/printer.h"

namespace q {

class Console;

// Lays the whole list out on the canvas, from Cues as they stand.
void PrintCueList(Console& c, PageCanvas& canvas);

// `mnuPrint` of the cue list: saves the list to temp.qcl in the program's
// folder (which becomes the list's current name), then prints it on the
// host's printer, or into CueList.pdf in the program's folder when there is
// no printer. A failure is one message box; the list stays as it was.
void mnuPrintCueList(Console& c);

}  // namespace q
