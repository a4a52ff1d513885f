#include "formats/zip/zip_walk.h"

#include <array>
#include <optional>

#include "base/runtime_error.h"
#include "formats/zip/sequential_reader.h"
#include "platform/platform.h"

namespace kestrun::zip {
namespace {

struct DirectoryPlace {
  uint64_t offset = 0;
  uint32_t count = 0;
};

// The end record is looked for at the very end only: an archive with a comment has none there.
std::optional<DirectoryPlace> FindEndRecord(File& file, const std::string& path) {
  std::array<uint8_t, kEndBytes> record{};
  const uint64_t file_bytes = file.Size();
  if (file_bytes < record.size() || file.ReadAt(file_bytes - record.size(), record) != record.size()) {
    Raise(error::kInputPastEnd, "The file '" + path + "' is too short for a zip archive.");
  }
  if (LoadU32(record, 0) != kEndSignature) return std::nullopt;
  const EndRecord end = ParseEndRecord(record);
  return DirectoryPlace{end.directory_offset, end.entries};
}

// The bytes behind a signature; those that the file no longer has are zero.
template <size_t kRecordBytes>
std::array<uint8_t, kRecordBytes> ReadRecord(SequentialReader& reader) {
  std::array<uint8_t, kRecordBytes> record{};
  const ByteView bytes = reader.Read(kRecordBytes - kSignatureBytes);
  std::copy(bytes.begin(), bytes.end(), record.begin() + kSignatureBytes);
  return record;
}

void SkipLocalMember(SequentialReader& reader) {
  const LocalHeader local = ParseLocalHeader(ReadRecord<kLocalBytes>(reader));
  reader.Skip(uint64_t{local.compressed_size} + local.name_bytes + local.extra_bytes);
}

DirectoryPlace WalkToDirectory(File& file) {
  SequentialReader reader(file);
  DirectoryPlace place;
  for (;;) {
    const ByteView bytes = reader.Read(kSignatureBytes);
    const uint32_t signature = bytes.size() == kSignatureBytes ? LoadU32(bytes, 0) : 0;
    if (signature == kCentralSignature) break;
    if (signature == kLocalSignature) {
      SkipLocalMember(reader);
      ++place.count;
    } else if (signature == kDescriptorSignature) {
      reader.Skip(kDescriptorBytes - kSignatureBytes);
    } else {
      MsgBox("Unknown header");
    }
  }
  place.offset = reader.position() - kSignatureBytes;
  return place;
}

ByteView ReadExactly(SequentialReader& reader, size_t bytes, const std::string& path) {
  const ByteView read = reader.Read(bytes);
  if (read.size() != bytes) {
    Raise(error::kInputPastEnd, "The archive '" + path + "' ends inside its directory.");
  }
  return read;
}

void ReadItem(SequentialReader& reader, Directory& directory, const std::string& path) {
  Item item = ParseCentralHeader(ReadExactly(reader, kCentralBytes, path));
  item.text_at = directory.texts.size();
  const size_t text_bytes = size_t{item.name_bytes} + item.extra_bytes + item.comment_bytes;
  directory.texts += AsChars(ReadExactly(reader, text_bytes, path));
  directory.items.push_back(item);
}

// What stands where the end record should be is taken for one; a comment ends with the file at the latest.
std::string ReadArchiveComment(SequentialReader& reader) {
  const ByteView record = reader.Read(kEndBytes);
  if (record.size() != kEndBytes) return {};
  return std::string(AsChars(reader.Read(ParseEndRecord(record).comment_bytes)));
}

}  // namespace

Directory ReadDirectory(File& file, const std::string& path) {
  const std::optional<DirectoryPlace> found = FindEndRecord(file, path);
  const DirectoryPlace place = found ? *found : WalkToDirectory(file);
  SequentialReader reader(file, place.offset);
  Directory directory;
  const uint64_t most = file.Size() / kCentralBytes;
  directory.items.reserve(static_cast<size_t>(std::min<uint64_t>(place.count, most)));
  for (uint32_t at = 0; at < place.count; ++at) ReadItem(reader, directory, path);
  directory.comment = ReadArchiveComment(reader);
  return directory;
}

}  // namespace kestrun::zip
