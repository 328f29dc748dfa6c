#pragma once
// A cue is one row of the table `Cues`; its fields are column numbers, shared
// by everything that reads or writes cues (transport, memories, files, grid).
// The row number is the cue's place in the list and what the transport
// counts with; column 513 is the operator's own number for it.
//
// Cells keep whatever was stored: file values stay text, the grid may store
// numbers. So every reader goes through the comparisons below, under which
// the text "1" equals 1 and an empty cell counts as 0.

#include <cstdint>
#include <optional>
#include <string>

#include "engine/core/value.h"

namespace q {

struct Variables;

namespace cue {
// Columns 1..512 hold channel levels.
constexpr int kNumber = 513;
constexpr int kFunction = 514;
constexpr int kWaitUp = 515;
constexpr int kUpTime = 516;
constexpr int kWaitDown = 517;
constexpr int kDownTime = 518;
constexpr int kUnused = 519;  // never stored or read; only wiping passes over it
constexpr int kName = 520;
constexpr int kVar = 521;
constexpr int kAutoGo = 522;  // kept with the cue; the transport never reads it
constexpr int kPlayer1Action = 523;
constexpr int kPlayer1Volume = 524;
constexpr int kPlayer1Balance = 525;
constexpr int kPlayer2Action = 526;
constexpr int kPlayer2Volume = 527;
constexpr int kPlayer2Balance = 528;
constexpr int kChaser1Action = 529;
constexpr int kChaser1Level = 530;
constexpr int kChaser1Speed = 531;
constexpr int kChaser2Action = 532;
constexpr int kChaser2Level = 533;
constexpr int kChaser2Speed = 534;
constexpr int kLastWiped = 535;

// What the action columns ask of a player or a chaser; any other value asks nothing.
enum class PlayerAction : int { Play = 1, Stop = 2, Pause = 3 };
enum class ChaserAction : int { Start = 1, Stop = 2 };
}  // namespace cue

// A cell compared with a whole number: by numeric value, empty as 0; text
// that is no number equals no number.
bool cellEquals(const Value& cell, double number);
// A cell compared with the text of a box: text cells by their text, numeric
// cells by value when the box holds a number, an empty cell equals "".
bool cellEqualsText(const Value& cell, const std::string& text);
// The number in a cell, empty as 0; nullopt for text that is no number.
inline std::optional<double> cellNumber(const Value& cell) { return numberOf(cell); }
// A level cell as the byte it stands for: empty and non-numbers as 0, the
// rest rounded and kept within 0..255.
uint8_t cellLevel(const Value& cell);

// One cell of a row given as a plain number: rows beyond the table's 16-bit
// addresses read as empty (a list run far past its end asks for them).
Value cueCell(const Variables& v, long row, int column);

// Wiping a cue stores empty in columns 1..535 of its row.
void wipeCue(Variables& v, int16_t row);
// Wipes rows 1..CueCount and sets CueCount to 0.
void wipeCues(Variables& v);

}  // namespace q
