#include "forms/image_list.h"

#include <algorithm>

#include "forms/keyed_items.h"
#include "forms/member_rows.h"

namespace kestrun {
namespace {

ImageList& Self(Object& object) { return static_cast<ImageList&>(object); }

constexpr Member kRows[]{
    ReadOnlyRow<&ImageList::ImageCount>("ImageCount"),
    MethodRow<&ImageList::AddImage>("AddImage", "Key, Picture"),
    {"Image", MemberKind::kReadOnly, 1, 1,
     [](Object& object, Arguments which) -> Variant {
       return VariantTraits<Ref<Picture>>::To(Self(object).Image(Self(object).NumberOf(which[0])));
     },
     nullptr, "Picture", "Index"},
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& ImageList::Members() const { return kTable; }

int ImageList::AddImage(std::string key, Ref<Picture> picture) {
  if (!key.empty() && NumberOf(key) != 0) RaiseKeyNotUnique();
  images_.push_back({std::move(key), std::move(picture)});
  return ImageCount();
}

int ImageList::NumberOf(const Variant& image) const {
  if (image.Is(VarType::kEmpty) || image.IsMissing()) return 0;
  if (!image.Is(VarType::kString)) {
    const int number = ToLong(image);
    return number >= 1 && number <= ImageCount() ? number : 0;
  }
  const std::string key = ToText(image);
  const auto found = std::find_if(images_.begin(), images_.end(),
                                  [&key](const Entry& entry) { return !key.empty() && entry.key == key; });
  return found == images_.end() ? 0 : static_cast<int>(found - images_.begin()) + 1;
}

Ref<Picture> ImageList::Image(int number) const {
  if (number < 1 || number > ImageCount()) RaiseIndexOutOfBounds();
  return images_[static_cast<size_t>(number - 1)].picture;
}

}  // namespace kestrun
