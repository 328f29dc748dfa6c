#pragma once
// Cuts the bytes of a script or of standard input into command lines, as
// they arrive, at most a bounded number of bytes each. A longer line is
// neither kept nor run: it is reported once and its bytes are dropped up to
// its end, so that no input can make the console hold or scan it whole.

#include <cstddef>
#include <string>

namespace q {

class LineSplitter {
 public:
  explicit LineSplitter(size_t maxLineBytes) : max_(maxLineBytes) {}

  enum class Got { Nothing, Line, TooLong };

  void feed(const char* data, size_t n);
  // The end of input: the last line may lack its newline.
  void finish() { finished_ = true; }
  // The next whole line (without its newline), a line found too long, or
  // Nothing until more bytes arrive.
  Got next(std::string& line);
  // Everything fed has been handed out and no more will come.
  bool ended() const { return finished_ && start_ == buf_.size(); }

 private:
  void compact();

  size_t max_;
  std::string buf_;
  size_t start_ = 0;       // where the line being read begins in buf_
  size_t scanned_ = 0;     // no newline before this offset
  bool dropping_ = false;  // inside a line found too long: drop up to its newline
  bool finished_ = false;
};

}  // namespace q
