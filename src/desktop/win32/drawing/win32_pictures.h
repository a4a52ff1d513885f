// Pictures through the imaging component of Windows (WIC), and through OLE's picture loader for metafiles and for what
// WIC does not read.
#pragma once

#include "platform/pictures.h"

namespace kestrun {

class Win32Pictures final : public Pictures {
 public:
  [[nodiscard]] std::optional<DecodedPicture> Decode(ByteView file) override;
  [[nodiscard]] std::optional<DecodedPicture> FromObject(Object& object) override;
  [[nodiscard]] std::optional<DecodedPicture> FileIcon(std::string_view path, uint32_t flags) override;
};

}  // namespace kestrun
