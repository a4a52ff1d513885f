#include "controls/image_list/image_list.h"

#include <algorithm>

namespace kestrun {
namespace {

// More pictures than any window holds: a stored count above this is damage.
constexpr int kMostPictures = 65535;
constexpr int kStepForward = -1;
constexpr int kStepBack = 0;

McImageList& Self(Object& object) { return static_cast<McImageList&>(object); }
Ref<Picture> PictureFrom(const Variant& value) { return VariantTraits<Ref<Picture>>::From(value); }

// Three members are commands in the dress of a property, so that a designer can give them: their reading tells nothing.
constexpr Member kRows[]{
    {"ListImages", MemberKind::kReadWrite, 1, 1,
     [](Object& object, Arguments arguments) -> Variant { return Self(object).ListImages(ToLong(arguments[0])); },
     [](Object& object, Arguments arguments, const Variant& value) {
       Self(object).SetListImages(ToLong(arguments[0]), PictureFrom(value));
     },
     "Picture", "Index"},
    {"ImageCount", MemberKind::kReadWrite, 0, 0,
     [](Object& object, Arguments) -> Variant { return Self(object).ImageCount(); },
     [](Object&, Arguments, const Variant&) {}},
    AccessorRow<&McImageList::Image, &McImageList::SetImage>("Image"),
    AccessorRow<&McImageList::CurrentImage, &McImageList::SetCurrentImage>("CurrentImage"),
    {"AddNewImage", MemberKind::kReadWrite, 0, 0, [](Object&, Arguments) { return Variant::Nothing(); },
     [](Object& object, Arguments, const Variant& value) { Self(object).AddNewImage(PictureFrom(value)); }},
    {"RemoveImage", MemberKind::kReadWrite, 0, 0, [](Object&, Arguments) -> Variant { return 0; },
     [](Object& object, Arguments, const Variant& value) { Self(object).RemoveImage(ToLong(value)); }},
    {"MoveImageTo", MemberKind::kReadWrite, 0, 0, [](Object&, Arguments) -> Variant { return -1; },
     [](Object& object, Arguments, const Variant& value) { Self(object).MoveImageTo(ToLong(value)); }},
    MethodRow<&McImageList::CyclePic>("CyclePic", "Direction"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

std::string PictureName(int position) { return "Images" + std::to_string(position); }

// The largest rectangle of the picture's proportions in the middle of the space.
PixelRect FitInto(const PixelRect& space, const Picture& picture) {
  const int64_t width = std::max(picture.width_pixels(), 1);
  const int64_t height = std::max(picture.height_pixels(), 1);
  const bool by_width = width * space.height() >= height * space.width();
  const auto fitted_width = static_cast<int>(by_width ? space.width() : width * space.height() / height);
  const auto fitted_height = static_cast<int>(by_width ? height * space.width() / width : space.height());
  const int left = space.left + (space.width() - fitted_width) / 2;
  const int top = space.top + (space.height() - fitted_height) / 2;
  return {left, top, left + fitted_width, top + fitted_height};
}

}  // namespace

const MemberTable& McImageList::Members() const { return kTable; }

size_t McImageList::Place(int position) const {
  if (position < 0 || position >= ImageCount()) Raise(error::kSubscriptOutOfRange);
  return static_cast<size_t>(position);
}

Ref<Picture> McImageList::ListImages(int position) const { return pictures_[Place(position)]; }

void McImageList::SetListImages(int position, Ref<Picture> picture) {
  pictures_[Place(position)] = std::move(picture);
  StoreChange("ListImages");
}

void McImageList::SetCurrentImage(int position) {
  current_ = std::clamp(position, 0, std::max(ImageCount() - 1, 0));
  StoreChange("CurrentImage");
}

void McImageList::AddNewImage(Ref<Picture> picture) {
  pictures_.push_back(std::move(picture));
  StoreChange("AddNewImage");
}

void McImageList::RemoveImage(int really) {
  if (really == 0 || pictures_.empty()) return;
  pictures_.erase(pictures_.begin() + current_);
  current_ = std::clamp(current_, 0, std::max(ImageCount() - 1, 0));
  StoreChange("RemoveImage");
}

void McImageList::MoveImageTo(int position) {
  const size_t target = Place(std::min(position, ImageCount() - 1));
  std::swap(pictures_[Place(current_)], pictures_[target]);
  StoreChange("MoveImageTo");
}

Ref<Picture> McImageList::CyclePic(int direction) {
  const int count = ImageCount();
  if (count == 0) Raise(error::kSubscriptOutOfRange);
  if (direction == kStepForward) SetCurrentImage(current_ == count - 1 ? 0 : current_ + 1);
  if (direction == kStepBack) SetCurrentImage(current_ == 0 ? count - 1 : current_ - 1);
  return Image();
}

// A designer's window is to be stored again, and the preview painted.
void McImageList::StoreChange(std::string_view name) {
  MarkChanged(name);
  Refresh();
}

void McImageList::PaintPreview(Canvas& canvas) const {
  const PixelSize size = canvas.Size();
  const PixelRect surface{0, 0, size.width, size.height};
  canvas.Fill(surface, BackColor);
  canvas.Frame(surface, color::kButtonShadow);
  if (pictures_.empty()) return;
  const std::string number = std::to_string(current_);
  const int line_height = canvas.MeasureText(number, Font).height;
  const PixelRect inside{1, 1, size.width - 1, size.height - 1};
  const PixelRect space{inside.left, inside.top, inside.right, inside.bottom - line_height};
  const Ref<Picture> picture = Image();
  if (picture && !space.IsEmpty()) canvas.DrawPicture(*picture, FitInto(space, *picture));
  canvas.Text(number, {inside.left, inside.bottom - line_height, inside.right, inside.bottom}, Font, ForeColor,
              TextPlacement::kCenter);
}

void McImageList::WriteProperties(PropertyBag& bag) const {
  bag.WriteProperty("ImageCount", ImageCount(), 0);
  for (int position = 0; position < ImageCount(); ++position) {
    bag.WriteProperty(PictureName(position), ListImages(position), Variant::Nothing());
  }
  bag.WriteProperty("CurrentImage", CurrentImage(), 0);
}

void McImageList::ReadProperties(const PropertyBag& bag) {
  const int count = ToLong(bag.ReadProperty("ImageCount", 0));
  if (count < 0 || count > kMostPictures) Raise(error::kInvalidFileFormat);
  std::vector<Ref<Picture>> pictures;
  pictures.reserve(static_cast<size_t>(count));
  for (int position = 0; position < count; ++position) {
    pictures.push_back(PictureFrom(bag.ReadProperty(PictureName(position), Variant::Nothing())));
  }
  const int current = ToLong(bag.ReadProperty("CurrentImage", 0));
  const Reading reading(*this);
  pictures_ = std::move(pictures);
  SetCurrentImage(current);
}

}  // namespace kestrun
