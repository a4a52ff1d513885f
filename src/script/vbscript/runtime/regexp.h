// VBScript.RegExp and what Execute gives: Matches, Match and SubMatches.
#pragma once

#include <optional>

#include "base/object.h"
#include "script/vbscript/runtime/context.h"
#include "script/vbscript/runtime/regexp_program.h"

namespace kestrun::vbs {

// A pattern with its switches. Compiled when it is first used; a faulty pattern raises 5017 to 5021 there.
// Error 424 once the engine that made it has gone.
class RegExp final : public TableObject {
 public:
  explicit RegExp(RuntimeContext& context) : handle_(context.handle()) {}

  [[nodiscard]] std::string TypeName() const override { return "IRegExp2"; }
  [[nodiscard]] const MemberTable& Members() const override;

  [[nodiscard]] const Variant& pattern() const { return pattern_; }
  void set_pattern(const Variant& pattern);
  [[nodiscard]] bool ignore_case() const { return ignore_case_; }
  void set_ignore_case(bool ignore_case);
  [[nodiscard]] bool global() const { return global_; }
  void set_global(bool global) { global_ = global; }
  [[nodiscard]] bool multiline() const { return multiline_; }
  void set_multiline(bool multiline);

  [[nodiscard]] bool Test(const Variant& text);
  // All matches when Global is set, else the first.
  [[nodiscard]] Variant Execute(const Variant& text);
  // In the replacement $1 to $99 stand for groups, $& for the match, $` and $' for what is in front of and behind it,
  // $+ for the last group, $_ for the whole text and $$ for a dollar sign.
  [[nodiscard]] Variant Replace(const Variant& text, const Variant& replacement);

 protected:
  [[nodiscard]] bool IsAlive() const override { return handle_->context() != nullptr; }

 private:
  const RegExpProgram& Program();
  [[nodiscard]] RuntimeContext& context() const { return *handle_->context(); }

  Ref<ContextHandle> handle_;
  Variant pattern_{std::u16string()};
  bool ignore_case_ = false;
  bool global_ = false;
  bool multiline_ = false;
  std::optional<RegExpProgram> program_;
  LiveBytes program_bytes_;
};

}  // namespace kestrun::vbs
