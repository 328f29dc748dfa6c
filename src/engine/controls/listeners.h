#pragma once
// A list of listeners that any number of views (and models) can join and
// leave at any moment, also from inside a notification: a listener added
// while the list is being told is told from the next notification on, and a
// listener removed while it runs (even by itself) finishes its call safely
// and is not called again.

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace q {

template <class... Args>
class Listeners {
 public:
  using Fn = std::function<void(Args...)>;

  Listeners() = default;
  Listeners(const Listeners&) = delete;
  Listeners& operator=(const Listeners&) = delete;

  // Returns the listener's id, for remove(); ids are never 0.
  int add(Fn fn) {
    entries_.push_back({next_, std::make_shared<Fn>(std::move(fn))});
    return next_++;
  }

  void remove(int id) {
    for (auto& e : entries_)
      if (e.id == id) e.fn.reset();
    if (depth_ == 0) compact();
  }

  void notify(Args... args) {
    if (entries_.empty()) return;
    Telling telling(*this);
    const size_t n = entries_.size();  // those added meanwhile wait for the next time
    for (size_t i = 0; i < n; ++i) {
      // Held here, so a listener that removes itself is not destroyed mid-call.
      std::shared_ptr<Fn> fn = entries_[i].fn;
      if (fn) (*fn)(args...);
    }
  }

  bool empty() const {
    for (const auto& e : entries_)
      if (e.fn) return false;
    return true;
  }
  size_t size() const {
    size_t n = 0;
    for (const auto& e : entries_) n += e.fn ? 1 : 0;
    return n;
  }

 private:
  // Counts nested notifications; the list is tidied when the outermost ends,
  // also when a listener throws.
  struct Telling {
    explicit Telling(Listeners& l) : list(l) { ++list.depth_; }
    ~Telling() {
      if (--list.depth_ == 0) list.compact();
    }
    Listeners& list;
  };
  struct Entry {
    int id;
    std::shared_ptr<Fn> fn;
  };
  void compact() {
    std::erase_if(entries_, [](const Entry& e) { return !e.fn; });
  }

  std::vector<Entry> entries_;
  int next_ = 1;
  int depth_ = 0;
};

}  // namespace q
