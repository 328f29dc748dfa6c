#pragma once
// The desk: quintara without --headless.
//   quintara [FILE] [--home DIR] [--listen [ADDRESS:]PORT] [--screenshot FILE.png] [--zoom Z]
//            [-nosplash] [-default]

namespace q {

int runDesk(int argc, char** argv);

}  // namespace q
