#include "base/object.h"

#include <algorithm>

#include "base/text.h"

namespace kestrun {
namespace {

MemberId Resolve(const Object& object, std::string_view name) {
  const MemberId member = object.FindMember(name);
  if (member == kNoMember) Raise(error::kMemberNotFound);
  return member;
}

void CheckArgumentCount(const Member& member, size_t count) {
  const auto given = static_cast<int>(count);
  if (given < member.least_arguments || given > member.most_arguments) Raise(error::kWrongArgumentCount);
}

}  // namespace

Variant GetMember(Object& object, std::string_view name, std::vector<Variant> arguments) {
  return object.Get(Resolve(object, name), arguments);
}

void PutMember(Object& object, std::string_view name, const Variant& value, std::vector<Variant> arguments) {
  object.Put(Resolve(object, name), arguments, value);
}

Variant CallMember(Object& object, std::string_view name, std::vector<Variant> arguments) {
  return object.Call(Resolve(object, name), arguments);
}

const Member& MemberTable::At(MemberId member) const {
  const size_t inherited = base ? base->Size() : 0;
  const auto index = static_cast<size_t>(member);
  return index < inherited ? base->At(member) : own[index - inherited];
}

MemberId MemberTable::Find(std::string_view name) const {
  const auto found =
      std::find_if(own.begin(), own.end(), [name](const Member& row) { return EqualsNoCase(row.name, name); });
  if (found == own.end()) return base ? base->Find(name) : kNoMember;
  return static_cast<MemberId>((base ? base->Size() : 0) + static_cast<size_t>(found - own.begin()));
}

std::vector<MemberInfo> TableObject::ListMembers() const {
  std::vector<MemberInfo> list;
  const MemberTable& table = Members();
  for (size_t at = 0; at < table.Size(); ++at) {
    const Member& row = table.At(static_cast<MemberId>(at));
    if (table.Find(row.name) != static_cast<MemberId>(at)) continue;  // a derived class has its own
    list.push_back(
        {std::string(row.name), row.kind, row.least_arguments, row.most_arguments, row.type, row.parameters});
  }
  return list;
}

Variant TableObject::Get(MemberId member, Arguments arguments) {
  if (!IsAlive()) Raise(error::kObjectRequired);
  const Member& row = Members().At(member);
  if (!row.get) Raise(error::kMemberNotFound);
  CheckArgumentCount(row, arguments.size());
  return row.get(*this, arguments);
}

void TableObject::Put(MemberId member, Arguments arguments, const Variant& value) {
  if (!IsAlive()) Raise(error::kObjectRequired);
  const Member& row = Members().At(member);
  if (row.kind == MemberKind::kReadOnly) Raise(error::kPropertyReadOnly);
  if (!row.put) Raise(error::kMemberNotFound);
  CheckArgumentCount(row, arguments.size());
  row.put(*this, arguments, value);
}

}  // namespace kestrun
