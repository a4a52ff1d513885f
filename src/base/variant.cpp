#include "base/variant.h"

#include "base/object.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr uint64_t kMostElements = INT32_MAX;

}  // namespace

Variant::Variant(std::string_view utf8) : Variant(ToUtf16(utf8)) {}

Variant::Variant(std::u16string text) : Variant(MakeRef<TextBody>(std::move(text))) {}

Variant::Variant(Ref<TextBody> text) noexcept : type_(VarType::kString), owns_(1) {
  payload_.shared = text.get();
  payload_.shared->Retain();
}

Variant::Variant(Object* object) noexcept : type_(VarType::kObject), owns_(object ? 1 : 0) {
  payload_.shared = object;
  if (object) object->Retain();
}

Variant::Variant(Ref<ArrayBody> array) noexcept : type_(VarType::kArray), owns_(1) {
  payload_.shared = array.get();
  payload_.shared->Retain();
}

Object* Variant::object() const noexcept { return static_cast<Object*>(payload_.shared); }

const ArrayBody& Variant::array() const noexcept { return *static_cast<const ArrayBody*>(payload_.shared); }

ArrayBody& Variant::MutableArray() {
  if (!array().IsUnshared()) *this = Variant(array().Clone());
  return *static_cast<ArrayBody*>(payload_.shared);
}

ArrayBody::ArrayBody(std::vector<int32_t> dimension_sizes, bool is_fixed)
    : sizes(std::move(dimension_sizes)), fixed(is_fixed) {
  if (sizes.empty()) return;
  uint64_t count = 1;
  for (const int32_t size : sizes) {
    if (size < 0) Raise(error::kSubscriptOutOfRange);
    count *= static_cast<uint64_t>(size);
    if (count > kMostElements) Raise(error::kOutOfMemory);
  }
  elements.resize(static_cast<size_t>(count));
  CountBytes();
}

Ref<ArrayBody> ArrayBody::Clone() const {
  Ref<ArrayBody> copy = MakeRef<ArrayBody>(std::vector<int32_t>{}, fixed);
  copy->sizes = sizes;
  copy->elements = elements;
  copy->CountBytes();
  return copy;
}

std::string_view VarTypeName(VarType type) {
  switch (type) {
    case VarType::kEmpty: return "Empty";
    case VarType::kNull: return "Null";
    case VarType::kInteger: return "Integer";
    case VarType::kLong: return "Long";
    case VarType::kSingle: return "Single";
    case VarType::kDouble: return "Double";
    case VarType::kCurrency: return "Currency";
    case VarType::kDate: return "Date";
    case VarType::kString: return "String";
    case VarType::kObject: return "Object";
    case VarType::kError: return "Error";
    case VarType::kBoolean: return "Boolean";
    case VarType::kByte: return "Byte";
    case VarType::kArray: return "Variant()";
  }
  return "Unknown";
}

}  // namespace kestrun
