// Late binding: how scripts, add-ins and the debug panel reach a member by its name.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/ref.h"
#include "base/runtime_error.h"
#include "base/variant.h"

namespace kestrun {

class Object;

// Number of a member within one class of objects. Stable for the life of the process.
using MemberId = int32_t;
inline constexpr MemberId kNoMember = -1;

// Arguments in the order of the call. A callee that takes an argument by reference writes the new value back.
using Arguments = std::span<Variant>;

enum class MemberKind { kReadOnly, kReadWrite, kWriteOnly, kMethod };

// What a listing of members tells.
struct MemberInfo {
  std::string name;
  MemberKind kind;
  int least_arguments;
  int most_arguments;
  std::string_view type = {};        // of the value that it gives, as TypeName names it; empty for none and for any
  std::string_view parameters = {};  // their names with ", " between; empty where nobody knows them
};

// The sequence that For Each walks.
class Enumeration {
 public:
  virtual ~Enumeration() = default;
  // False at the end.
  virtual bool Next(Variant& item) = 0;
};

class Object : public RefCounted {
 public:
  // The class name that TypeName gives.
  [[nodiscard]] virtual std::string TypeName() const = 0;

  // Finds a member by name, without regard to case; kNoMember when there is none.
  [[nodiscard]] virtual MemberId FindMember(std::string_view name) const = 0;
  // The member meant by the object alone, as in `text = TextBox1`; kNoMember when there is none.
  [[nodiscard]] virtual MemberId DefaultMember() const { return kNoMember; }
  // Objects that answer with the same non-null key have the same member numbers, so that a call site may keep one.
  [[nodiscard]] virtual const void* MemberLayout() const { return nullptr; }
  [[nodiscard]] virtual std::vector<MemberInfo> ListMembers() const = 0;

  // Reads a property, or calls a method for its result. Errors: 438 for a write-only member, 450 for a wrong number
  // of arguments, 424 when the object behind has gone away, and whatever the member raises.
  virtual Variant Get(MemberId member, Arguments arguments) = 0;
  // Writes a property. 438 when it is a method, 383 when it is read-only.
  virtual void Put(MemberId member, Arguments arguments, const Variant& value) = 0;
  // Writes an object reference with Set; by default the same as Put.
  virtual void PutReference(MemberId member, Arguments arguments, const Variant& value) {
    Put(member, arguments, value);
  }
  // Calls a method and drops or takes its result; on a property the same as Get.
  virtual Variant Call(MemberId member, Arguments arguments) { return Get(member, arguments); }

  // The names of a member's arguments in their order with ", " between, for callers that pass them by name; empty where
  // there are none or they have no names.
  [[nodiscard]] virtual std::string_view ParameterNames(MemberId member) const {
    static_cast<void>(member);
    return {};
  }

  // Null when the object is no collection.
  [[nodiscard]] virtual std::unique_ptr<Enumeration> Enumerate() { return nullptr; }
};

// By-name forms of the above, for callers that do not keep member numbers. Error 438 for an unknown name.
[[nodiscard]] Variant GetMember(Object& object, std::string_view name, std::vector<Variant> arguments = {});
void PutMember(Object& object, std::string_view name, const Variant& value, std::vector<Variant> arguments = {});
Variant CallMember(Object& object, std::string_view name, std::vector<Variant> arguments = {});

// One row of a class's member table. Accessors get the object as Object&; the helpers in member_rows.h write them.
struct Member {
  std::string_view name;
  MemberKind kind;
  int least_arguments = 0;
  int most_arguments = 0;
  Variant (*get)(Object& object, Arguments arguments) = nullptr;  // also the call of a method
  void (*put)(Object& object, Arguments arguments, const Variant& value) = nullptr;
  std::string_view type = {};        // of the value, as TypeName names it; empty for none and for any
  std::string_view parameters = {};  // names of the arguments with ", " between
};

// A class's members, its base class's first.
struct MemberTable {
  const MemberTable* base;
  std::span<const Member> own;
  [[nodiscard]] size_t Size() const { return (base ? base->Size() : 0) + own.size(); }
  [[nodiscard]] const Member& At(MemberId member) const;
  [[nodiscard]] MemberId Find(std::string_view name) const;
};

// An object whose members stand in a static table.
class TableObject : public Object {
 public:
  [[nodiscard]] virtual const MemberTable& Members() const = 0;

  [[nodiscard]] MemberId FindMember(std::string_view name) const override { return Members().Find(name); }
  [[nodiscard]] const void* MemberLayout() const override { return &Members(); }
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override;
  Variant Get(MemberId member, Arguments arguments) override;
  void Put(MemberId member, Arguments arguments, const Variant& value) override;
  [[nodiscard]] std::string_view ParameterNames(MemberId member) const override {
    return Members().At(member).parameters;
  }

 protected:
  // False once the object behind the reference has gone away: every access then gives error 424.
  [[nodiscard]] virtual bool IsAlive() const { return true; }
};

}  // namespace kestrun
