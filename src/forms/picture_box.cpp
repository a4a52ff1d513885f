#include "forms/picture_box.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&PictureBox::AutoSize>("AutoSize"),
    PropertyRow<&PictureBox::BorderStyle>("BorderStyle"),
    PropertyRow<&PictureBox::Appearance>("Appearance"),
};
const MemberTable kTable{&DrawableControl::kDrawableMembers, kRows};

}  // namespace

const MemberTable& PictureBox::Members() const { return kTable; }

int PictureBox::EdgesTwips() const {
  if (BorderStyle == 0) return 0;
  return Appearance == 0 ? kSunkenEdgesTwips / 2 : kSunkenEdgesTwips;
}

void PictureBox::PropertyChanged(PropertyId id) {
  DrawableControl::PropertyChanged(id);
  const bool may_resize = id == PropertyId::kPicture || id == PropertyId::kAutoSize || id == PropertyId::kBorderStyle ||
                          id == PropertyId::kAppearance;
  const kestrun::Picture* picture = Picture.get().get();
  if (!may_resize || !AutoSize || !picture) return;
  Width = picture->width_twips() + EdgesTwips();
  Height = picture->height_twips() + EdgesTwips();
}

}  // namespace kestrun
