#include "engine/submasters/function_words.h"

namespace q {

StripWord stripWordOf(std::string_view caption) {
  for (const FunctionWord& f : kFunctionWords)
    if (caption == f.word) return f.meaning;
  return caption == kMidiWord ? StripWord::Mid : StripWord::None;
}

std::string wordForText(const std::string& text) {
  for (const FunctionWord& f : kFunctionWords)
    if (text == f.text) return std::string(f.word);
  return {};
}

std::string textShownForWord(const std::string& word) {
  static constexpr std::string_view kKnown[] = {"SUB", "INV", "SMA", "MP0", "MP1",
                                                "A0B", "SP1", "LV1", "SP2", "LV2"};
  for (std::string_view k : kKnown)
    if (word == k)
      for (const FunctionWord& f : kFunctionWords)
        if (f.word == k) return std::string(f.text);
  return {};
}

}  // namespace q
