// Zip archives built in code, field by field, for what no tool makes: headers that lie, odd methods, names that lead
// elsewhere. The checksum and the cipher are written here a second time, so that they prove those of the program.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"

namespace kestrun {

// Bit by bit, without a table.
inline uint32_t ReferenceCrcStep(uint32_t crc, uint8_t byte) {
  crc ^= byte;
  for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320U & (0U - (crc & 1)));
  return crc;
}

inline uint32_t ReferenceCrc(std::string_view data) {
  uint32_t crc = 0xFFFFFFFF;
  for (const char one : data) crc = ReferenceCrcStep(crc, static_cast<uint8_t>(one));
  return ~crc;
}

// The traditional encryption of APPNOTE: the header of 12 bytes, the last of which is the check byte, and the data.
inline std::string EncryptMember(std::string_view data, std::string_view password, uint8_t check) {
  std::array<uint32_t, 3> keys{0x12345678, 0x23456789, 0x34567890};
  const auto update = [&keys](uint8_t plain) {
    keys[0] = ReferenceCrcStep(keys[0], plain);
    keys[1] = (keys[1] + (keys[0] & 0xFF)) * 134775813U + 1U;
    keys[2] = ReferenceCrcStep(keys[2], static_cast<uint8_t>(keys[1] >> 24));
  };
  for (const char one : password) update(static_cast<uint8_t>(one));
  std::string stored = "salt salt s";
  stored += static_cast<char>(check);
  stored += data;
  for (char& one : stored) {
    const auto plain = static_cast<uint8_t>(one);
    const auto mixed = static_cast<uint16_t>(keys[2] | 2);
    one = static_cast<char>(plain ^ static_cast<uint8_t>((uint32_t{mixed} * (mixed ^ 1U)) >> 8));
    update(plain);
  }
  return stored;
}

// One member. What is not set is told truly of `stored`.
struct ZipMember {
  std::string name;
  std::string stored;  // the bytes in the archive
  uint16_t method = 0;
  uint16_t flags = 0;
  uint16_t version_made_by = 20;
  uint16_t version_needed = 20;
  uint16_t time = 0;
  uint16_t date = 0;
  std::optional<uint32_t> crc{};
  std::optional<uint32_t> compressed_size{};
  std::optional<uint32_t> uncompressed_size{};
  std::optional<uint32_t> local_offset{};
  std::string extra{};
  std::string comment{};
  // What the local header has of its own.
  std::optional<std::string> local_name{};
  std::string local_extra{};
  uint32_t local_signature = 0x04034B50;
  bool has_descriptor = false;  // sixteen bytes behind the data
};

struct ZipEnd {
  std::string comment{};
  std::optional<uint16_t> entries{};
  std::optional<uint32_t> directory_offset{};
};

class ZipWriter {
 public:
  ZipWriter& U16(uint32_t value) {
    bytes_ += static_cast<char>(value & 255);
    bytes_ += static_cast<char>((value >> 8) & 255);
    return *this;
  }
  ZipWriter& U32(uint32_t value) { return U16(value & 0xFFFF).U16(value >> 16); }
  ZipWriter& Text(std::string_view text) {
    bytes_ += text;
    return *this;
  }
  [[nodiscard]] uint32_t size() const { return static_cast<uint32_t>(bytes_.size()); }
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

inline void WriteSizes(ZipWriter& to, const ZipMember& member) {
  to.U32(member.crc.value_or(ReferenceCrc(member.stored)));
  to.U32(member.compressed_size.value_or(static_cast<uint32_t>(member.stored.size())));
  to.U32(member.uncompressed_size.value_or(static_cast<uint32_t>(member.stored.size())));
}

inline void WriteLocalMember(ZipWriter& to, const ZipMember& member) {
  const std::string& name = member.local_name ? *member.local_name : member.name;
  to.U32(member.local_signature).U16(member.version_needed).U16(member.flags).U16(member.method);
  to.U16(member.time).U16(member.date);
  WriteSizes(to, member);
  to.U16(static_cast<uint32_t>(name.size())).U16(static_cast<uint32_t>(member.local_extra.size()));
  to.Text(name).Text(member.local_extra).Text(member.stored);
  if (!member.has_descriptor) return;
  to.U32(0x08074B50);
  WriteSizes(to, member);
}

inline void WriteCentralMember(ZipWriter& to, const ZipMember& member, uint32_t local_offset) {
  to.U32(0x02014B50).U16(member.version_made_by).U16(member.version_needed).U16(member.flags).U16(member.method);
  to.U16(member.time).U16(member.date);
  WriteSizes(to, member);
  to.U16(static_cast<uint32_t>(member.name.size())).U16(static_cast<uint32_t>(member.extra.size()));
  to.U16(static_cast<uint32_t>(member.comment.size()));
  to.U16(0).U16(0).U32(0);  // disk, internal and external attributes
  to.U32(member.local_offset.value_or(local_offset));
  to.Text(member.name).Text(member.extra).Text(member.comment);
}

inline std::string BuildZip(const std::vector<ZipMember>& members, const ZipEnd& end = {}) {
  ZipWriter archive;
  std::vector<uint32_t> offsets;
  for (const ZipMember& member : members) {
    offsets.push_back(archive.size());
    WriteLocalMember(archive, member);
  }
  const uint32_t directory = archive.size();
  for (size_t at = 0; at < members.size(); ++at) WriteCentralMember(archive, members[at], offsets[at]);
  const uint32_t directory_bytes = archive.size() - directory;
  const uint16_t entries = end.entries.value_or(static_cast<uint16_t>(members.size()));
  archive.U32(0x06054B50).U16(0).U16(0).U16(entries).U16(entries).U32(directory_bytes);
  archive.U32(end.directory_offset.value_or(directory)).U16(static_cast<uint32_t>(end.comment.size()));
  archive.Text(end.comment);
  return archive.bytes();
}

}  // namespace kestrun
