// An object of a script's class, seen by scripts and hosts alike.
#pragma once

#include <memory>

#include "base/object.h"
#include "script/vbscript/engine/program.h"

namespace kestrun::vbs {

class Engine;

class ClassInstance final : public Object {
 public:
  ClassInstance(Engine& engine, Ref<ClassDefinition> definition);
  ~ClassInstance() override;

  [[nodiscard]] ClassDefinition& definition() const { return *definition_; }
  [[nodiscard]] Variant* fields() const { return fields_.get(); }
  // The engine is ending: the object stays, without its fields and its methods.
  void Detach();

  [[nodiscard]] std::string TypeName() const override { return definition_->spelling; }
  [[nodiscard]] MemberId FindMember(std::string_view name) const override;
  [[nodiscard]] MemberId DefaultMember() const override { return definition_->default_member; }
  [[nodiscard]] const void* MemberLayout() const override { return definition_.get(); }
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override;
  Variant Get(MemberId member, Arguments arguments) override;
  void Put(MemberId member, Arguments arguments, const Variant& value) override;
  void PutReference(MemberId member, Arguments arguments, const Variant& value) override;

 private:
  friend class Engine;

  void LastReferenceGone() noexcept override;
  void Store(MemberId member, Arguments arguments, const Variant& value, bool set);
  [[nodiscard]] Engine& LivingEngine() const;

  LiveBytes bytes_;
  Engine* engine_;  // null once the engine has ended
  Ref<ClassDefinition> definition_;
  std::unique_ptr<Variant[]> fields_;
  bool terminated_ = false;
  ClassInstance* previous_ = nullptr;  // in the engine's list of living objects
  ClassInstance* next_ = nullptr;
};

}  // namespace kestrun::vbs
