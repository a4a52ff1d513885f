#include "game/lists/list_texts.h"

#include "base/text.h"

namespace kestrun {
namespace {

// How many bytes of the text's beginning are `wanted` in any case; 0 when it begins otherwise.
size_t BeginningLength(std::string_view text, std::string_view wanted) {
  size_t at = 0;
  for (size_t of_wanted = 0; of_wanted < wanted.size();) {
    if (at >= text.size()) return 0;
    if (LowerCodePoint(NextCodePoint(text, at)) != LowerCodePoint(NextCodePoint(wanted, of_wanted))) return 0;
  }
  return at;
}

}  // namespace

bool ContainsNoCase(std::string_view text, std::string_view wanted) {
  if (wanted.empty()) return true;
  for (size_t at = 0; at < text.size(); static_cast<void>(NextCodePoint(text, at))) {
    if (BeginningLength(text.substr(at), wanted) > 0) return true;
  }
  return false;
}

std::string ReplaceAllNoCase(std::string_view text, std::string_view wanted, std::string_view replacement) {
  std::string replaced;
  for (size_t at = 0; at < text.size();) {
    const size_t length = BeginningLength(text.substr(at), wanted);
    if (length > 0) {
      replaced += replacement;
      at += length;
      continue;
    }
    const size_t from = at;
    static_cast<void>(NextCodePoint(text, at));
    replaced += text.substr(from, at - from);
  }
  return replaced;
}

}  // namespace kestrun
