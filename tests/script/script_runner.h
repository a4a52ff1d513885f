// Runs test scripts. A line that prints says what: `WScript.Echo 1 + 1 '=> 2`; each `'=>` of a file is one printed
// line, in order. The line at which the script ends in an error says so: `x = 1 / 0 '!! 11`, with `@column` behind the
// number when the column matters. A line `'---- title` begins a script of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/object.h"

namespace kestrun {

struct ScriptCase {
  std::string title;
  int first_line = 1;
  std::string text;
};

// The scripts of one file's text.
[[nodiscard]] std::vector<ScriptCase> SplitScripts(std::string_view text);

// Runs one script and tells the test framework of every difference. Gives the number of things that were compared.
int RunScriptCase(const ScriptCase& script, const std::string& file);

// An object with the one method Echo, which keeps what it is given.
class EchoRecorder final : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Object"; }
  [[nodiscard]] const MemberTable& Members() const override;
  std::vector<std::string> lines;
};

}  // namespace kestrun
