// The system's registry: a tree of keys, each with named values.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "base/bytes.h"

namespace kestrun {

enum class RegistryRoot { kClassesRoot, kCurrentUser, kLocalMachine };

// A text (REG_SZ, REG_EXPAND_SZ), bytes (REG_BINARY) or a number of 32 bits (REG_DWORD), as winnt.h names them.
using RegistryValue = std::variant<std::string, Bytes, uint32_t>;

// Keys and names of values are found without regard to case; an empty name is the key's default value. Nothing here
// raises.
class Registry {
 public:
  virtual ~Registry() = default;
  // Nothing when key or value is absent, or of another type.
  [[nodiscard]] virtual std::optional<RegistryValue> ReadValue(RegistryRoot root, std::string_view key,
                                                               std::string_view name) = 0;
  // Creates the key as needed. False when the system refuses.
  virtual bool WriteValue(RegistryRoot root, std::string_view key, std::string_view name,
                          const RegistryValue& value) = 0;
  [[nodiscard]] virtual bool HasKey(RegistryRoot root, std::string_view key) = 0;
  // With the keys above it. True when it is there then.
  virtual bool CreateKey(RegistryRoot root, std::string_view key) = 0;
  // Removes a key with its values; false when it is absent, has subkeys, or the system refuses.
  virtual bool DeleteKey(RegistryRoot root, std::string_view key) = 0;

  // The same for texts.
  [[nodiscard]] std::optional<std::string> Read(RegistryRoot root, std::string_view key, std::string_view name) {
    const std::optional<RegistryValue> value = ReadValue(root, key, name);
    const auto* const text = value ? std::get_if<std::string>(&*value) : nullptr;
    return text ? std::optional(*text) : std::nullopt;
  }
  bool Write(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) {
    return WriteValue(root, key, name, std::string(value));
  }
};

}  // namespace kestrun
