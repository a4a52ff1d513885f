// Any bytes as a profile file: what is written is read back, and every other value stays.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "formats/profile/profile_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const kestrun::ByteView content(data, size);
  constexpr size_t kLimit = 254;
  const auto other = kestrun::FindProfileValue(content, "FOLDERS", "DFLW", kLimit);
  const auto changed = kestrun::WithProfileValue(content, "launcher", "STYLE", "dark");
  if (!changed) return 0;
  if (kestrun::FindProfileValue(*changed, "LAUNCHER", "style", kLimit) != "dark") std::abort();
  if (kestrun::FindProfileValue(*changed, "FOLDERS", "DFLW", kLimit) != other) std::abort();
  return 0;
}
