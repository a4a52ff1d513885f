// Reading the directory of a zip archive: from its end record where that closes the file, else by a walk from the
// file's start over all local headers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "formats/zip/zip_layout.h"
#include "platform/files.h"

namespace kestrun::zip {

// The members in the order of the central directory, and the archive's comment. Texts are bytes as stored.
struct Directory {
  std::vector<Item> items;
  std::string texts;
  std::string comment;

  [[nodiscard]] std::string_view Name(const Item& item) const { return Text(item.text_at, item.name_bytes); }
  [[nodiscard]] std::string_view Comment(const Item& item) const {
    return Text(item.text_at + item.name_bytes + item.extra_bytes, item.comment_bytes);
  }
  // A directory member: nothing stored, and a name that ends in "/".
  [[nodiscard]] bool IsFolder(const Item& item) const { return item.compressed_size == 0 && Name(item).ends_with('/'); }

 private:
  [[nodiscard]] std::string_view Text(size_t at, size_t bytes) const {
    return std::string_view(texts).substr(at, bytes);
  }
};

// Counts are believed no further than the file reaches. Shows "Unknown header" for each four bytes of the walk that are
// no signature; the walk ends at a central header only, so that in a file without one the box comes again and again.
// Raises 62 when the file is shorter than an end record, or ends inside a member of its directory.
[[nodiscard]] Directory ReadDirectory(File& file, const std::string& path);

}  // namespace kestrun::zip
