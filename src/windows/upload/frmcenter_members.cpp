// The uploader's operations as scripts and add-ins find them, in the order of the window's slots.
#include "forms/member_rows.h"
#include "windows/upload/frmcenter.h"

namespace kestrun {
namespace {

FrmCenter& Self(Object& object) { return static_cast<FrmCenter&>(object); }

// What is given back by reference stays as it was where the operation fails.
void PutInfo(Arguments arguments, size_t first, const UploadInfo& info) {
  arguments[first] = info.mission_name;
  arguments[first + 1] = info.designer;
  arguments[first + 2] = info.game_type;
}

Variant CallGetInfo(Object& object, Arguments arguments) {
  UploadInfo info;
  const bool is_there = Self(object).GetInfo(ToText(arguments[0]), ToText(arguments[1]), info);
  if (is_there) PutInfo(arguments, 2, info);
  return is_there;
}

Variant CallGetBmsInfo(Object& object, Arguments arguments) {
  UploadInfo info;
  const bool is_there = Self(object).GetBMSInfo(ToText(arguments[0]), info);
  if (is_there) PutInfo(arguments, 1, info);
  return is_there;
}

Variant CallLoadCommentsFile(Object& object, Arguments arguments) {
  MapComments words;
  const bool is_read = Self(object).LoadCommentsFile(ToText(arguments[0]), words);
  if (!is_read) return false;
  arguments[1] = words.comments;
  arguments[2] = words.addons;
  return true;
}

constexpr Member kRows[]{
    MethodRow<&FrmCenter::UploadAll>("UploadAll"),
    MethodRow<&FrmCenter::UploadFile>("UploadFile", "Path, TempFolder"),
    MethodRow<&FrmCenter::GetValidMapName>("GetValidMapName", "FileName, MissionName"),
    MethodRow<&FrmCenter::LoadFile>("LoadFile", "Path"),
    MethodRow<&FrmCenter::CheckFiles>("CheckFiles"),
    {"GetInfo", MemberKind::kMethod, 5, 5, &CallGetInfo, nullptr, "Boolean",
     "Zip, TempFolder, MissionName, Designer, GameType"},
    {"GetBMSInfo", MemberKind::kMethod, 4, 4, &CallGetBmsInfo, nullptr, "Boolean",
     "Path, MissionName, Designer, GameType"},
    {"LoadCommentsFile", MemberKind::kMethod, 3, 3, &CallLoadCommentsFile, nullptr, "Boolean",
     "Path, Comments, Addons"},
    MethodRow<&FrmCenter::AddMessage>("AddMessage", "Text"),
    MethodRow<&FrmCenter::LoadMenuIcons>("LoadMenuIcons"),
    MethodRow<&FrmCenter::Connect>("Connect"),
    MethodRow<&FrmCenter::ApplyStyle>("ApplyStyle"),
};
const MemberTable kTable{&Form::kFormMembers, kRows};

}  // namespace

const MemberTable& FrmCenter::Members() const { return kTable; }

}  // namespace kestrun
