#pragma once
// A console with helpers to write hand-made show files (lines joined by
// CR LF unless told otherwise) and to read files back byte for byte.

#include <fstream>
#include <initializer_list>
#include <sstream>
#include <string>

#include "engine/showfiles/show_formats.h"
#include "support/console_fixture.h"

namespace q::test {

class FilesFixture : public ConsoleFixture {
 protected:
  // As a started console has them: strips carry knob 1, the patch is the identity.
  void SetUp() override {
    v().SubKnob.fill(1);
    for (int ch = 1; ch <= kChannels; ++ch) v().PatchMap[ch - 1] = int16_t(ch);
  }
  // Writes lines with the given line end; returns the file's path.
  std::string write(const std::string& name, std::initializer_list<std::string> lines,
                    const std::string& end = "\r\n") {
    std::string text;
    for (const auto& l : lines) text += l + end;
    return writeRaw(name, text);
  }
  std::string writeRaw(const std::string& name, const std::string& bytes) {
    const std::string p = path(name);
    std::ofstream(p, std::ios::binary) << bytes;
    return p;
  }
  std::string read(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
  }
  static std::string crlf(std::initializer_list<std::string> lines) {
    std::string text;
    for (const auto& l : lines) text += l + "\r\n";
    return text;
  }
  std::string cell(const CSparseMatrix& m, int row, int col) {
    return toText(m.Cell(int16_t(row), int16_t(col)));
  }
  // The last box shown, or "" when none was.
  std::string lastBox() { return dialogs.shown.empty() ? "" : dialogs.shown.back(); }

  static inline const std::string kRule = "'" + std::string(70, '*');
};

}  // namespace q::test
