#include "program/user_programs.h"

#include <algorithm>

#include "base/convert.h"
#include "program/settings.h"

namespace kestrun {
namespace {

// Their count comes from a file.
constexpr int kMostPrograms = 500;
// What stands for the name of a number that has no program.
constexpr const char* kNoProgram = "ERROR";

}  // namespace

UserPrograms ReadUserPrograms() {
  const ProfileSnapshot settings = ReadSettingsSnapshot();
  UserPrograms all;
  all.highest = std::clamp(TextToLong(ReadSetting(settings, setting::kProgramCount)), 0, kMostPrograms);
  for (int number = 0; number <= all.highest; ++number) {
    const std::string open_part = std::to_string(number);
    const std::string name = ReadSetting(settings, setting::kProgramName, open_part);
    if (name == kNoProgram) continue;
    all.programs.push_back({number, name, ReadSetting(settings, setting::kProgramPath, open_part)});
  }
  return all;
}

bool WriteUserPrograms(const UserPrograms& programs) {
  std::vector<ProfileValue> values{{std::string(setting::kProgramCount.section),
                                    std::string(setting::kProgramCount.key), std::to_string(programs.highest)}};
  for (const UserProgram& program : programs.programs) {
    const std::string section = std::string(setting::kProgramName.section) + std::to_string(program.number);
    values.push_back({section, std::string(setting::kProgramName.key), program.name});
    values.push_back({section, std::string(setting::kProgramPath.key), program.path});
  }
  return SetIniValues(AppFile("packit.ini"), {}, values);
}

}  // namespace kestrun
