#include "base/variant.h"

#include <new>

#include "base/object.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace kestrun {
namespace {

constexpr uint64_t kMostElements = INT32_MAX;

// Blocks of TextBody that nobody uses, linked through their first bytes. Under the address sanitizer none are kept, so
// that it sees every use of a text that has gone.
struct FreeBlock {
  FreeBlock* next;
};
FreeBlock* free_texts = nullptr;
size_t free_text_count = 0;
#ifdef __has_feature
#define KESTRUN_ADDRESS_SANITIZER __has_feature(address_sanitizer)
#elif defined(__SANITIZE_ADDRESS__)
#define KESTRUN_ADDRESS_SANITIZER 1
#else
#define KESTRUN_ADDRESS_SANITIZER 0
#endif
constexpr size_t kMostFreeTexts = KESTRUN_ADDRESS_SANITIZER ? 0 : 256;

}  // namespace

void* TextBody::operator new(size_t size) {
  if (!free_texts) return RefCounted::operator new(size);
  FreeBlock* const block = free_texts;
  free_texts = block->next;
  --free_text_count;
  LiveBytes::Add(LiveBytes::Block(size));
  return block;
}

void TextBody::operator delete(void* block, size_t size) noexcept {
  if (free_text_count >= kMostFreeTexts) return RefCounted::operator delete(block, size);
  LiveBytes::Remove(LiveBytes::Block(size));
  free_texts = new (block) FreeBlock{free_texts};
  ++free_text_count;
}

Variant::Variant(std::string_view utf8) : Variant(ToUtf16(utf8)) {}

Variant::Variant(std::u16string text) : Variant(MakeRef<TextBody>(std::move(text))) {}

Variant::Variant(Object* object) noexcept : tag_{VarType::kObject, 0, object ? kCounted : 0} {
  payload_.shared = object;
  if (object) object->Retain();
}

Variant::Variant(Ref<ArrayBody> array) noexcept : tag_{VarType::kArray, 0, kCounted} {
  payload_.shared = array.get();
  payload_.shared->Retain();
}

Object* Variant::object() const noexcept { return static_cast<Object*>(payload_.shared); }

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
