// Pictures without a desktop: uncompressed bitmaps are decoded, what else a file is comes from laid-down answers.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/pictures.h"

namespace kestrun {

class HeadlessPictures final : public Pictures {
 public:
  // Bitmaps (BMP) of 8, 24 and 32 bits without compression. Any other kind: only what was laid down.
  [[nodiscard]] std::optional<DecodedPicture> Decode(ByteView file) override;
  // Nobody else has picture objects here.
  [[nodiscard]] std::optional<DecodedPicture> FromObject(Object&) override { return std::nullopt; }
  // One fixed sheet of paper, 32 by 32 pixels, or 16 by 16 when the small one is asked for.
  [[nodiscard]] std::optional<DecodedPicture> FileIcon(std::string_view path, uint32_t flags) override;

  // What a file of exactly this content decodes to.
  void Answer(std::string content, DecodedPicture picture) { answers_[std::move(content)] = std::move(picture); }

  struct IconRequest {
    std::string path;
    uint32_t flags = 0;
    friend bool operator==(const IconRequest&, const IconRequest&) = default;
  };
  // All that were made, in order.
  std::vector<IconRequest> icon_requests;
  bool has_icons = true;

 private:
  std::map<std::string, DecodedPicture, std::less<>> answers_;
};

}  // namespace kestrun
