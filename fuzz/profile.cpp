// The profile reader and writer on any bytes: what was written is read again, and writing it once more changes nothing.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "formats/profile/profile_text.h"

namespace {

using kestrun::ByteView;

void Check(bool condition) {
  if (!condition) std::abort();
}

void WriteAndReadBack(ByteView content, const char* section, const char* key, const char* value) {
  static_cast<void>(kestrun::FindProfileValue(content, section, key, 254));
  const auto changed = kestrun::WithProfileValue(content, section, key, value);
  const ByteView now = changed ? ByteView(*changed) : content;
  const auto read = kestrun::FindProfileValue(now, section, key, 254);
  Check(read && *read == value);
  Check(!kestrun::WithProfileValue(now, section, key, value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const ByteView content(data, size);
  WriteAndReadBack(content, "launcher", "STYLE", "dark.stl");
  WriteAndReadBack(content, "a", "k", "");
  WriteAndReadBack(content, "", "k", "1");
  WriteAndReadBack(content, "\xC3\xA4", "\xC3\xB6", "v");
  return 0;
}
