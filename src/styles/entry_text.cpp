#include "styles/entry_text.h"

#include <utility>

#include "base/text.h"

namespace kestrun {

EntryText::EntryText(std::string stored) : stored_(std::move(stored)) {
  const std::string without_returns = ReplaceAll(ReplaceAll(stored_, kCrLf, "\n"), "\r", "\n");
  has_bare_ends_ = without_returns == stored_ && stored_.find('\n') != std::string::npos;
  shown_ = ReplaceAll(without_returns, "\n", kCrLf);
}

std::string EntryText::StoredFor(const std::string& typed) const {
  if (typed == shown_) return stored_;
  return has_bare_ends_ ? ReplaceAll(typed, kCrLf, "\n") : typed;
}

}  // namespace kestrun
