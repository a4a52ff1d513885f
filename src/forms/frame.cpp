#include "forms/frame.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{PropertyRow<&Frame::Caption>("Caption"), PropertyRow<&Frame::BorderStyle>("BorderStyle"),
                         PropertyRow<&Frame::Appearance>("Appearance")};
const MemberTable kTable{&Control::kWindowedMembers, kRows};

}  // namespace

const MemberTable& Frame::Members() const { return kTable; }

}  // namespace kestrun
