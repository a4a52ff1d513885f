// The value that late-bound members take and give, and that the script engine computes with: 16 bytes, the types and
// type numbers of automation variants. Texts, objects and arrays are shared by reference count; a text or an array that
// is shared is copied before it is changed, so that both behave as values.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/live_bytes.h"
#include "base/ref.h"

namespace kestrun {

class Object;

// The numbers that VarType gives.
enum class VarType : uint16_t {
  kEmpty = 0,
  kNull = 1,
  kInteger = 2,   // 16-bit signed
  kLong = 3,      // 32-bit signed
  kSingle = 4,    // IEEE single
  kDouble = 5,    // IEEE double
  kCurrency = 6,  // 64-bit signed, in units of 1/10000
  kDate = 7,      // double: days since 1899-12-30, the fraction is the time of day
  kString = 8,    // UTF-16
  kObject = 9,    // reference to an Object, or Nothing
  kError = 10,    // 32-bit code; kMissingArgument marks an argument that was left out
  kBoolean = 11,  // all bits set or clear
  kByte = 17,     // 8-bit unsigned
  kArray = 0x200C,
};

// The code of the kError value that stands for a left-out argument (DISP_E_PARAMNOTFOUND).
inline constexpr int32_t kMissingArgument = static_cast<int32_t>(0x80020004);

// A shared UTF-16 text. May hold lone surrogates.
class TextBody final : public RefCounted {
  LiveBytes bytes_;  // in front of the text, where the base class leaves room for it

 public:
  TextBody() = default;
  explicit TextBody(std::u16string content) : text(std::move(content)) { CountBytes(); }
  // For whoever has changed the text a lot.
  void CountBytes() noexcept { bytes_.Set(BytesOf(text.capacity())); }
  // What a text of this capacity takes beside its object. A short one stands in the object itself.
  [[nodiscard]] static size_t BytesOf(size_t capacity) noexcept {
    constexpr size_t kInObject = 7;
    return capacity <= kInObject ? 0 : LiveBytes::Block((capacity + 1) * sizeof(char16_t));
  }
  // Texts come and go all the time: some of the memory of those that have gone is kept for the next.
  static void* operator new(size_t size);
  static void operator delete(void* block, size_t size) noexcept;

  std::u16string text;
  // The last unit holds a single byte, its low one: scripts also keep bytes in texts, and any number of them.
  bool half_unit = false;

 private:
  void LastReferenceGone() noexcept override { delete this; }
};

class ArrayBody;

class Variant {
 public:
  Variant() noexcept : tag_{} {}
  Variant(bool value) noexcept : tag_{VarType::kBoolean} { payload_.boolean = value; }
  Variant(int16_t value) noexcept : tag_{VarType::kInteger} { payload_.whole = value; }
  Variant(int32_t value) noexcept : tag_{VarType::kLong} { payload_.whole = value; }
  Variant(uint8_t value) noexcept : tag_{VarType::kByte} { payload_.whole = value; }
  Variant(float value) noexcept : tag_{VarType::kSingle} { payload_.real = static_cast<double>(value); }
  Variant(double value) noexcept : tag_{VarType::kDouble} { payload_.real = value; }
  // UTF-8 text.
  Variant(std::string_view utf8);
  Variant(const std::string& utf8) : Variant(std::string_view(utf8)) {}
  Variant(const char* utf8) : Variant(std::string_view(utf8)) {}
  explicit Variant(std::u16string text);
  explicit Variant(Ref<TextBody> text) noexcept : tag_{VarType::kString, 0, kCounted} {
    payload_.shared = text.Detach();
  }
  // A reference; an empty Ref is Nothing.
  template <class T>
  requires std::is_base_of_v<Object, T> Variant(const Ref<T>& object)
  noexcept : Variant(static_cast<Object*>(object.get())) {}
  Variant(Object* object) noexcept;
  explicit Variant(Ref<ArrayBody> array) noexcept;

  [[nodiscard]] static Variant Null() noexcept { return Tagged(VarType::kNull, 0); }
  [[nodiscard]] static Variant Nothing() noexcept { return Variant(static_cast<Object*>(nullptr)); }
  [[nodiscard]] static Variant Error(int32_t code) noexcept { return Tagged(VarType::kError, code); }
  [[nodiscard]] static Variant Missing() noexcept { return Error(kMissingArgument); }
  [[nodiscard]] static Variant Currency(int64_t ten_thousandths) noexcept {
    Variant value = Tagged(VarType::kCurrency, 0);
    value.payload_.scaled = ten_thousandths;
    return value;
  }
  [[nodiscard]] static Variant Date(double days) noexcept {
    Variant value(days);
    value.tag_.type = VarType::kDate;
    return value;
  }

  Variant(const Variant& other) noexcept : tag_(other.tag_), payload_(other.payload_) {
    if (owns()) payload_.shared->Retain();
  }
  Variant(Variant&& other) noexcept : tag_(other.tag_), payload_(other.payload_) { other.tag_ = Tag{}; }
  ~Variant() {
    if (owns()) payload_.shared->Release();
  }
  // The old content is let go last: its end may run a script that sees this value again.
  Variant& operator=(const Variant& other) noexcept {
    if (other.owns()) other.payload_.shared->Retain();
    Replace(other.tag_, other.payload_);
    return *this;
  }
  Variant& operator=(Variant&& other) noexcept {
    const Payload payload = other.payload_;
    const Tag tag = other.tag_;
    other.tag_ = Tag{};
    Replace(tag, payload);
    return *this;
  }
  void Swap(Variant& other) noexcept {
    std::swap(tag_, other.tag_);
    std::swap(payload_, other.payload_);
  }

