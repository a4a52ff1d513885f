// Any text through the search for loops: what is put in can be taken out again, and no place lies before a line's
// start.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "script/javascript/loop_guards.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view source(reinterpret_cast<const char*>(data), size);
  const kestrun::GuardedSource guarded(source, "\x01");
  if (guarded.text().size() < source.size()) std::abort();
  for (int column = 1; column < 40; ++column) {
    if (guarded.OriginalColumn(1, column) < 1) std::abort();
  }
  return 0;
}
