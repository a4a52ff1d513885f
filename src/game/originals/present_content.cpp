#include "game/originals/present_content.h"

#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun::originals {

Content ReadEntry(ClsPFF& archive, int32_t number) {
  Content content{{}, archive.FilePackDate(number), archive.FileInfo(number)};
  // An entry without data is refused by ExtractFile.
  if (archive.FileLength(number) != 0) static_cast<void>(archive.ExtractFile(number, content.bytes, ""));
  return content;
}

std::optional<Content> ReadLooseFile(const std::string& path) {
  FileSystem& files = platform().files();
  if (!files.Exists(path) || files.IsFolder(path)) return std::nullopt;
  return Content{files.ReadAll(path), 0, 0};
}

void LoadArchive(ClsPFF& archive, const std::string& path) {
  RuntimeError failure(error::kFileNotFound);
  archive.PFFError = [&failure](int32_t number, const std::string& description) {
    failure = RuntimeError(number, description);
  };
  const bool loaded = archive.LoadPff(path);
  archive.PFFError = nullptr;
  if (!loaded) throw failure;
}

std::optional<Content> ReadPlace(const Place& place) {
  if (place.entry.empty()) return ReadLooseFile(place.Path());
  ClsPFF archive;
  LoadArchive(archive, place.Path());
  int32_t number = -1;
  if (!archive.PFFFileExists(place.entry, number)) return std::nullopt;
  return ReadEntry(archive, number);
}

}  // namespace kestrun::originals
