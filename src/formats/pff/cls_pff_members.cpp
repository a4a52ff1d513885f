// ClsPFF as scripts see it: its operations by name, in the order of the class's slots.
#include <string>

#include "base/byte_array.h"
#include "base/member_rows.h"
#include "formats/pff/cls_pff.h"

namespace kestrun {
namespace {

ClsPFF& Self(Object& object) { return static_cast<ClsPFF&>(object); }

// A property of one entry, by number or name.
template <auto kGet>
Variant GetEntry(Object& object, Arguments arguments) {
  return (Self(object).*kGet)(arguments[0]);
}

template <auto kPut, class Value>
void PutEntry(Object& object, Arguments arguments, const Variant& value) {
  (Self(object).*kPut)(arguments[0], VariantTraits<Value>::From(value));
}

template <auto kGet>
constexpr Member ReadOnlyEntryRow(std::string_view name) {
  return {name, MemberKind::kReadOnly, 1, 1, &GetEntry<kGet>, nullptr};
}

template <auto kGet, auto kPut, class Value>
constexpr Member EntryRow(std::string_view name) {
  return {name, MemberKind::kReadWrite, 1, 1, &GetEntry<kGet>, &PutEntry<kPut, Value>};
}

Variant CallGetPFFInfo(Object& object, Arguments arguments) {
  int32_t pack_date = 0;
  int32_t length = 0;
  int32_t offset = 0;
  std::string name;
  std::string info;
  bool deleted = false;
  const int32_t failure = Self(object).GetPFFInfo(ToLong(arguments[0]), pack_date, name, length, offset, info, deleted);
  if (failure != 0) return failure;
  arguments[1] = pack_date;
  arguments[2] = name;
  arguments[3] = length;
  arguments[4] = offset;
  arguments[5] = info;
  arguments[6] = deleted;
  return 0;
}

Variant CallWritePFFInfo(Object& object, Arguments arguments) {
  return Self(object).WritePFFInfo(ToLong(arguments[0]), ToLong(arguments[1]), ToText(arguments[2]),
                                   ToText(arguments[3]), ToBoolean(arguments[4]));
}

Variant CallExtractFile(Object& object, Arguments arguments) {
  Bytes buffer;
  const bool extracted = Self(object).ExtractFile(ToLong(arguments[0]), buffer, ToText(arguments[2]));
  arguments[1] = ToByteArray(buffer);
  return extracted;
}

Variant CallFileBuffer(Object& object, Arguments arguments) {
  Bytes buffer;
  Self(object).FileBuffer(ToText(arguments[0]), buffer);
  if (buffer.empty()) return {};
  arguments[1] = ToByteArray(buffer);
  return arguments[1];
}

Variant CallPackFile(Object& object, Arguments arguments) {
  return Self(object).PackFile(FromByteArray(arguments[0]), ToText(arguments[1]));
}

Variant CallFileExists(Object& object, Arguments arguments) {
  int32_t index = -1;
  const bool found = Self(object).PFFFileExists(ToText(arguments[0]), index);
  arguments[1] = index;
  return found;
}

constexpr Member kRows[]{
    ReadOnlyRow<&ClsPFF::IsNewPFF>("IsNewPFF"),
    AccessorRow<&ClsPFF::OpenFileName, &ClsPFF::SetOpenFileName>("OpenFileName"),
    ReadOnlyRow<&ClsPFF::Edited>("Edited"),
    ReadOnlyRow<&ClsPFF::PFFTotalFiles>("PFFTotalFiles"),
    ReadOnlyRow<&ClsPFF::PFFTableOffset>("PFFTableOffset"),
    ReadOnlyRow<&ClsPFF::PFFItemInfoSize>("PFFItemInfoSize"),
    ReadOnlyRow<&ClsPFF::PFFItemSize>("PFFItemSize"),
    AccessorRow<&ClsPFF::PFFVersion, &ClsPFF::SetPFFVersion>("PFFVersion"),
    EntryRow<&ClsPFF::FilePackDate, &ClsPFF::SetFilePackDate, int>("FilePackDate"),
    EntryRow<&ClsPFF::FileName, &ClsPFF::SetFileName, std::string>("FileName"),
    ReadOnlyEntryRow<&ClsPFF::FileLength>("FileLength"),
    ReadOnlyEntryRow<&ClsPFF::FileOffset>("FileOffset"),
    EntryRow<&ClsPFF::FileDeleted, &ClsPFF::SetFileDeleted, bool>("FileDeleted"),
    EntryRow<&ClsPFF::FileInfo, &ClsPFF::SetFileInfo, int>("FileInfo"),
    ReadOnlyEntryRow<&ClsPFF::FileCRC32>("FileCRC32"),
    RawMethodRow("GetPFFInfo", 7, 7, &CallGetPFFInfo),
    RawMethodRow("WritePFFInfo", 5, 5, &CallWritePFFInfo),
    RawMethodRow("ExtractFile", 3, 3, &CallExtractFile, "Number, Buffer, Destination"),
    MethodRow<&ClsPFF::NewPffFile>("NewPffFile"),
    MethodRow<&ClsPFF::LoadPff>("LoadPff"),
    MethodRow<&ClsPFF::SavePffFile>("SavePffFile"),
    RawMethodRow("FileBuffer", 2, 2, &CallFileBuffer, "Path, Buffer"),
    RawMethodRow("PackFile", 2, 2, &CallPackFile, "Buffer, Name"),
    RawMethodRow("GetFileExt", 1, 1,
                 [](Object&, Arguments arguments) -> Variant { return ClsPFF::GetFileExt(ToText(arguments[0])); }),
    MethodRow<&ClsPFF::FileWaiting>("FileWaiting"),
    RawMethodRow("PFFFileExists", 2, 2, &CallFileExists, "Name, Number"),
    RawMethodRow("ZTrim", 1, 1,
                 [](Object&, Arguments arguments) -> Variant { return ClsPFF::ZTrim(ToText(arguments[0])); }),
};
constexpr MemberTable kTable{nullptr, kRows};

}  // namespace

const MemberTable& ClsPFF::Members() const { return kTable; }

}  // namespace kestrun
