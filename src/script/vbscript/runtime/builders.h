// Builds texts and lists under the limits of the running script: time and memory are charged as they grow.
#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/variant.h"
#include "script/vbscript/runtime/context.h"

namespace kestrun::vbs {

// A text that is built piece by piece. Error 14 when it gets longer than a text may be, error 7 when the memory budget
// does not hold it.
class TextBuilder {
 public:
  explicit TextBuilder(RuntimeContext& context, size_t expected_units = 0);
  // Goes on with a text that nobody else holds.
  TextBuilder(RuntimeContext& context, Ref<TextBody> body) : context_(context), body_(std::move(body)) {}

  [[nodiscard]] size_t size() const { return body_->text.size(); }
  void Append(std::u16string_view part) {
    MakeRoom(part.size());
    if (part.size() > kPieceUnits) return AppendLong(part);
    body_->text.append(part);
    CountWork(part.size());
  }
  void Append(char16_t unit) {
    MakeRoom(1);
    body_->text.push_back(unit);
    CountWork(1);
  }
  void Append(size_t count, char16_t unit);
  // The units of `part`, each through `map`.
  template <class Map>
  void AppendMapped(std::u16string_view part, Map map) {
    MakeRoom(part.size());
    ByPieces(context_, part.size(), [&](size_t from, size_t to) {
      const size_t size = body_->text.size();
      body_->text.resize(size + to - from);
      char16_t* out = body_->text.data() + size;
      for (; from < to; ++from) *out++ = map(part[from]);
    });
  }
  // The text so far. Nothing may be appended after that.
  [[nodiscard]] Variant Take() { return Variant(std::move(body_)); }

 private:
  void MakeRoom(size_t units) {
    if (units > body_->text.capacity() - body_->text.size()) Grow(body_->text.size() + units);
  }
  void CountWork(size_t units) {
    uncharged_ += units + kUnitsPerStep / 4;
    if (uncharged_ >= kUnitsPerStep * 16) ChargeWork();
  }
  void Grow(size_t units);
  void AppendLong(std::u16string_view part);
  void ChargeWork();

  RuntimeContext& context_;
  Ref<TextBody> body_;
  size_t uncharged_ = 0;
};

// A list, which becomes an array of one dimension.
class ListBuilder {
 public:
  explicit ListBuilder(RuntimeContext& context, size_t expected = 0);
  [[nodiscard]] size_t size() const { return body_->elements.size(); }
  void Append(Variant value);
  [[nodiscard]] Variant Take();

 private:
  void Grow(size_t count);

  RuntimeContext& context_;
  Ref<ArrayBody> body_;
};

// Any vector that a script can make grow: room for so many elements more, within the memory budget.
template <class Vector>
void MakeRoom(RuntimeContext& context, Vector& vector, size_t count) {
  if (count <= vector.capacity() - vector.size()) return;
  const size_t wanted = std::max({size_t{4}, vector.size() * 2, vector.size() + count});
  context.ChargeMemory(LiveBytes::Block(wanted * sizeof(typename Vector::value_type)));
  vector.reserve(wanted);
}

}  // namespace kestrun::vbs
