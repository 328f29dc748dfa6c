#pragma once
// Qt wants $XDG_RUNTIME_DIR for its sockets and warns on every start when a
// session has none (a service, ssh, a container). The console then makes the
// same private folder Qt would fall back to, quietly, before Qt starts.

namespace q {

void ensureRuntimeDir();

}  // namespace q
