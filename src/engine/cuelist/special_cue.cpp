#include "engine/cuelist/special_cue.h"

#include <cctype>
#include <string>

#include "engine/core/console.h"
#include "engine/playback/cue_function_table.h"
#include "engine/playback/cue_record.h"

namespace q {

SpCue::SpCue(Console& c)
    : Window(c.registry, "SpCue"),
      txtNumber(add<TextBox>("txtNumber")),
      Tipus(add<ListBox>("Tipus")),
      txtName(add<TextBox>("txtName")),
      Label2(add<Label>("Label2", "Content:")),
      txtContent(add<TextBox>("txtContent")),
      btn_Busca(add<Label>("btn_Busca", "...")),
      btn_Ok(add<Label>("btn_Ok", "OK")),
      btn_Cancel(add<Label>("btn_Cancel", "Cancel")),
      lblNumber(add<Label>("lblNumber", "Number:")),
      lblType(add<Label>("lblType", "Type:")),
      lblName(add<Label>("lblName", "Name:")),
      c_(c),
      CDialog1(c.dialogs()) {
  setCaption("Add a special cue:");
  for (const CueFunctionInfo& f : cueFunctions())
    if (!f.specialLine.empty()) Tipus.addItem(std::string(f.specialLine));
  txtNumber.setText(std::to_string(c.v.CueCount + 1));
  txtName.setText("No Cue name");
  Tipus.onClick = [this] { tipusClick(); };
  btn_Busca.onClick = [this] { btnBusca(); };
  btn_Ok.onClick = [this] { ok(); };
  btn_Cancel.onClick = [this] { unload(); };
}

// The line's first two characters say what the content is and whether a
// file can be browsed for; lines the table doesn't name leave all as it was.
void SpCue::tipusClick() {
  const std::string first = Tipus.text().substr(0, 2);
  const int n = first.size() == 2 && std::isdigit(static_cast<unsigned char>(first[0])) &&
                        std::isdigit(static_cast<unsigned char>(first[1]))
                    ? std::stoi(first)
                    : -1;
  if (n == 2) {
    btn_Busca.setVisible(false);
    Label2.setCaption("Jump to:");
  } else if (n == 3) {
    btn_Busca.setVisible(false);
    Label2.setCaption("Filename:");
  } else if (n == 4) {
    btn_Busca.setVisible(false);
    Label2.setCaption("String:");
  } else if (n == 6) {
    btn_Busca.setVisible(true);
    Label2.setCaption("Filename:");
    CDialog1.Filter = "Programs (*.exe)|*.exe|All Files (*.*)|*.*";
  } else if (n == 7) {
    btn_Busca.setVisible(false);
    Label2.setCaption("Message:");
  } else if (n == 9) {
    btn_Busca.setVisible(true);
    Label2.setCaption("Filename:");
  } else if (n >= 11 && n <= 30) {
    btn_Busca.setVisible(false);
    Label2.setCaption("String:");
  } else if (n == 31) {
    btn_Busca.setVisible(true);
    Label2.setCaption("Filename:");
    CDialog1.Filter = "MP3 (*.mp3)|*.mp3|WAV (*.wav)|*.wav|All Files (*.*)|*.*";
  }
}

void SpCue::btnBusca() {
  CDialog1.ShowOpen();
  txtContent.setText(CDialog1.FileName);
}

// The new row: number, the function's two characters, name and four times
// of 0. The content stays out of it.
void SpCue::ok() {
  Variables& v = c_.v;
  if (v.CueCount == INT16_MAX) {
    unload();  // the list is full; nothing can be appended
    return;
  }
  {
    auto batch = v.Cues.changes.batch();
    const int16_t row = ++v.CueCount;
    v.Cues.setCell(row, cue::kNumber, txtNumber.text());
    v.Cues.setCell(row, cue::kFunction, Tipus.text().substr(0, 2));
    v.Cues.setCell(row, cue::kName, txtName.text());
    for (int col = cue::kWaitUp; col <= cue::kDownTime; ++col)
      v.Cues.setCell(row, int16_t(col), int16_t(0));
  }
  unload();
}

}  // namespace q
