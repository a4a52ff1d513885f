#include "forms/image.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&Image::Picture>("Picture"),
    PropertyRow<&Image::Stretch>("Stretch"),
    PropertyRow<&Image::BorderStyle>("BorderStyle"),
    PropertyRow<&Image::Appearance>("Appearance"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& Image::Members() const { return kTable; }

void Image::PropertyChanged(PropertyId id) {
  const bool may_resize = id == PropertyId::kPicture || id == PropertyId::kStretch || id == PropertyId::kBorderStyle;
  const kestrun::Picture* picture = Picture.get().get();
  if (!may_resize || Stretch || !picture) return;
  const int edges = BorderStyle == 0 ? 0 : kSunkenEdgesTwips;
  Width = picture->width_twips() + edges;
  Height = picture->height_twips() + edges;
}

}  // namespace kestrun
