#include "engine/showfiles/show_files.h"

namespace q {

bool ShowFiles::load(const std::string&, const std::string&) { return false; }
bool ShowFiles::save(const std::string&, const std::string&) { return false; }
void ShowFiles::dropOnForm1(const std::string&) {}

}  // namespace q
