#include "forms/image.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&Image::Picture>("Picture"),
    PropertyRow<&Image::Stretch>("Stretch"),
    PropertyRow<&Image::BorderStyle>("BorderStyle"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& Image::Members() const { return kTable; }

}  // namespace kestrun
