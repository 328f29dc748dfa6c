#pragma once
// Reading and writing show files a line at a time. Lines are kept as the
// 8-bit text on disk while keywords are matched and cut, since every
// keyword length counts bytes of that text; values are turned into UTF-8
// only once cut out. Writers build the whole text and put it on disk through
// a temporary file and a rename, so a crash or a full disk never leaves half
// a show behind.

#include <fstream>
#include <string>
#include <string_view>

namespace q {

// The comment line of every format: an apostrophe and 70 asterisks.
inline const std::string kRuleLine = "'" + std::string(70, '*');

class LineReader {
 public:
  // Throws FileError when the path is no readable file.
  explicit LineReader(std::string path);
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  // The next line without its end (CR LF, or LF alone); false at end of file.
  bool next();
  const std::string& line() const { return line_; }
  int lineNumber() const { return lineNumber_; }
  const std::string& path() const { return path_; }

  // True when the line starts with key, compared exactly.
  bool startsWith(std::string_view key) const {
    return std::string_view(line_).substr(0, key.size()) == key;
  }
  // The line less its first n bytes, as the 8-bit text; fails the line when it is shorter.
  std::string_view rest(size_t n) const;
  // The same, as UTF-8 text.
  std::string restText(size_t n) const;

  // Stops the reader at this line: throws FileError naming the file and the line.
  [[noreturn]] void fail(const std::string& reason) const;

 private:
  std::string path_;
  std::ifstream in_;
  std::string line_;
  int lineNumber_ = 0;
};

// A file being written: lines go in as UTF-8 and come out in the code page with CR LF.
class TextOut {
 public:
  void line(std::string_view text);
  void line(std::string_view keyword, std::string_view value) { line2(keyword, value); }
  void rule() { line(kRuleLine); }
  // Raw bytes already in the code page, for long machine-made lines.
  std::string& raw() { return text_; }
  void endLine() { text_ += "\r\n"; }
  const std::string& text() const { return text_; }
  // Writes the file (temporary file, then rename); throws FileError on failure.
  void save(const std::string& path) const;

 private:
  void line2(std::string_view a, std::string_view b);
  std::string text_;
};

// Replaces path by text through a temporary file in the same folder; throws FileError.
void writeFileWhole(const std::string& path, const std::string& text);

}  // namespace q
