#include "formats/pff/pff_layout.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/text.h"

namespace kestrun::pff {
namespace {

constexpr char kDeletedMark = 127;

bool IsDropped(char byte) { return byte == '\0' || byte == kDeletedMark; }

}  // namespace

std::array<char, kNameBytes> PadName(std::string_view bytes, char padding) {
  std::array<char, kNameBytes> name;
  name.fill(padding);
  std::copy_n(bytes.begin(), std::min(bytes.size(), kNameBytes), name.begin());
  return name;
}

std::string TrimName(std::string_view bytes) {
  std::string kept;
  std::copy_if(bytes.begin(), bytes.end(), std::back_inserter(kept), [](char byte) { return !IsDropped(byte); });
  return std::string(TrimBlanks(kept));
}

NameMatcher::NameMatcher(std::string_view name_bytes) : lower_(&SingleByteLower()), wanted_(TrimName(name_bytes)) {
  for (char& byte : wanted_) byte = (*lower_)[static_cast<unsigned char>(byte)];
}

// Whether a byte differs before anything in the name is dropped or trimmed: nearly every other name does.
bool NameMatcher::DiffersEarly(const Entry& entry) const {
  const char* const name = entry.name.data();
  if (name[0] == ' ') return false;
  for (size_t at = 0; at < kNameBytes && !IsDropped(name[at]); ++at) {
    if (at == wanted_.size()) return name[at] != ' ';
    if ((*lower_)[static_cast<unsigned char>(name[at])] != wanted_[at]) return true;
  }
  return false;
}

bool NameMatcher::Matches(const Entry& entry) const {
  if (DiffersEarly(entry)) return false;
  std::array<char, kNameBytes> kept{};
  size_t count = 0;
  for (const char byte : entry.name) {
    if (!IsDropped(byte)) kept[count++] = (*lower_)[static_cast<unsigned char>(byte)];
  }
  return TrimBlanks({kept.data(), count}) == wanted_;
}

}  // namespace kestrun::pff
