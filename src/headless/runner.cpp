#include "headless/runner.h"

#include <iostream>

namespace q {

int runHeadless(int, char**) {
  std::cerr << "headless runner not built yet\n";
  return 1;
}

}  // namespace q
