#pragma once
// Show files are Windows-1252 on disk so that they move between systems
// unchanged; the console keeps UTF-8 inside. These convert at the boundary.

#include <string>
#include <string_view>

namespace q {

// Every byte has a character, so reading never fails.
std::string cp1252ToUtf8(std::string_view bytes);
// Characters the code page lacks, and broken UTF-8, become '?'.
std::string utf8ToCp1252(std::string_view text);
// True when every character has a byte in the code page (paths must, or the
// show could not find its companions again).
bool fitsCp1252(std::string_view text);
// Drops the last n characters (not bytes); false when the text is shorter.
bool dropLastChars(std::string& text, size_t n);

}  // namespace q
