#pragma once
// A strip's function word: the three letters in the caption of FaderFunc that
// decide what the strip's fader and flash key do. The fader configuration
// dialog shows the same functions in long words.

#include <array>
#include <string>
#include <string_view>

namespace q {

struct FunctionWord {
  std::string_view text;  // as the dialog's list shows it
  std::string_view word;  // as the caption and the submaster file hold it
};

// In the order of the dialog's list, which is also the order APPLY tries them.
inline constexpr std::array<FunctionWord, 14> kFunctionWords{{
    {"SUBMASTER", "SUB"},
    {"BYPASS", "BYP"},
    {"INHIBIT", "INV"},
    {"SUBMASTER MASTER", "SMA"},
    {"AUDIO 1 VOLUME", "MP0"},
    {"AUDIO 1 BALANCE", "A0B"},
    {"AUDIO 1 SPEED", "A0P"},
    {"AUDIO 2 VOLUME", "MP1"},
    {"AUDIO 2 BALANCE", "A1B"},
    {"AUDIO 2 SPEED", "A1P"},
    {"CHASER 1 SPEED", "SP1"},
    {"CHASER 1 LEVEL", "LV1"},
    {"CHASER 2 SPEED", "SP2"},
    {"CHASER 2 LEVEL", "LV2"},
}};

// The word for a list text; empty when the text is none of the list's.
std::string wordForText(const std::string& text);

// The list text the dialog selects when it opens on a strip with this word.
// Only ten words are known in this direction: a strip on "BYP", "A1B", "A0P"
// or "A1P" opens with nothing selected, so that APPLY keeps its word unless
// the operator picks a new one. Empty when nothing is selected.
std::string textShownForWord(const std::string& word);

// The flash keys of these words move the fader (press to full, latch).
inline bool isLevelFlashWord(const std::string& w) {
  return w == "SUB" || w == "LV1" || w == "LV2";
}

}  // namespace q
