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

bool NameMatcher::Matches(const Entry& entry) const {
  // Nearly every other name differs in its first byte already.
  const char first = entry.name[0];
  const bool plain = !IsDropped(first) && first != ' ';
  if (plain && (wanted_.empty() || (*lower_)[static_cast<unsigned char>(first)] != wanted_[0])) return false;
  std::array<char, kNameBytes> kept{};
  size_t count = 0;
  for (const char byte : entry.name) {
    if (!IsDropped(byte)) kept[count++] = (*lower_)[static_cast<unsigned char>(byte)];
  }
  return TrimBlanks({kept.data(), count}) == wanted_;
}

}  // namespace kestrun::pff
