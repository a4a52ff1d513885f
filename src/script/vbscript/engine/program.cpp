#include "script/vbscript/engine/program.h"

#include <cstdlib>
#include <new>

#include "base/runtime_error.h"

namespace kestrun::vbs {
namespace {

constexpr uint32_t kMostGlobals = 1U << 18;

}  // namespace

ClassMember& ClassDefinition::MemberFor(NameId member_name) {
  const auto [place, added] = by_name.emplace(member_name, static_cast<int>(members.size()));
  if (added) members.emplace_back().name = member_name;
  return members[static_cast<size_t>(place->second)];
}

// All bits clear is an Empty value; memory that is not used is never touched.
GlobalScope::GlobalScope() : values_(static_cast<Variant*>(std::calloc(kMostGlobals, sizeof(Variant)))) {
  if (!values_) throw std::bad_alloc();
}

GlobalScope::~GlobalScope() {
  Clear(true);
  std::free(values_);
}

void GlobalScope::MakeEntries(NameId name) { entries_.resize(name + name / 2 + 1); }

void GlobalScope::Rebind(GlobalEntry& entry, GlobalKind kind) {
  entry.kind = kind;
  entry.version = ++epoch_;
  entry.procedure.Reset();
}

void GlobalScope::GiveSlot(GlobalEntry& entry) {
  if (entry.slot != UINT32_MAX) return;
  if (used_ == kMostGlobals) Raise(error::kOutOfMemory);
  entry.slot = used_++;
}

GlobalEntry& GlobalScope::DefineVariable(NameId name) {
  GlobalEntry& entry = Entry(name);
  GiveSlot(entry);
  if (entry.kind == GlobalKind::kVariable) return entry;
  if (entry.kind != GlobalKind::kUnbound) values_[entry.slot].Clear();
  Rebind(entry, GlobalKind::kVariable);
  return entry;
}

void GlobalScope::DefineValue(NameId name, GlobalKind kind, const Variant& value) {
  GlobalEntry& entry = Entry(name);
  GiveSlot(entry);
  Rebind(entry, kind);
  values_[entry.slot] = value;
}

void GlobalScope::DefineProcedure(NameId name, Ref<Procedure> procedure) {
  kept_.emplace_back(procedure);
  GlobalEntry& entry = Entry(name);
  Rebind(entry, GlobalKind::kProcedure);
  entry.procedure = std::move(procedure);
}

void GlobalScope::DefineClass(NameId name, Ref<ClassDefinition> definition) {
  kept_.emplace_back(definition);
  GlobalEntry& entry = Entry(name);
  Rebind(entry, GlobalKind::kClass);
  entry.definition = std::move(definition);
}

void GlobalScope::Clear(bool everything) {
  for (size_t name = 0; name < entries_.size(); ++name) {
    if (entries_[name].kind == GlobalKind::kVariable) values_[entries_[name].slot].Clear();
  }
  if (!everything) return;
  for (uint32_t slot = 0; slot < used_; ++slot) values_[slot].Clear();
}

}  // namespace kestrun::vbs
