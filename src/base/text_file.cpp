#include "base/text_file.h"

#include "base/code_page.h"
#include "base/text.h"

namespace kestrun {
std::string DecodeTextFile(std::string_view bytes) {
  if (!StartsWith(bytes, kUtf8Mark)) return DecodeText(bytes);
  // Through UTF-16 and back, so that bytes which are no UTF-8 do not travel on as if they were.
  return ToUtf8(ToUtf16(bytes.substr(kUtf8Mark.size())));
}

std::string EncodeTextFile(std::string_view text) {
  return FirstUnencodable(text) ? std::string(kUtf8Mark) + std::string(text) : EncodeText(text);
}

}  // namespace kestrun
