#pragma once
// A strip's function word: the three letters in the caption of FaderFunc that
// decide what the strip's fader and flash key do. The fader configuration
// dialog shows the same functions in long words. The caption is the word;
// the strips keep what it means as a StripWord beside it, so that the mix
// and the strip handlers need not compare texts.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace q {

// A function word as the console acts on it, named by the word itself.
// None stands for any caption that is no word: the strip is inert.
enum class StripWord : uint8_t {
  None,
  Sub,  // plays its column
  Byp,  // its column bypasses the mix and the grand master
  Inv,  // its column is taken away from the mix
  Sma,  // master of the SUB strips
  Mp0,  // player volumes, balances and speeds
  A0b,
  A0p,
  Mp1,
  A1b,
  A1p,
  Sp1,  // chaser speeds and levels
  Lv1,
  Sp2,
  Lv2,
  Mid,  // weight of the MIDI column
};

struct FunctionWord {
  std::string_view text;  // as the dialog's list shows it
  std::string_view word;  // as the caption and the submaster file hold it
  StripWord meaning;
};

// In the order of the dialog's list, which is also the order APPLY tries them.
inline constexpr std::array<FunctionWord, 14> kFunctionWords{{
    {"SUBMASTER", "SUB", StripWord::Sub},
    {"BYPASS", "BYP", StripWord::Byp},
    {"INHIBIT", "INV", StripWord::Inv},
    {"SUBMASTER MASTER", "SMA", StripWord::Sma},
    {"AUDIO 1 VOLUME", "MP0", StripWord::Mp0},
    {"AUDIO 1 BALANCE", "A0B", StripWord::A0b},
    {"AUDIO 1 SPEED", "A0P", StripWord::A0p},
    {"AUDIO 2 VOLUME", "MP1", StripWord::Mp1},
    {"AUDIO 2 BALANCE", "A1B", StripWord::A1b},
    {"AUDIO 2 SPEED", "A1P", StripWord::A1p},
    {"CHASER 1 SPEED", "SP1", StripWord::Sp1},
    {"CHASER 1 LEVEL", "LV1", StripWord::Lv1},
    {"CHASER 2 SPEED", "SP2", StripWord::Sp2},
    {"CHASER 2 LEVEL", "LV2", StripWord::Lv2},
}};

// A word the dialog doesn't offer: only a submaster file puts it on a strip.
inline constexpr std::string_view kMidiWord = "MID";

// What a caption means, compared exactly (case included).
StripWord stripWordOf(std::string_view caption);

// The word for a list text; empty when the text is none of the list's.
std::string wordForText(const std::string& text);

// The list text the dialog selects when it opens on a strip with this word.
// Only ten words are known in this direction: a strip on "BYP", "A1B", "A0P"
// or "A1P" opens with nothing selected, so that APPLY keeps its word unless
// the operator picks a new one. Empty when nothing is selected.
std::string textShownForWord(const std::string& word);

// The flash keys of these words move the fader (press to full, latch).
inline bool isLevelFlashWord(StripWord w) {
  return w == StripWord::Sub || w == StripWord::Lv1 || w == StripWord::Lv2;
}

}  // namespace q
