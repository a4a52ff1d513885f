#include "desktop/headless/headless_settings.h"

#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

std::string SettingName(std::string_view application, std::string_view section, std::string_view key) {
  std::string name = ToLower(application);
  name.append(1, '\0').append(ToLower(section)).append(1, '\0').append(ToLower(key));
  return name;
}

}  // namespace

std::optional<std::string> HeadlessUserSettings::Get(std::string_view application, std::string_view section,
                                                     std::string_view key) {
  const auto found = values_.find(SettingName(application, section, key));
  return found == values_.end() ? std::nullopt : std::optional(found->second);
}

void HeadlessUserSettings::Save(std::string_view application, std::string_view section, std::string_view key,
                                std::string_view value) {
  values_[SettingName(application, section, key)] = value;
}

void HeadlessUserSettings::Delete(std::string_view application, std::string_view section, std::string_view key) {
  if (values_.erase(SettingName(application, section, key)) == 0) Raise(error::kInvalidProcedureCall);
}

HeadlessRegistry::KeyPath HeadlessRegistry::PathOf(RegistryRoot root, std::string_view key) {
  std::string path = ToLower(key);
  while (!path.empty() && path.back() == '\\') path.pop_back();
  return {root, path};
}

std::optional<HeadlessRegistry::KeyPath> HeadlessRegistry::OwnClassOf(const KeyPath& path) const {
  if (!merges_classes_ || path.first != RegistryRoot::kClassesRoot) return std::nullopt;
  return KeyPath{RegistryRoot::kCurrentUser, "software\\classes\\" + path.second};
}

std::optional<RegistryValue> HeadlessRegistry::ReadValue(RegistryRoot root, std::string_view key,
                                                         std::string_view name) {
  const KeyPath path = PathOf(root, key);
  for (const KeyPath& each : {OwnClassOf(path).value_or(path), path}) {
    const auto found = keys_.find(each);
    if (found == keys_.end()) continue;
    const auto value = found->second.find(ToLower(name));
    if (value != found->second.end()) return value->second;
  }
  return std::nullopt;
}

bool HeadlessRegistry::WriteValue(RegistryRoot root, std::string_view key, std::string_view name,
                                  const RegistryValue& value) {
  if (!MayChange(root)) return false;
  const KeyPath path = PathOf(root, key);
  AddKey(path);
  keys_[path][ToLower(name)] = value;
  return true;
}

bool HeadlessRegistry::CreateKey(RegistryRoot root, std::string_view key) {
  if (!MayChange(root)) return false;
  AddKey(PathOf(root, key));
  return true;
}

void HeadlessRegistry::AddKey(const KeyPath& path) {
  const auto& [root, name] = path;
  for (size_t end = name.find('\\'); end != std::string::npos; end = name.find('\\', end + 1))
    keys_.try_emplace({root, name.substr(0, end)});
  keys_.try_emplace(path);
}

bool HeadlessRegistry::MayChange(RegistryRoot root) {
  if (closed_[root] || changes_left_ == 0) return false;
  if (changes_left_) --*changes_left_;
  return true;
}

bool HeadlessRegistry::DeleteKey(RegistryRoot root, std::string_view key) {
  const KeyPath path = PathOf(root, key);
  if (!keys_.contains(path)) return false;
  const auto subkey = keys_.lower_bound({root, path.second + "\\"});
  if (subkey != keys_.end() && subkey->first.first == root && StartsWith(subkey->first.second, path.second + "\\"))
    return false;
  if (!MayChange(root)) return false;
  keys_.erase(path);
  return true;
}

bool HeadlessRegistry::HasKey(RegistryRoot root, std::string_view key) {
  const KeyPath path = PathOf(root, key);
  return keys_.contains(path) || keys_.contains(OwnClassOf(path).value_or(path));
}

void HeadlessRegistry::CloseForWriting(RegistryRoot root) { closed_[root] = true; }

}  // namespace kestrun
