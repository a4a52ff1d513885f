#include "formats/zip/cls_zip.h"

#include "base/code_page.h"
#include "formats/zip/extraction.h"
#include "formats/zip/mod_zip.h"
#include "formats/zip/zip_texts.h"
#include "platform/platform.h"

namespace kestrun {

using zip::Directory;
using zip::Item;
using zip::OpenArchive;
using zip::TheOpenArchive;

int16_t Cls_Zip::Get_Contents(const std::string& path) {
  TheOpenArchive() = OpenArchive{path, 0, {}, false};
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
  const auto directory = std::make_shared<const Directory>(zip::ReadDirectory(*file, path));
  directory_ = directory;
  TheOpenArchive() = OpenArchive{path, static_cast<int32_t>(directory->items.size()), directory->comment, true};
  return 0;
}

int16_t Cls_Zip::UnPack(const Selection& selection, const std::string& destination) {
  const OpenArchive& archive = TheOpenArchive();
  const auto count = static_cast<size_t>(archive.count);
  if (count == 0 || selection.size() != count + 1) return zip::kUnsupported;
  // Another object has read the archive since this one read its own.
  if (!directory_ || directory_->items.size() < count) Raise(error::kSubscriptOutOfRange);
  return zip::Extraction(archive.path, directory_, destination).Run(selection);
}

// ---- members -----------------------------------------------------------------------------------------------------

const Item* Cls_Zip::Find(int32_t member) const {
  const OpenArchive& archive = TheOpenArchive();
  if (!archive.loaded || !directory_ || member < 1 || member > archive.count) return nullptr;
  const auto at = static_cast<size_t>(member) - 1;
  return at < directory_->items.size() ? &directory_->items[at] : nullptr;
}

int32_t Cls_Zip::FileCount() const { return TheOpenArchive().count; }

std::string Cls_Zip::FileName(int32_t member) const {
  const Item* item = Find(member);
  return item ? DecodeText(directory_->Name(*item)) : std::string();
}

std::string Cls_Zip::CommentsFile(int32_t member) const {
  const Item* item = Find(member);
  return item ? DecodeText(directory_->Comment(*item)) : std::string();
}

std::string Cls_Zip::CommentsPack() const { return DecodeText(TheOpenArchive().comment); }

bool Cls_Zip::IsDir(int32_t member) const {
  const Item* item = Find(member);
  return item && directory_->IsFolder(*item);
}

std::string Cls_Zip::Method(int32_t member) const {
  const Item* item = Find(member);
  return item ? std::string(zip::MethodText(item->method)) : std::string();
}

uint32_t Cls_Zip::CRC32(int32_t member) const {
  const Item* item = Find(member);
  return item ? item->crc32 : 0;
}

uint32_t Cls_Zip::Compressed_Size(int32_t member) const {
  const Item* item = Find(member);
  return item ? item->compressed_size : 0;
}

uint32_t Cls_Zip::UnCompressed_Size(int32_t member) const {
  const Item* item = Find(member);
  return item ? item->uncompressed_size : 0;
}

bool Cls_Zip::Encrypted(int32_t member) const {
  const Item* item = Find(member);
  return item && item->IsEncrypted();
}

double Cls_Zip::FileDateTime(int32_t member) const {
  const Item* item = Find(member);
  return item ? zip::DosDateTime(item->date, item->time) : 0;
}

std::string Cls_Zip::SystemMadeBy(int32_t member) const {
  const Item* item = Find(member);
  return item ? std::string(zip::SystemText(item->version_made_by)) : std::string();
}

std::string Cls_Zip::SystemNeeded(int32_t member) const {
  const Item* item = Find(member);
  return item ? std::string(zip::SystemText(item->version_needed)) : std::string();
}

std::string Cls_Zip::VersionMadeBy(int32_t member) const {
  const Item* item = Find(member);
  return item ? zip::VersionText(item->version_made_by) : std::string();
}

std::string Cls_Zip::VersionNeeded(int32_t member) const {
  const Item* item = Find(member);
  return item ? zip::VersionText(item->version_needed) : std::string();
}

}  // namespace kestrun
