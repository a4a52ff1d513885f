// The per-user settings store and the registry, kept in memory.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "platform/registry.h"
#include "platform/settings.h"

namespace kestrun {

class HeadlessUserSettings final : public UserSettings {
 public:
  [[nodiscard]] std::optional<std::string> Get(std::string_view application, std::string_view section,
                                               std::string_view key) override;
  void Save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) override;
  void Delete(std::string_view application, std::string_view section, std::string_view key) override;

 private:
  std::map<std::string, std::string> values_;  // by application, section and key in lower case
};

// Keys and value names are found without regard to case. A root can be closed, as it is for users without rights.
class HeadlessRegistry final : public Registry {
 public:
  [[nodiscard]] std::optional<RegistryValue> ReadValue(RegistryRoot root, std::string_view key,
                                                       std::string_view name) override;
  bool WriteValue(RegistryRoot root, std::string_view key, std::string_view name, const RegistryValue& value) override;
  [[nodiscard]] bool HasKey(RegistryRoot root, std::string_view key) override;
  bool CreateKey(RegistryRoot root, std::string_view key) override;
  bool DeleteKey(RegistryRoot root, std::string_view key) override;

  // From now on the user's own classes show in the classes root before those of the machine, as Windows merges them.
  void MergeClasses() { merges_classes_ = true; }
  // From now on this root refuses every change.
  void CloseForWriting(RegistryRoot root);
  // So many changes still go through, and then none in any root: a system that refuses in the middle of a registration.
  void RefuseAfter(int changes) { changes_left_ = changes; }

 private:
  using Values = std::map<std::string, RegistryValue>;
  using KeyPath = std::pair<RegistryRoot, std::string>;
  // The same key where the user's own classes stand; nothing but for keys of the classes root that are merged.
  [[nodiscard]] std::optional<KeyPath> OwnClassOf(const KeyPath& path) const;
  [[nodiscard]] static KeyPath PathOf(RegistryRoot root, std::string_view key);
  // Counts a change. False when it is refused.
  [[nodiscard]] bool MayChange(RegistryRoot root);
  void AddKey(const KeyPath& path);

  std::map<KeyPath, Values> keys_;  // every key on the way to a key stands here too
  std::map<RegistryRoot, bool> closed_;
  bool merges_classes_ = false;
  std::optional<int> changes_left_;
};

}  // namespace kestrun
