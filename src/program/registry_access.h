// The registry's values by their types, as late-bound callers ask for them. Failures give nothing, never an error.
#pragma once

#include <cstdint>
#include <string>

#include "base/variant.h"
#include "platform/registry.h"

namespace kestrun {

// Types of values, with the system's numbers (winnt.h).
namespace registry_type {
inline constexpr int32_t kAny = 0;
inline constexpr int32_t kString = 1;
inline constexpr int32_t kBinary = 3;
inline constexpr int32_t kNumber = 4;
}  // namespace registry_type

// A text up to its first zero, a number, or bytes: as an array of them or as a text of the code page. Empty when there
// is no value of the expected type.
[[nodiscard]] Variant RegRead(RegistryRoot Root, const std::string& Key, const std::string& ValueName,
                              int32_t ExpectedType, bool AsBytes);
void RegCreateKey(RegistryRoot Root, const std::string& Key);
// A text or a number, by its type, in a key that is there.
void RegWrite(RegistryRoot Root, const std::string& Key, const std::string& ValueName, const Variant& Value,
              int32_t Type);
// Subkey may have a backslash at either end; an empty Key is the root. False for a subkey with subkeys of its own.
bool RegDeleteSubkey(RegistryRoot Root, const std::string& Key, const std::string& Subkey);

}  // namespace kestrun
