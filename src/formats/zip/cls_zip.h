// Lists a zip archive and extracts chosen members (docs/formats/zip.md). A reader only.
//
// Members are numbered from 1. An accessor of a member gives the empty value of its type (0, empty text, false) when
// the number is 0, above the count, or nothing is loaded. The archive's path, count and comment belong to the whole
// process: a Get_Contents replaces them, also those that another object has read; the members themselves stay with each
// object.
//
// Statuses of UnPack: 0 done, -1 wrong or no password, -10 an unsupported method, no members, or a selection of another
// size. Faults of single members are boxes: "Error in zipfile", "CRC error", "CRC calculation failed", "Error in
// decompressed size", "error writing file", "Password is incorrect". What is raised: the file layer's errors for an
// archive that cannot be opened, 62 for one that is cut short, and what a decompression raises that leaves its buffers.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "base/object.h"
#include "formats/zip/zip_walk.h"

namespace kestrun {

class Cls_Zip final : public TableObject {
 public:
  // Indexed from 1 to the count: element 0 is not used.
  using Selection = std::vector<bool>;

  // Reads the directory. Always 0.
  int16_t Get_Contents(const std::string& path);
  // Extracts the members whose flag is true. Any member may ask for the password once in a call.
  int16_t UnPack(const Selection& selection, const std::string& destination);
  // The slot of a writer that does not exist: always 0.
  int16_t Pack(const Variant&, const Variant&, const Variant&, const Variant&, const Variant&) { return 0; }
  [[nodiscard]] bool CanUnpack() const { return true; }

  [[nodiscard]] int32_t FileCount() const;
  // As stored, with "/" between folders.
  [[nodiscard]] std::string FileName(int32_t member) const;
  [[nodiscard]] std::string CommentsFile(int32_t member) const;
  [[nodiscard]] std::string CommentsPack() const;
  [[nodiscard]] bool IsDir(int32_t member) const;
  [[nodiscard]] std::string Method(int32_t member) const;
  [[nodiscard]] uint32_t CRC32(int32_t member) const;
  [[nodiscard]] uint32_t Compressed_Size(int32_t member) const;
  [[nodiscard]] uint32_t UnCompressed_Size(int32_t member) const;
  [[nodiscard]] bool Encrypted(int32_t member) const;
  // Days since 30 December 1899.
  [[nodiscard]] double FileDateTime(int32_t member) const;
  [[nodiscard]] std::string SystemMadeBy(int32_t member) const;
  [[nodiscard]] std::string SystemNeeded(int32_t member) const;
  [[nodiscard]] std::string VersionMadeBy(int32_t member) const;
  [[nodiscard]] std::string VersionNeeded(int32_t member) const;

  [[nodiscard]] std::string TypeName() const override { return "Cls_Zip"; }
  [[nodiscard]] const MemberTable& Members() const override;

 private:
  // Null when the accessors have nothing to give.
  [[nodiscard]] const zip::Item* Find(int32_t member) const;

  // Shared with an extraction that runs: a box of its can let another Get_Contents in.
  std::shared_ptr<const zip::Directory> directory_;
};

}  // namespace kestrun
