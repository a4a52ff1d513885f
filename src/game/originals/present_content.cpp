#include "game/originals/present_content.h"

#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun::originals {

std::optional<Content> ReadEntry(ClsPFF& archive, const std::string& name) {
  int32_t number = -1;
  if (!archive.PFFFileExists(name, number) || archive.FileDeleted(number)) return std::nullopt;
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
  return ReadEntry(archive, place.entry);
}

}  // namespace kestrun::originals
