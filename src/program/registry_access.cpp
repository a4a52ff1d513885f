#include "program/registry_access.h"

#include <utility>

#include "base/byte_array.h"
#include "base/code_page.h"
#include "base/convert.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

int32_t TypeOf(const RegistryValue& value) {
  if (std::holds_alternative<std::string>(value)) return registry_type::kString;
  return std::holds_alternative<Bytes>(value) ? registry_type::kBinary : registry_type::kNumber;
}

Variant BinaryAs(const Bytes& bytes, bool as_bytes) {
  return as_bytes ? ToByteArray(bytes) : Variant(DecodeText(AsChars(bytes)));
}

}  // namespace

Variant RegRead(RegistryRoot Root, const std::string& Key, const std::string& ValueName, int32_t ExpectedType,
                bool AsBytes) {
  const std::optional<RegistryValue> value = platform().registry().ReadValue(Root, Key, ValueName);
  if (!value || (ExpectedType != registry_type::kAny && ExpectedType != TypeOf(*value))) return {};
  if (const auto* const text = std::get_if<std::string>(&*value)) return *text;
  if (const auto* const bytes = std::get_if<Bytes>(&*value)) return BinaryAs(*bytes, AsBytes);
  return static_cast<int32_t>(std::get<uint32_t>(*value));
}

void RegCreateKey(RegistryRoot Root, const std::string& Key) { platform().registry().CreateKey(Root, Key); }

void RegWrite(RegistryRoot Root, const std::string& Key, const std::string& ValueName, const Variant& Value,
              int32_t Type) {
  Registry& registry = platform().registry();
  if (!registry.HasKey(Root, Key)) return;
  if (Type == registry_type::kNumber) {
    registry.WriteValue(Root, Key, ValueName, static_cast<uint32_t>(ToLong(Value)));
  } else {
    registry.WriteValue(Root, Key, ValueName, ToText(Value));
  }
}

bool RegDeleteSubkey(RegistryRoot Root, const std::string& Key, const std::string& Subkey) {
  std::string_view name = Subkey;
  if (name.starts_with('\\')) name.remove_prefix(1);
  if (name.ends_with('\\')) name.remove_suffix(1);
  if (name.empty()) return false;
  return platform().registry().DeleteKey(Root, Key.empty() ? std::string(name) : Key + "\\" + std::string(name));
}

}  // namespace kestrun
