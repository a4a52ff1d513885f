#include "forms/shape_control.h"

#include "forms/member_rows.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&ShapeControl::Shape>("Shape"),
    PropertyRow<&ShapeControl::BorderColor>("BorderColor"),
    PropertyRow<&ShapeControl::BorderStyle>("BorderStyle"),
    PropertyRow<&ShapeControl::BorderWidth>("BorderWidth"),
    PropertyRow<&ShapeControl::BackStyle>("BackStyle"),
    PropertyRow<&ShapeControl::FillStyle>("FillStyle"),
    PropertyRow<&ShapeControl::FillColor>("FillColor"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& ShapeControl::Members() const { return kTable; }

}  // namespace kestrun
