#pragma once
// The Stage and Prog memory panels and the moves of cues between the cue
// list and the two scene columns: load and save by number, the pass from
// Prog to Stage at the end of a fade (PassaPrograma) and the loading of the
// next row into Prog (LoadCueinProg).
//
// Stage is the look on stage, column 0 of ChanTable; Prog the look to come,
// column 1. The caption of `NextCue` is the row now in Prog, and that label
// is the only store of it.

#include <functional>
#include <string>

#include "engine/controls/label.h"
#include "engine/controls/lamp.h"
#include "engine/controls/textbox.h"
#include "engine/core/value.h"

namespace q {

class Console;

class Memories {
 public:
  explicit Memories(Console& c);

  TextBox& STAGEMem;
  TextBox& STAGEName;
  TextBox& PROGMem;
  TextBox& PROGName;
  Lamp& StageMemLoad;
  Lamp& StageMemSave;
  Lamp& ProgMemLoad;
  Lamp& ProgMemSave;
  Label& NextCue;

  // The row in NextCue, as a number (0 for a caption that is none).
  long nextCue() const;
  void setNextCue(long row);

  // The pass: Prog's number and name go to Stage, the leaving row does what
  // its function says, the weights return to rest and the next row comes in.
  void PassaPrograma();
  // Shows a row in the Prog panel, as far as its function has anything to show.
  void LoadCueinProg(long row);

  // The panel buttons: prompt for a number or name, then load or save.
  void progMemLoad();
  // What ProgMemLoad does once the number is given: every row with that
  // number is shown in Prog, the last one winning. Remotes load by this.
  void progLoadNumber(int16_t number);
  void stageMemLoad();
  void progMemSave();
  void stageMemSave();

  // Recall of a row chosen in the cue list, without prompting.
  void loadInProg(long row);  // number, name and levels; NextCue and the times stay
  void loadStage(long row);   // number, name and levels; no actions, no new mix

  // Where the cue functions hook in. A row leaving Prog that is neither a
  // memory cue nor a player load cue (1, 31, 41) is handed to passFunction
  // with its function cell; without it, such a row is simply passed over.
  std::function<void(long row, const Value& function)> passFunction;
  // A player load cue (31: player 0, 41: player 1) coming into Prog. Without
  // it the row shows nothing in the Prog panel and waits there like any row
  // that has nothing to show.
  std::function<void(long row, int player)> loadPlayerCue;

 private:
  // The answer of a load prompt as a 16-bit number; nothing for Cancel or a non-number.
  std::optional<int16_t> askNumber(const std::string& title);
  void showInProg(long row);
  void showTimes(long row);
  void loadColumn(long row, int column);
  void save(TextBox& mem, TextBox& name, bool fromOutput);

  Console& c_;
};

}  // namespace q
