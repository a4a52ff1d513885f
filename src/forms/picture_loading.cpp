#include "forms/picture_loading.h"

#include <utility>

#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// Larger files are no picture that a window shows, and are not read into memory.
constexpr uint64_t kMostPictureFileBytes = 256 * 1024 * 1024;

}  // namespace

Ref<Picture> PictureFromBits(ByteView file) {
  auto decoded = platform().pictures().Decode(file);
  if (!decoded) return nullptr;
  return MakeRef<Picture>(decoded->width, decoded->height, std::move(decoded->pixels));
}

Ref<Picture> LoadPictureFile(const std::string& Path) {
  const std::unique_ptr<File> file = platform().files().Open(Path, OpenMode::kRead);
  const uint64_t size = file->Size();
  if (size > kMostPictureFileBytes) Raise(error::kInvalidPicture);
  Bytes content(static_cast<size_t>(size));
  content.resize(file->ReadAt(0, content));
  Ref<Picture> picture = PictureFromBits(content);
  if (!picture) Raise(error::kInvalidPicture);
  return picture;
}

Ref<Picture> LoadPictureOrNull(const std::string& path) {
  Ref<Picture> picture;
  Attempt([&] { picture = LoadPictureFile(path); });
  return picture;
}

}  // namespace kestrun
