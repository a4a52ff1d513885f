// The Err object: the last error that a script has passed over.
#pragma once

#include <string>

#include "base/object.h"

namespace kestrun::vbs {

inline constexpr std::string_view kRuntimeErrorSource = "Microsoft VBScript runtime error";
inline constexpr std::string_view kCompileErrorSource = "Microsoft VBScript compilation error";

// An error that a script has raised itself, with all that it said about it.
class RaisedError : public RuntimeError {
 public:
  RaisedError(int number, const std::string& description, std::string source, std::string help_file, int help_context)
      : RuntimeError(number, description),
        source_(std::move(source)),
        help_file_(std::move(help_file)),
        help_context_(help_context) {}

  [[nodiscard]] const std::string& source() const { return source_; }
  [[nodiscard]] const std::string& help_file() const { return help_file_; }
  [[nodiscard]] int help_context() const { return help_context_; }

 private:
  std::string source_;
  std::string help_file_;
  int help_context_;
};

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
