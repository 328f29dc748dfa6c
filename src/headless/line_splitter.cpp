#include "headless/line_splitter.h"

#include <algorithm>

namespace q {

void LineSplitter::feed(const char* data, size_t n) {
  if (dropping_) {
    const char* nl = std::find(data, data + n, '\n');
    if (nl == data + n) return;
    dropping_ = false;
    n -= size_t(nl + 1 - data);
    data = nl + 1;
  }
  buf_.append(data, n);
}

LineSplitter::Got LineSplitter::next(std::string& line) {
  const size_t nl = buf_.find('\n', std::max(start_, scanned_));
  if (nl != std::string::npos) {
    const bool tooLong = nl - start_ > max_;
    if (!tooLong) line.assign(buf_, start_, nl - start_);
    start_ = scanned_ = nl + 1;
    compact();
    return tooLong ? Got::TooLong : Got::Line;
  }
  scanned_ = buf_.size();
  if (buf_.size() - start_ > max_) {
    // Reported now; the rest of it is dropped as it comes.
    buf_.clear();
    start_ = scanned_ = 0;
    dropping_ = !finished_;
    return Got::TooLong;
  }
  if (finished_ && start_ < buf_.size()) {
    line.assign(buf_, start_, std::string::npos);
    buf_.clear();
    start_ = scanned_ = 0;
    return Got::Line;
  }
  return Got::Nothing;
}

// Lines already handed out are dropped once they are the larger part of the
// buffer: what is moved is never more than what was handed out since the last
// time, so cutting costs time linear in the input.
void LineSplitter::compact() {
  if (start_ * 2 < buf_.size()) return;
  buf_.erase(0, start_);
  scanned_ -= start_;
  start_ = 0;
}

}  // namespace q