  void SetBoolean(bool value) noexcept {
    Payload payload;
    payload.boolean = value;
    Replace({VarType::kBoolean}, payload);
  }
  // For a value that is plain: nothing has to be let go, and no other variable is meant.
  [[nodiscard]] bool IsPlain() const noexcept { return tag_.special == 0; }
  void OverwritePlain(const Variant& other) noexcept {
    tag_ = other.tag_;
    payload_ = other.payload_;
  }
  void OverwriteWhole(VarType type, int32_t value) noexcept {
    tag_ = {type};
    payload_.whole = value;
  }
  void OverwriteReal(VarType type, double value) noexcept {
    tag_ = {type};
    payload_.real = value;
  }
  // True while it holds a counted reference.
  [[nodiscard]] bool owns() const noexcept { return tag_.special == kCounted; }
  // Back to Empty if it holds a counted reference; otherwise the value may stay.
  void DropReference() noexcept {
    if (owns()) Clear();
  }
  // Back to Empty.
  void Clear() noexcept { Replace({}, Payload{}); }

  [[nodiscard]] VarType type() const noexcept { return tag_.type; }
  [[nodiscard]] bool Is(VarType type) const noexcept { return tag_.type == type; }
  [[nodiscard]] bool IsMissing() const noexcept {
    return tag_.type == VarType::kError && payload_.whole == kMissingArgument;
  }

  // A stand-in for another variable, used inside the script engine for what is passed by reference.
  [[nodiscard]] static Variant ReferenceTo(Variant* target) noexcept {
    Variant value;
    value.tag_ = {kReference, 0, kStandIn};
    value.payload_.target = target;
    return value;
  }
  [[nodiscard]] bool IsReference() const noexcept { return tag_.type == kReference; }
  [[nodiscard]] Variant* target() const noexcept { return payload_.target; }

  // Payloads. The caller knows the type: whole() for Integer, Long, Byte and Error; real() for Single, Double and Date.
  [[nodiscard]] int32_t whole() const noexcept { return payload_.whole; }
  [[nodiscard]] double real() const noexcept { return payload_.real; }
  [[nodiscard]] bool boolean() const noexcept { return payload_.boolean; }
  [[nodiscard]] int64_t scaled() const noexcept { return payload_.scaled; }
  [[nodiscard]] const std::u16string& text() const noexcept {
    return static_cast<const TextBody*>(payload_.shared)->text;
  }
  [[nodiscard]] TextBody* text_body() const noexcept { return static_cast<TextBody*>(payload_.shared); }
  // Null for Nothing.
  [[nodiscard]] Object* object() const noexcept;
  [[nodiscard]] const ArrayBody& array() const noexcept;
  // The array for changing: copied first when it is shared.
  [[nodiscard]] ArrayBody& MutableArray();

 private:
  static constexpr VarType kReference = static_cast<VarType>(0x4000);
  static constexpr uint32_t kCounted = 1;  // the payload is a counted reference
  static constexpr uint32_t kStandIn = 2;  // the payload is another variable

  // Eight bytes, which are written and copied at once.
  struct Tag {
    VarType type = VarType::kEmpty;
    uint16_t unused = 0;
    uint32_t special = 0;  // kCounted, kStandIn, or 0 for what can simply be copied and overwritten
  };

  static Variant Tagged(VarType type, int32_t whole) noexcept {
    Variant value;
    value.tag_.type = type;
    value.payload_.whole = whole;
    return value;
  }

  union Payload {
    int64_t scaled = 0;
    int32_t whole;
    double real;
    bool boolean;
    RefCounted* shared;
    Variant* target;
  };

  [[gnu::always_inline]] void Replace(Tag tag, Payload payload) noexcept {
    RefCounted* const old = owns() ? payload_.shared : nullptr;
    tag_ = tag;
    payload_ = payload;
    if (old) old->Release();
  }

  Tag tag_;
  Payload payload_;
};

static_assert(sizeof(Variant) == 16);

// An array of variants with up to 60 dimensions; lower bounds are 0. The first index runs fastest in memory.
class ArrayBody final : public RefCounted {
 public:
  // Empty `sizes` is an array that was declared and not yet dimensioned. Error 9 for a negative size, 7 for more
  // elements than a 32-bit count holds.
  explicit ArrayBody(std::vector<int32_t> sizes, bool fixed = false);
  // A copy of bounds and elements.
  [[nodiscard]] Ref<ArrayBody> Clone() const;

  // Elements that are passed by reference hold the array in place: while one is, it counts in both numbers.
  [[nodiscard]] bool IsUnshared() const noexcept { return references() <= 1 + pins; }

  std::vector<int32_t> sizes;  // number of elements in each dimension
  uint32_t pins = 0;           // references that do not make the array a shared value; it may not change its size
  bool fixed = false;          // dimensioned by Dim: neither ReDim nor assignment may replace it
  std::vector<Variant> elements;

  // For whoever has changed the number of elements.
  void CountBytes() noexcept { bytes_.Set(LiveBytes::BlockOf(elements) + LiveBytes::BlockOf(sizes)); }

 private:
  LiveBytes bytes_;
};

inline const ArrayBody& Variant::array() const noexcept { return *static_cast<const ArrayBody*>(payload_.shared); }

// Names as TypeName gives them for values that are no objects: "Integer", "String", "Variant()" ...
[[nodiscard]] std::string_view VarTypeName(VarType type);

}  // namespace kestrun
