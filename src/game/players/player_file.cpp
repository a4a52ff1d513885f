#include "game/players/player_file.h"

#include <algorithm>
#include <cstdint>

#include "base/code_page.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr size_t kFirstName = 12;
constexpr size_t kRecordBytes = 2064;
constexpr size_t kZeroBytes = 2;  // behind a name

constexpr size_t OffsetOf(size_t player) { return kFirstName + player * kRecordBytes; }

// A name and its end.
std::string FieldOf(const std::string& name) {
  return EncodeText(name).substr(0, kPlayerNameLength) + std::string(kZeroBytes, '\0');
}

}  // namespace

PlayerNames ReadPlayerNames(ByteView file) {
  PlayerNames names;
  for (size_t player = 0; player < kPlayerCount; ++player) {
    const size_t begin = std::min(OffsetOf(player), file.size());
    const std::string_view record = AsChars(file.subspan(begin, std::min(kRecordBytes, file.size() - begin)));
    names[player] = DecodeText(record.substr(0, record.find('\0')));
  }
  return names;
}

Bytes WithPlayerNames(Bytes file, const PlayerNames& names) {
  for (size_t player = 0; player < kPlayerCount; ++player) {
    const std::string field = FieldOf(names[player]);
    file.resize(std::max(file.size(), OffsetOf(player) + field.size()));
    std::ranges::copy(AsBytes(field), file.begin() + static_cast<std::ptrdiff_t>(OffsetOf(player)));
  }
  return file;
}

PlayerNames ReadPlayerFile(const std::string& path) {
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
  Bytes bytes(OffsetOf(kPlayerCount));
  bytes.resize(file->ReadAt(0, bytes));
  return ReadPlayerNames(bytes);
}

void WritePlayerFile(const std::string& path, const PlayerNames& names) {
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kReadWrite);
  for (size_t player = 0; player < kPlayerCount; ++player) {
    file->WriteAt(OffsetOf(player), AsBytes(FieldOf(names[player])));
  }
  file->Close();
}

}  // namespace kestrun
