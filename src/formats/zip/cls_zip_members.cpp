// Cls_Zip as scripts see it: its operations by name, in the order of the class's slots.
#include "base/member_rows.h"
#include "formats/zip/cls_zip.h"

namespace kestrun {
namespace {

Cls_Zip& Self(Object& object) { return static_cast<Cls_Zip&>(object); }

// An array whose element n is the flag of member n; what stands below 1 is not looked at.
Variant CallUnPack(Object& object, Arguments arguments) {
  if (!arguments[0].Is(VarType::kArray)) Raise(error::kTypeMismatch);
  const ArrayBody& flags = arguments[0].array();
  if (flags.sizes.size() > 1) Raise(error::kSubscriptOutOfRange);
  Cls_Zip::Selection selection(flags.elements.size());
  for (size_t at = 1; at < selection.size(); ++at) selection[at] = ToBoolean(flags.elements[at]);
  return Self(object).UnPack(selection, ToText(arguments[1]));
}

Variant GetFileDateTime(Object& object, Arguments arguments) {
  return Variant::Date(Self(object).FileDateTime(ToLong(arguments[0])));
}

constexpr Member kRows[]{
    MethodRow<&Cls_Zip::Get_Contents>("Get_Contents"),
    RawMethodRow("UnPack", 2, 2, &CallUnPack),
    MethodRow<&Cls_Zip::Pack>("Pack"),
    ReadOnlyRow<&Cls_Zip::CanUnpack>("CanUnpack"),
    ReadOnlyRow<&Cls_Zip::FileCount>("FileCount"),
    ReadOnlyRow<&Cls_Zip::FileName>("FileName"),
    ReadOnlyRow<&Cls_Zip::CommentsFile>("CommentsFile"),
    ReadOnlyRow<&Cls_Zip::CommentsPack>("CommentsPack"),
    ReadOnlyRow<&Cls_Zip::IsDir>("IsDir"),
    ReadOnlyRow<&Cls_Zip::Method>("Method"),
    ReadOnlyRow<&Cls_Zip::CRC32>("CRC32"),
    ReadOnlyRow<&Cls_Zip::Compressed_Size>("Compressed_Size"),
    ReadOnlyRow<&Cls_Zip::UnCompressed_Size>("UnCompressed_Size"),
    ReadOnlyRow<&Cls_Zip::Encrypted>("Encrypted"),
    {"FileDateTime", MemberKind::kReadOnly, 1, 1, &GetFileDateTime, nullptr},
    ReadOnlyRow<&Cls_Zip::SystemMadeBy>("SystemMadeBy"),
    ReadOnlyRow<&Cls_Zip::SystemNeeded>("SystemNeeded"),
    ReadOnlyRow<&Cls_Zip::VersionMadeBy>("VersionMadeBy"),
    ReadOnlyRow<&Cls_Zip::VersionNeeded>("VersionNeeded"),
};
constexpr MemberTable kTable{nullptr, kRows};

}  // namespace

const MemberTable& Cls_Zip::Members() const { return kTable; }

}  // namespace kestrun
