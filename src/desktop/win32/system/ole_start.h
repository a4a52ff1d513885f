// COM on the program's one thread.
#pragma once

namespace kestrun {

// Starts it at the first call; later calls do nothing. Whoever uses a COM object calls this first.
void StartOle();

}  // namespace kestrun
