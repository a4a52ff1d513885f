#include "script/script_runner.h"

#include <gtest/gtest.h>

#include <optional>

#include "base/convert.h"
#include "base/text.h"
#include "script/script_engine.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun {
namespace {

constexpr std::string_view kPrinted = "'=>";
constexpr std::string_view kFailure = "'!!";
constexpr std::string_view kTitle = "'----";
// The scripts end by themselves, on a busy machine late.
constexpr int64_t kTimeoutMs = 600'000;

struct ExpectedError {
  int number = 0;
  int line = 0;
  int column = 0;  // 0: any
};

struct Expectations {
  std::vector<std::string> printed;
  std::vector<int> printed_at;
  std::optional<ExpectedError> error;
};

ExpectedError ReadError(std::string_view text, int line) {
  ExpectedError expected;
  const std::string digits(TrimBlanks(text));
  const size_t at = digits.find('@');
  expected.number = std::stoi(digits.substr(0, at));
  expected.line = line;
  if (at != std::string::npos) expected.column = std::stoi(digits.substr(at + 1));
  return expected;
}

Expectations ReadExpectations(const std::string& text) {
  Expectations expectations;
  int number = 0;
  for (const std::string& line : Split(text, "\n")) {
    ++number;
    if (const size_t at = line.find(kPrinted); at != std::string::npos) {
      std::string_view wanted = std::string_view(line).substr(at + kPrinted.size());
      if (StartsWith(wanted, " ")) wanted.remove_prefix(1);
      expectations.printed.emplace_back(wanted);
      expectations.printed_at.push_back(number);
    }
    if (const size_t at = line.find(kFailure); at != std::string::npos) {
      expectations.error = ReadError(std::string_view(line).substr(at + kFailure.size()), number);
    }
  }
  return expectations;
}

std::string Printed(const Variant& value) {
  if (value.Is(VarType::kNull)) return "Null";
  return ToText(vbs::Concatenate(vbs::PlainValue(value), ""));
}

Variant Echo(Object& object, Arguments arguments) {
  std::string line;
  for (size_t at = 0; at < arguments.size(); ++at) line += (at ? " " : "") + Printed(arguments[at]);
  static_cast<EchoRecorder&>(object).lines.push_back(line);
  return {};
}

constexpr Member kMembers[] = {{"Echo", MemberKind::kMethod, 0, 255, Echo}};

void CompareLines(const Expectations& expected, const std::vector<std::string>& printed, int first_line,
                  const std::string& file) {
  for (size_t at = 0; at < std::max(expected.printed.size(), printed.size()); ++at) {
    const bool known = at < expected.printed.size();
    const std::string place =
        file + ":" + (known ? std::to_string(first_line + expected.printed_at[at] - 1) : std::string("end"));
    const std::string wanted = known ? expected.printed[at] : "(nothing)";
    const std::string got = at < printed.size() ? printed[at] : "(nothing)";
    EXPECT_EQ(got, wanted) << place;
    if (got != wanted) return;
  }
}

void CompareError(const Expectations& expected, const ScriptError& error, int first_line, const std::string& file) {
  const std::string place = file + ":" + std::to_string(first_line + error.Line - 1) + ": " + error.Description;
  if (!expected.error) {
    EXPECT_EQ(error.Number, 0) << place;
    return;
  }
  EXPECT_EQ(error.Number, expected.error->number) << place;
  EXPECT_EQ(error.Line, expected.error->line) << place;
  if (expected.error->column) {
    EXPECT_EQ(error.Column, expected.error->column) << place;
  }
}

}  // namespace

const MemberTable& EchoRecorder::Members() const {
  static const MemberTable kTable{nullptr, kMembers};
  return kTable;
}

std::vector<ScriptCase> SplitScripts(std::string_view text) {
  std::vector<ScriptCase> list(1);
  int number = 0;
  for (const std::string& line : Split(text, "\n")) {
    ++number;
    if (StartsWith(line, kTitle)) {
      if (!TrimBlanks(list.back().text).empty() && list.back().text != "\n") list.emplace_back();
      list.back() = {std::string(TrimBlanks(std::string_view(line).substr(kTitle.size()))), number + 1, ""};
    } else {
      list.back().text += line + "\n";
    }
  }
  for (ScriptCase& script : list) {
    while (!script.text.empty() && script.text.back() == '\n') script.text.pop_back();
  }
  return list;
}

int RunScriptCase(const ScriptCase& script, const std::string& file) {
  const Expectations expected = ReadExpectations(script.text);
  const Ref<EchoRecorder> recorder = MakeRef<EchoRecorder>();
  ScriptError error;
  {
    const std::unique_ptr<ScriptEngine> engine = MakeScriptEngine();
    engine->SetLanguage("VBScript");
    engine->SetTimeout(kTimeoutMs);
    engine->AddObject("WScript", recorder);
    engine->AddCode(script.text);
    error = engine->Error();
  }
  CompareLines(expected, recorder->lines, script.first_line, file + " (" + script.title + ")");
  CompareError(expected, error, script.first_line, file + " (" + script.title + ")");
  return static_cast<int>(expected.printed.size()) + (expected.error ? 1 : 0);
}

}  // namespace kestrun
