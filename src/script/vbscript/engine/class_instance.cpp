#include "script/vbscript/engine/class_instance.h"

#include "script/vbscript/engine/engine.h"
#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {

ClassInstance::ClassInstance(Engine& engine, Ref<ClassDefinition> definition)
    : engine_(&engine),
      definition_(std::move(definition)),
      fields_(std::make_unique<Variant[]>(definition_->fields.size())) {
  bytes_.Set(LiveBytes::Block(definition_->fields.size() * sizeof(Variant) + sizeof(size_t)));
  next_ = engine.living_;
  if (next_) next_->previous_ = this;
  engine.living_ = this;
}

ClassInstance::~ClassInstance() {
  if (!engine_) return;
  if (previous_) {
    previous_->next_ = next_;
  } else {
    engine_->living_ = next_;
  }
  if (next_) next_->previous_ = previous_;
}

void ClassInstance::Detach() {
  engine_ = nullptr;
  for (size_t field = 0; field < definition_->fields.size(); ++field) fields_[field].Clear();
}

Engine& ClassInstance::LivingEngine() const {
  if (!engine_) RaiseScript(error::kObjectRequired);
  return *engine_;
}

// Class_Terminate runs while the object is whole; if it hands out a new reference, the object lives on.
void ClassInstance::LastReferenceGone() noexcept {
  if (engine_ && !terminated_ && definition_->terminate && !engine_->stopping()) {
    terminated_ = true;
    Retain();
    engine_->Terminate(*this);
    return Release();  // comes back here, unless somebody has taken a reference
  }
  Destroy(this);
}

MemberId ClassInstance::FindMember(std::string_view name) const {
  const NameId number = LivingEngine().names().Find(name);
  if (number == kNoName) return kNoMember;
  const MemberId member = definition_->FindMember(number);
  if (member == kNoMember || !definition_->members[static_cast<size_t>(member)].is_public) return kNoMember;
  return member;
}

std::vector<MemberInfo> ClassInstance::ListMembers() const {
  std::vector<MemberInfo> list;
  for (const ClassMember& member : definition_->members) {
    if (!member.is_public) continue;
    const bool method = member.get && member.get->tree->kind != ProcedureKind::kPropertyGet;
    const bool writable = member.is_field || member.let || member.set;
    const MemberKind kind = method                          ? MemberKind::kMethod
                            : !writable                     ? MemberKind::kReadOnly
                            : member.is_field || member.get ? MemberKind::kReadWrite
                                                            : MemberKind::kWriteOnly;
    const int count = member.get ? static_cast<int>(member.get->tree->parameters.size()) : 0;
    list.push_back({LivingEngine().names().Spelling(member.name), kind, count, count});
  }
  return list;
}

Variant ClassInstance::Get(MemberId member, Arguments arguments) {
  Engine& engine = LivingEngine();
  const ClassMember& row = definition_->members.at(static_cast<size_t>(member));
  const Ref<ClassInstance> held(this);
  if (row.is_field) return engine.FieldValue(fields_[row.field], arguments);
  if (!row.get) RaiseScript(error::kMemberNotFound);
  return engine.Call(*row.get, this, arguments);
}

void ClassInstance::Store(MemberId member, Arguments arguments, const Variant& value, bool set) {
  Engine& engine = LivingEngine();
  const ClassMember& row = definition_->members.at(static_cast<size_t>(member));
  const Ref<ClassInstance> held(this);
  if (row.is_field) return engine.StoreField(fields_[row.field], arguments, value, set);
  const Ref<Procedure>& setter = set && row.set ? row.set : row.let;
  if (!setter) RaiseScript(error::kMemberNotFound);
  std::vector<Variant> list(arguments.begin(), arguments.end());
  list.push_back(value);
  engine.Call(*setter, this, list);
}

void ClassInstance::Put(MemberId member, Arguments arguments, const Variant& value) {
  Store(member, arguments, value, false);
}

void ClassInstance::PutReference(MemberId member, Arguments arguments, const Variant& value) {
  Store(member, arguments, value, true);
}

}  // namespace kestrun::vbs
