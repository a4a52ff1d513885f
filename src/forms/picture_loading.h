// Pictures from the bytes of their files.
#pragma once

#include <string>

#include "base/bytes.h"
#include "forms/picture.h"

namespace kestrun {

// A picture from the bytes of its file, of any kind that the platform decodes; null when they are no picture.
[[nodiscard]] Ref<Picture> PictureFromBits(ByteView file);

// The decoded picture of a file: JPEG, GIF, BMP, ICO, CUR, WMF, EMF or PNG. Error 53 when it is missing, 481 when it is
// no picture.
[[nodiscard]] Ref<Picture> LoadPictureFile(const std::string& Path);
// The same; null in place of an error.
[[nodiscard]] Ref<Picture> LoadPictureOrNull(const std::string& path);

}  // namespace kestrun
