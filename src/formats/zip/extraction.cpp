#include "formats/zip/extraction.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/code_page.h"
#include "base/runtime_error.h"
#include "formats/zip/mod_disk_io.h"
#include "formats/zip/mod_inflate64.h"
#include "formats/zip/reduce.h"
#include "platform/platform.h"

namespace kestrun::zip {
namespace {

constexpr uint32_t kMostBytes = 0x7FFFFFFF;

// How the decompression routines are told the announced size.
int64_t LastByte(const Item& item) { return int64_t{item.uncompressed_size} - 1; }

}  // namespace

Extraction::Extraction(const std::string& path, std::shared_ptr<const Directory> directory, std::string destination)
    : directory_(std::move(directory)),
      destination_(std::move(destination)),
      file_(platform().files().Open(path, OpenMode::kRead)) {}

int16_t Extraction::Run(const std::vector<bool>& selection) {
  for (size_t member = 1; member < selection.size(); ++member) {
    const Item& item = directory_->items[member - 1];
    if (selection[member] && item.compressed_size > kMostBytes) RefuseTooLarge(item);
  }
  for (size_t member = 1; member < selection.size(); ++member) {
    if (selection[member] && ExtractMember(directory_->items[member - 1]) == Next::kEnd) break;
  }
  return status_;
}

// Before anything is unpacked: no map comes near that size. What a member says of itself without having it is no
// reason.
void Extraction::RefuseTooLarge(const Item& item) const {
  const uint64_t stored_bytes = std::min<uint64_t>(item.compressed_size, file_->Size());
  if (stored_bytes <= kMostBytes) return;
  Raise(error::kOverflow, "The zip's member '" + DecodeText(directory_->Name(item)) + "' has " +
                              std::to_string(stored_bytes) + " bytes. Files over 2 GB are refused.");
}

Extraction::Next Extraction::ExtractMember(const Item& item) {
  if (directory_->IsFolder(item)) {
    CreateMemberFolder(destination_, DecodeText(directory_->Name(item)));
    return Next::kMember;
  }
  if (!ReadData(item)) {
    MsgBox("Error in zipfile");
    return Next::kMember;
  }
  if (item.IsEncrypted() && Decrypt(item) == Next::kEnd) return Next::kEnd;
  Expand(item);
  return Next::kMember;
}

// Name and extra field are skipped by the local header, which may have others than the central one; the size is the
// central one's, and no more is taken than the file has.
bool Extraction::ReadData(const Item& item) {
  std::array<uint8_t, kLocalBytes> record{};
  const bool is_whole = file_->ReadAt(item.local_offset, record) == record.size();
  if (!is_whole || LoadU32(record, 0) != kLocalSignature) return false;
  const LocalHeader local = ParseLocalHeader(record);
  const uint64_t start = uint64_t{item.local_offset} + kLocalBytes + local.name_bytes + local.extra_bytes;
  const uint64_t file_bytes = file_->Size();
  const uint64_t there = start < file_bytes ? file_bytes - start : 0;
  data_.resize(static_cast<size_t>(std::min<uint64_t>(item.compressed_size, there)));
  data_.resize(file_->ReadAt(start, data_));
  return !item.IsEncrypted() || data_.size() >= kEncryptionHeaderBytes;
}

Extraction::Next Extraction::Decrypt(const Item& item) {
  if (password_.empty()) {
    password_ = platform().dialogs().AskText("Give Password", "Password requered", "").value_or("");
  }
  if (password_.empty()) return RefusePassword();
  cipher_->ZipPrepareKey(data_, password_);
  // The header's last byte is the checksum's highest, for members with a data descriptor too.
  if (data_[kEncryptionHeaderBytes - 1] != item.crc32 >> 24) return RefusePassword();
  data_.erase(data_.begin(), data_.begin() + kEncryptionHeaderBytes);
  cipher_->ZipDecryptArray(data_);
  return Next::kMember;
}

Extraction::Next Extraction::RefusePassword() {
  status_ = kNoPassword;
  file_.reset();
  MsgBox("Password is incorrect");
  return Next::kEnd;
}

void Extraction::Expand(const Item& item) {
  switch (item.method) {
    case 0: return Write(item);
    case 1:
    case 6:
    case 7:
    case 10: status_ = kUnsupported; return;
    case 2:
    case 3:
    case 4:
    case 5:
      // What comes out stays in memory: a reduced member gives no file.
      status_ = static_cast<int16_t>(Reduce(data_, item.method, LastByte(item), reduced_));
      return;
    case 8:
    case 9: Inflate(data_, LastByte(item), item.method == 9); return Write(item);
    default: return;
  }
}

void Extraction::Write(const Item& item) {
  if (data_.empty() && item.crc32 != 0) MsgBox("CRC error");
  if (!data_.empty() && checksum_.CalcCRC32File(data_) != item.crc32) MsgBox("CRC calculation failed");
  if (item.uncompressed_size != data_.size()) MsgBox("Error in decompressed size");
  WriteMember(destination_, DecodeText(directory_->Name(item)), data_, item.date, item.time);
}

}  // namespace kestrun::zip
