// The preview picture of a map: where it is, and what it shows.
#pragma once

#include <cstdint>
#include <string>

#include "formats/profile/profile_snapshot.h"
#include "forms/picture.h"

namespace kestrun {

// The local path of the picture that the settings hold for a map, under its whole path or its file name; empty when
// there is none. A picture on the web is downloaded to "preview.jpg" in the temporary folder. `Url`, if given, takes
// the stored value, web address or path. Failures are shown.
[[nodiscard]] std::string GetMapPath(std::string Map, std::string* Url = nullptr);

// Under which names the settings keep a map's picture: its whole path and its file name, a zip's as those of its
// mission.
[[nodiscard]] std::string PictureKey(const std::string& map);
[[nodiscard]] std::string PictureNameKey(const std::string& map);

// What these settings hold for a map, a path or an address; empty when there is nothing.
[[nodiscard]] std::string StoredPicture(const ProfileSnapshot& settings, const std::string& map);

// What a picture file is by its first bytes.
namespace image_kind {
inline constexpr int32_t kMissing = 0;
inline constexpr int32_t kJpeg = 1;
inline constexpr int32_t kGif = 2;
inline constexpr int32_t kBitmap = 4;
inline constexpr int32_t kPng = 8;
inline constexpr int32_t kOther = 255;
}  // namespace image_kind
[[nodiscard]] int32_t ImageKind(const std::string& Path);

// The picture of a map, null when it has none or it cannot be shown.
[[nodiscard]] Ref<Picture> LoadMapPicture(const std::string& Map);

}  // namespace kestrun
