#include "forms/picture_box.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&PictureBox::Picture>("Picture"),
    PropertyRow<&PictureBox::AutoSize>("AutoSize"),
    PropertyRow<&PictureBox::BorderStyle>("BorderStyle"),
    PropertyRow<&PictureBox::Appearance>("Appearance"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& PictureBox::Members() const { return kTable; }

}  // namespace kestrun
