// Finding entries by name: a look at each of them for a few questions, an index for many.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "formats/pff/pff_layout.h"

namespace kestrun::pff {

class NameIndex {
 public:
  // The number of the first entry with that name, without regard to case and padding; -1 when there is none. Entries
  // that were added behind those of the last time are found too.
  [[nodiscard]] int32_t Find(std::span<const Entry> entries, std::string_view name_bytes);
  // Called when the entry with that number has got another name.
  void NoteRenamed(size_t number);
  void Forget();

 private:
  [[nodiscard]] static int32_t LookAtEach(std::span<const Entry> entries, std::string_view name_bytes);

  std::unordered_map<std::string, int32_t> numbers_;  // by trimmed name in lower case
  size_t known_ = 0;                                  // so many entries are in it
  int questions_ = 0;
};

// The name as it is compared.
[[nodiscard]] std::string NameKey(std::string_view name_bytes);

}  // namespace kestrun::pff
