// The WScript object of vbsrun: Echo, Quit and Arguments.
#pragma once

#include <string>
#include <vector>

#include "base/object.h"

namespace kestrun {

// Thrown by WScript.Quit; no script can catch it.
struct ScriptQuit {
  int code;
};

class ArgumentList final : public TableObject {
 public:
  explicit ArgumentList(std::vector<std::string> texts) : texts_(std::move(texts)) {}
  [[nodiscard]] std::string TypeName() const override { return "IArguments2"; }
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;
  [[nodiscard]] const std::vector<std::string>& texts() const { return texts_; }

 private:
  std::vector<std::string> texts_;
};

class WScriptObject final : public TableObject {
 public:
  explicit WScriptObject(std::vector<std::string> arguments)
      : arguments_(MakeRef<ArgumentList>(std::move(arguments))) {}
  [[nodiscard]] std::string TypeName() const override { return "Object"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] const Ref<ArgumentList>& arguments() const { return arguments_; }

 private:
  Ref<ArgumentList> arguments_;
};

}  // namespace kestrun
