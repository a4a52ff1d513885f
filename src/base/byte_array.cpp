#include "base/byte_array.h"

#include "base/convert.h"
#include "base/runtime_error.h"

namespace kestrun {

Variant ToByteArray(ByteView bytes) {
  Ref<ArrayBody> array = MakeRef<ArrayBody>(std::vector<int32_t>{static_cast<int32_t>(bytes.size())});
  for (size_t at = 0; at < bytes.size(); ++at) array->elements[at] = bytes[at];
  return Variant(array);
}

Bytes FromByteArray(const Variant& value) {
  if (!value.Is(VarType::kArray)) Raise(error::kTypeMismatch);
  Bytes bytes;
  bytes.reserve(value.array().elements.size());
  for (const Variant& element : value.array().elements) {
    const int32_t byte = ToLong(element);
    if (byte < 0 || byte > 255) Raise(error::kOverflow);
    bytes.push_back(static_cast<uint8_t>(byte));
  }
  return bytes;
}

}  // namespace kestrun
