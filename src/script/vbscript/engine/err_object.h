// The Err object: the last error that a script has passed over.
#pragma once

#include <string>

#include "base/object.h"

namespace kestrun::vbs {

inline constexpr std::string_view kRuntimeErrorSource = "Microsoft VBScript runtime error";
inline constexpr std::string_view kCompileErrorSource = "Microsoft VBScript compilation error";

class ErrObject final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Object"; }
  [[nodiscard]] MemberId DefaultMember() const override { return 0; }
  [[nodiscard]] const MemberTable& Members() const override;

  void Set(const RuntimeError& error);
  // After its texts were changed.
  void CountBytes();
  void Clear();

  int number = 0;
  std::string description;
  std::string source;
  std::string help_file;
  int help_context = 0;

 private:
  LiveBytes bytes_;
};

}  // namespace kestrun::vbs
