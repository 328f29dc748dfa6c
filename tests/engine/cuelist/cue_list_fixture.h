#pragma once
// A console with the cue list window at hand: cues written straight into
// the table, the window opened from its menu, and a look at its panes.

#include <string>

#include "engine/cuelist/cue_grid.h"
#include "engine/playback/cue_record.h"
#include "engine/showfiles/files_fixture.h"

namespace q::test {

class CueListFixture : public FilesFixture {
 protected:
  Cuewin& open() {
    form1().menu("mnuCueList").click();
    return *console().windows.find<Cuewin>("Cuewin");
  }
  // Appends a memory cue with its number, name and levels (channel, level).
  void addCue(const std::string& number, const std::string& name,
              std::initializer_list<std::pair<int, int>> levels = {}) {
    const int16_t row = ++v().CueCount;
    v().Cues.setCell(row, cue::kNumber, number);
    v().Cues.setCell(row, cue::kFunction, std::string("1"));
    v().Cues.setCell(row, cue::kName, name);
    for (auto [ch, level] : levels) v().Cues.setCell(row, int16_t(ch), uint8_t(level));
  }
  std::string cue(int row, int column) { return cell(v().Cues, row, column); }
  void setCue(int row, int column, const Value& value) {
    v().Cues.setCell(int16_t(row), int16_t(column), value);
  }
  // The text a pane shows in its cell.
  static std::string shown(const CellGrid& pane, int r, int c) { return pane.cell(r, c).text; }
};

}  // namespace q::test
