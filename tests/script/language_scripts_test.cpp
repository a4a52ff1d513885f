#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "script/script_runner.h"

namespace kestrun {
namespace {

std::vector<std::string> ScriptFiles() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(KESTRUN_SCRIPT_FOLDER)) {
    if (entry.path().extension() == ".vbs") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class LanguageScript : public testing::TestWithParam<std::string> {};

TEST_P(LanguageScript, PrintsWhatItsLinesSay) {
  const std::string file = GetParam() + ".vbs";
  std::ifstream stream(std::filesystem::path(KESTRUN_SCRIPT_FOLDER) / file, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(stream), {});
  int compared = 0;
  for (const ScriptCase& script : SplitScripts(text)) compared += RunScriptCase(script, file);
  EXPECT_GT(compared, 0) << file << " checks nothing";
  RecordProperty("compared", compared);
}

INSTANTIATE_TEST_SUITE_P(All, LanguageScript, testing::ValuesIn(ScriptFiles()),
                         [](const auto& script) { return script.param; });

}  // namespace
}  // namespace kestrun
