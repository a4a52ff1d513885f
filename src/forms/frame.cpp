#include "forms/frame.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{PropertyRow<&Frame::Caption>("Caption"), PropertyRow<&Frame::BorderStyle>("BorderStyle")};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& Frame::Members() const { return kTable; }

}  // namespace kestrun
