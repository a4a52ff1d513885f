#include "forms/picture.h"

#include "base/runtime_error.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// Himetric units, hundredths of a millimetre at 96 pixels to the inch, as picture objects report their size.
int ToHimetric(int pixels) { return (pixels * 2540 + 48) / 96; }

constexpr Member kRows[]{
    {"Width", MemberKind::kReadOnly, 0, 0,
     [](Object& object, Arguments) -> Variant { return ToHimetric(static_cast<Picture&>(object).width_pixels()); }},
    {"Height", MemberKind::kReadOnly, 0, 0,
     [](Object& object, Arguments) -> Variant { return ToHimetric(static_cast<Picture&>(object).height_pixels()); }},
};
constexpr MemberTable kTable{nullptr, kRows};

}  // namespace

Picture::Picture(int width_pixels, int height_pixels, std::vector<uint32_t> pixels)
    : width_pixels_(width_pixels), height_pixels_(height_pixels), pixels_(std::move(pixels)) {
  const auto expected = static_cast<size_t>(width_pixels_) * static_cast<size_t>(height_pixels_);
  if (width_pixels_ <= 0 || height_pixels_ <= 0 || pixels_.size() != expected) Raise(error::kInvalidProcedureCall);
}

const MemberTable& Picture::Members() const { return kTable; }

Ref<Picture> PictureOf(Object& object) {
  if (auto* own = dynamic_cast<Picture*>(&object)) return Ref<Picture>(own);
  std::optional<DecodedPicture> foreign = platform().pictures().FromObject(object);
  if (!foreign) Raise(error::kTypeMismatch);
  if (foreign->pixels.empty()) return {};
  return MakeRef<Picture>(foreign->width, foreign->height, std::move(foreign->pixels));
}

}  // namespace kestrun
