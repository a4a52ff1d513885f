// The per-user settings store: application, section, key, text.
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

}  // namespace kestrun
