#include "formats/pff/pff_names.h"

#include <algorithm>

#include "base/code_page.h"

namespace kestrun::pff {
namespace {

// One put asks three times; making the index takes as long as so many looks at all entries.
constexpr int kFewQuestions = 16;

}  // namespace

std::string NameKey(std::string_view name_bytes) {
  const std::array<char, 256>& lower = SingleByteLower();
  std::string key = TrimName(name_bytes);
  for (char& byte : key) byte = lower[static_cast<unsigned char>(byte)];
  return key;
}

int32_t NameIndex::LookAtEach(std::span<const Entry> entries, std::string_view name_bytes) {
  const NameMatcher matcher(name_bytes);
  const auto found = std::ranges::find_if(entries, [&](const Entry& entry) { return matcher.Matches(entry); });
  return found == entries.end() ? -1 : static_cast<int32_t>(found - entries.begin());
}

int32_t NameIndex::Find(std::span<const Entry> entries, std::string_view name_bytes) {
  if (questions_ < kFewQuestions) {
    ++questions_;
    return LookAtEach(entries, name_bytes);
  }
  if (known_ > entries.size()) Forget();
  // Of two with one name the first counts.
  for (; known_ < entries.size(); ++known_) {
    numbers_.emplace(NameKey(NameBytes(entries[known_])), static_cast<int32_t>(known_));
  }
  const auto found = numbers_.find(NameKey(name_bytes));
  return found == numbers_.end() ? -1 : found->second;
}

void NameIndex::NoteRenamed(size_t number) {
  if (number < known_) Forget();
}

void NameIndex::Forget() {
  numbers_.clear();
  known_ = 0;
  questions_ = 0;
}

}  // namespace kestrun::pff
