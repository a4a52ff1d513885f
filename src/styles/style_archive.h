// A style's open archive as its scripts see it: all of ClsPFF, behind a door. What would write a file, or open another
// than the style's own, is put to the user, once for each file.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "formats/pff/cls_pff.h"

namespace kestrun {

class StyleArchive final : public Object {
 public:
  // The archive is loaded from `style_file`.
  StyleArchive(Ref<ClsPFF> archive, std::string style_file);

  [[nodiscard]] ClsPFF& archive() { return *archive_; }
  // The bytes of an entry by its number, read as a script would. Error 70 where the user does not allow it.
  [[nodiscard]] Bytes Extract(int32_t number);

  [[nodiscard]] std::string TypeName() const override { return archive_->TypeName(); }
  [[nodiscard]] MemberId FindMember(std::string_view name) const override { return archive_->FindMember(name); }
  [[nodiscard]] std::vector<MemberInfo> ListMembers() const override { return archive_->ListMembers(); }
  [[nodiscard]] std::string_view ParameterNames(MemberId member) const override {
    return archive_->ParameterNames(member);
  }
  Variant Get(MemberId member, Arguments arguments) override;
  void Put(MemberId member, Arguments arguments, const Variant& value) override;

 private:
  enum class Access { kRead, kWrite };
  struct Door;
  static const Door kDoors[];

  void PassDoors(MemberId member, Arguments arguments);
  // Raises error 70 unless the file may be used.
  void RequireAccess(const std::string& path, Access access);
  [[nodiscard]] bool Ask(const std::string& full_name);
  [[nodiscard]] bool IsOwn(const std::string& full_name) const;

  Ref<ClsPFF> archive_;
  std::string style_file_;
  std::map<std::string, bool> answers_;  // by full name in small letters
  int refusals_ = 0;
};

}  // namespace kestrun
