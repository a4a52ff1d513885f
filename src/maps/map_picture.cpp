#include "maps/map_picture.h"

#include <array>
#include <utility>

#include "base/bytes.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/picture_loading.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/run_command.h"
#include "web/download_file.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

std::string BareName(const std::string& map) {
  return GetFileName(ReplaceAll(ReplaceAll(map, "/", "\\"), "%20", " "), true);
}

// The address itself when it cannot be fetched: no file of that name exists.
std::string Fetched(const std::string& address) {
  const std::string local = SpecialFolder(folder::kTemporary) + "preview.jpg";
  return DownloadFile(address, local) ? local : address;
}

}  // namespace

// A map keeps its picture whether it is zipped or not.
std::string PictureKey(const std::string& map) {
  return FindNoCase(GetExtension(map), "zip") == std::string::npos ? map : ReplaceAll(map, ".zip", ".bms");
}

std::string StoredPicture(const ProfileSnapshot& settings, const std::string& map) {
  const std::string key = PictureKey(map);
  std::string stored = ReadSetting(settings, setting::kPreviewPicture, key);
  return stored.empty() ? ReadSetting(settings, setting::kPreviewPicture, BareName(key)) : stored;
}

std::string PictureNameKey(const std::string& map) { return BareName(PictureKey(map)); }

std::string GetMapPath(std::string Map, std::string* Url) {
  std::string path;
  const auto find = [&] {
    std::string value = StoredPicture(ReadSettingsSnapshot(), Map);
    if (Url) *Url = value;
    if (IsUrl(value)) value = Fetched(value);
    if (!value.empty() && FileExists(value)) path = value;
  };
  RunCommand(find, "GetMapPath()");
  return path;
}

int32_t ImageKind(const std::string& Path) {
  if (!FileExists(Path)) return image_kind::kMissing;
  std::array<uint8_t, 3> first{};
  if (platform().files().Open(Path, OpenMode::kRead)->ReadAt(0, first) < first.size()) return image_kind::kOther;
  const std::string_view text = AsChars(first);
  if (text == "\xFF\xD8\xFF") return image_kind::kJpeg;
  if (text == "\x89PN") return image_kind::kPng;
  if (text == "GIF") return image_kind::kGif;
  return text.starts_with("BM") ? image_kind::kBitmap : image_kind::kOther;
}

Ref<Picture> LoadMapPicture(const std::string& Map) {
  Ref<Picture> picture;
  Attempt([&] {
    const std::string path = GetMapPath(Map);
    if (!path.empty()) picture = LoadPictureFile(path);
  });
  return picture;
}

}  // namespace kestrun
