#include "program/downloaded_file.h"

#include "base/runtime_error.h"
#include "base/sha256.h"
#include "base/text.h"
#include "formats/pe/program_file.h"
#include "platform/platform.h"
#include "platform/unused_name.h"

namespace kestrun {
namespace {

std::string HashOf(const std::string& path) {
  constexpr size_t kPieceBytes = size_t{1} << 16;
  const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
  Sha256 hash;
  Bytes piece(kPieceBytes);
  for (uint64_t at = 0;;) {
    const size_t got = file->ReadAt(at, piece);
    if (got == 0) return HexOf(hash.Finish());
    hash.Add(ByteView(piece).first(got));
    at += got;
  }
}

}  // namespace

bool HasHash(const std::string& path, const std::string& hash) {
  if (hash.empty()) return true;
  bool matches = false;
  Attempt([&] { matches = EqualsNoCase(HashOf(path), hash); });
  return matches;
}

bool IsProgramOfSize(const std::string& path, int64_t bytes) {
  bool is_whole = false;
  Attempt([&] {
    const std::unique_ptr<File> file = platform().files().Open(path, OpenMode::kRead);
    is_whole = file->Size() == static_cast<uint64_t>(bytes) && IsWholeWindowsProgram(*file);
  });
  return is_whole;
}

std::string PutAside(const std::string& path) {
  const std::string name = UnusedName(path, ".refused");
  return Attempt([&] { platform().files().Rename(path, name); }) ? name : path;
}

}  // namespace kestrun
