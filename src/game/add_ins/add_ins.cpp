#include "game/add_ins/add_ins.h"

#include <algorithm>
#include <utility>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "program/path_text.h"
#include "program/settings.h"

namespace kestrun {
namespace {

constexpr int kMostAddIns = 500;

AddInServices& services() {
  static AddInServices installed;
  return installed;
}

}  // namespace

std::vector<AddIn> ReadAddIns(const std::string& missing_id) {
  ProfileSnapshot settings = ReadSettingsSnapshot();
  const int count = std::clamp(ToLong(ReadSetting(settings, setting::kAddInCount)), 0, kMostAddIns);
  const NumberedKeys names{setting::kAddInName.key, 1, static_cast<size_t>(count)};
  const NumberedKeys ids{setting::kAddInClassId.key, 1, static_cast<size_t>(count)};
  const std::string section(setting::kAddInName.section);
  const std::vector<std::string_view> read_names =
      GetNumberedIniValues(settings, section, names, std::string(setting::kAddInName.text));
  const std::vector<std::string_view> read_ids = GetNumberedIniValues(settings, section, ids, missing_id);
  std::vector<AddIn> add_ins;
  for (size_t at = 0; at < read_names.size(); ++at) {
    add_ins.push_back({std::string(read_names[at]), std::string(read_ids[at])});
  }
  return add_ins;
}

void WriteAddIns(const std::vector<AddIn>& add_ins) {
  const std::string section(setting::kAddInName.section);
  std::vector<ProfileValue> values;
  for (size_t at = 0; at < add_ins.size(); ++at) {
    const std::string number = std::to_string(at + 1);
    values.push_back({section, std::string(setting::kAddInName.key) + number, add_ins[at].name});
    values.push_back({section, std::string(setting::kAddInClassId.key) + number, add_ins[at].id});
  }
  values.push_back({section, std::string(setting::kAddInCount.key), std::to_string(add_ins.size())});
  SetIniValues(AppFile("packit.ini"), {}, values);
}

void InstallAddInServices(AddInServices new_services) { services() = std::move(new_services); }

Ref<Object> CreateAddIn(const std::string& id) {
  if (!services().create) Raise(error::kCannotCreateObject);
  return services().create(id);
}

bool clsRegister::RegSvr32(const std::string& FileName, bool bUnReg) const {
  return FileExists(FileName) && services().register_component && services().register_component(FileName, bUnReg);
}

}  // namespace kestrun
