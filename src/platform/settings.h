// The per-user settings store: application, section, key, text. And the registry's string values.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrun {

class UserSettings {
 public:
  virtual ~UserSettings() = default;
  [[nodiscard]] virtual std::optional<std::string> Get(std::string_view application, std::string_view section,
                                                       std::string_view key) = 0;
  virtual void Save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view value) = 0;
  // Error 5 when the key does not exist.
  virtual void Delete(std::string_view application, std::string_view section, std::string_view key) = 0;
};

enum class RegistryRoot { kClassesRoot, kCurrentUser, kLocalMachine };

class Registry {
 public:
  virtual ~Registry() = default;
  // A string value, empty name for the key's default value; nothing when key or value is absent or no string.
  [[nodiscard]] virtual std::optional<std::string> Read(RegistryRoot root, std::string_view key,
                                                        std::string_view name) = 0;
  // Creates the key as needed. False when the system refuses.
  virtual bool Write(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) = 0;
  // Removes a key with its values; false when it is absent, has subkeys, or the system refuses.
  virtual bool DeleteKey(RegistryRoot root, std::string_view key) = 0;
};

}  // namespace kestrun
