// What scripts have defined: procedures, classes and the one space of global names.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "script/vbscript/compiler/code.h"
#include "script/vbscript/syntax/tree.h"

namespace kestrun::vbs {

class ClassDefinition;

// A procedure with its code, which is made at the first call and made anew when a global name it uses has changed its
// meaning since. Code that was replaced stays until the end, because calls of it may be under way.
class Procedure final : public RefCounted {
 public:
  Procedure(std::shared_ptr<Module> module, const ProcedureTree& tree, ClassDefinition* owner)
      : module(std::move(module)), tree(&tree), owner(owner) {}

  const std::shared_ptr<Module> module;
  const ProcedureTree* const tree;
  ClassDefinition* const owner;  // null outside classes
  std::unique_ptr<Code> code;
  std::vector<std::unique_ptr<Code>> retired;
  uint32_t checked_epoch = 0;
};

struct ClassMember {
  NameId name = kNoName;
  bool is_public = true;
  bool is_field = false;
  uint32_t field = 0;
  Ref<Procedure> get;  // also a Sub or Function
  Ref<Procedure> let;
  Ref<Procedure> set;
};

// A class of a script. Its members' numbers are their places in `members`.
class ClassDefinition final : public RefCounted {
 public:
  [[nodiscard]] int FindMember(NameId name) const {
    const auto found = by_name.find(name);
    return found == by_name.end() ? kNoMember : found->second;
  }
  ClassMember& MemberFor(NameId name);

  NameId name = kNoName;
  std::string spelling;
  std::vector<ClassMember> members;
  std::unordered_map<NameId, int> by_name;
  std::vector<DeclaredVariable> fields;
  MemberId default_member = kNoMember;
  Ref<Procedure> initialize;
  Ref<Procedure> terminate;
  std::shared_ptr<Module> module;
};

enum class GlobalKind : uint8_t { kUnbound, kVariable, kConstant, kObject, kProcedure, kClass };

struct GlobalEntry {
  GlobalKind kind = GlobalKind::kUnbound;
  uint32_t slot = UINT32_MAX;
  uint32_t version = 0;
  Ref<Procedure> procedure;
  Ref<ClassDefinition> definition;  // stays when a variable takes the name: New still finds the class
};

// The values stand in one block that never moves, because calls hold the addresses of what they were given.
class GlobalScope {
 public:
  GlobalScope();
  ~GlobalScope();
  GlobalScope(const GlobalScope&) = delete;
  GlobalScope& operator=(const GlobalScope&) = delete;

  [[nodiscard]] GlobalEntry& Entry(NameId name) {
    if (name >= entries_.size()) MakeEntries(name);
    return entries_[name];
  }
  [[nodiscard]] Variant* values() { return values_; }
  [[nodiscard]] Variant& ValueOf(const GlobalEntry& entry) { return values_[entry.slot]; }

  // Each makes the name mean this from now on. A variable that exists keeps its value.
  GlobalEntry& DefineVariable(NameId name);
  void DefineValue(NameId name, GlobalKind kind, const Variant& value);
  void DefineProcedure(NameId name, Ref<Procedure> procedure);
  void DefineClass(NameId name, Ref<ClassDefinition> definition);

  // Counts every change of a name's meaning.
  [[nodiscard]] uint32_t epoch() const { return epoch_; }
  // Lets go of the values of variables, or of every value.
  void Clear(bool everything);

 private:
  void MakeEntries(NameId name);
  void Rebind(GlobalEntry& entry, GlobalKind kind);
  void GiveSlot(GlobalEntry& entry);

  std::vector<GlobalEntry> entries_;   // by name
  std::vector<Ref<RefCounted>> kept_;  // whatever was ever defined: calls of it may be under way
  Variant* values_;
  uint32_t used_ = 0;
  uint32_t epoch_ = 1;
};

}  // namespace kestrun::vbs
