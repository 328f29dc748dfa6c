#pragma once
// Console values readable by name, for `get NAME` in the command language and
// for the desk's diagnostics: shared variables (`StageLevel`), and table
// cells with indices (`ChanTable(1,0)`, `Cues(3,513)`). Each subsystem
// registers the values it owns.

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace q {

class NamedValues {
 public:
  using Getter = std::function<std::string()>;
  // Returns nullopt when the indices are out of range.
  using IndexedGetter = std::function<std::optional<std::string>(const std::vector<int>&)>;

  void add(const std::string& name, Getter g) { plain_[name] = std::move(g); }
  void addIndexed(const std::string& name, size_t arity, IndexedGetter g) {
    indexed_[name] = {arity, std::move(g)};
  }
  // "StageLevel" or "ChanTable(1,0)"; nullopt when unknown or out of range.
  std::optional<std::string> get(const std::string& expr) const;
  bool knows(const std::string& baseName) const {
    return plain_.count(baseName) || indexed_.count(baseName);
  }

 private:
  std::map<std::string, Getter> plain_;
  std::map<std::string, std::pair<size_t, IndexedGetter>> indexed_;
};

}  // namespace q
