#include "script/vbscript/lexer/names.h"

#include "base/text.h"

namespace kestrun::vbs {
namespace {

// Two texts, a node of the table with its bucket, and the row that a scope keeps for the name.
constexpr size_t kBytesPerName = 2 * sizeof(std::string) + 64 + 16 + 64;

void FoldInto(std::string_view name, std::string& folded) {
  folded.assign(name);
  for (char& character : folded) {
    if (static_cast<unsigned char>(character) >= 0x80) {
      folded = ToLower(name);
      return;
    }
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + ('a' - 'A'));
  }
}

}  // namespace

std::string FoldName(std::string_view name) {
  std::string folded;
  FoldInto(name, folded);
  return folded;
}

NameId NameTable::Intern(std::string_view name) {
  FoldInto(name, scratch_);
  if (const auto found = numbers_.find(scratch_); found != numbers_.end()) return found->second;
  const auto number = static_cast<NameId>(spellings_.size());
  spellings_.emplace_back(name);
  numbers_.emplace(folded_.emplace_back(scratch_), number);
  bytes_.Grow(kBytesPerName + 2 * LiveBytes::Block(name.size()));
  return number;
}

NameId NameTable::Find(std::string_view name) const {
  const auto found = numbers_.find(FoldName(name));
  return found == numbers_.end() ? kNoName : found->second;
}

}  // namespace kestrun::vbs
