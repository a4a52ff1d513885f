// Elements of arrays and of objects with indexed members; the size of arrays.
#include <algorithm>
#include <cmath>
#include <iterator>

#include "base/convert.h"
#include "script/vbscript/engine/engine.h"
#include "script/vbscript/machine/iteration.h"
#include "script/vbscript/machine/machine.h"
#include "script/vbscript/machine/numeric.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/operators.h"

namespace kestrun::vbs {
namespace {

constexpr size_t kMostDimensions = 60;

MemberId RequireDefault(const Object& object) {
  const MemberId member = object.DefaultMember();
  if (member == kNoMember) RaiseScript(error::kMemberNotFound);
  return member;
}

// The number of elements that a script may have in one array.
size_t CheckedCount(const std::vector<int32_t>& sizes) {
  constexpr size_t kMostElements = size_t{1} << 26;
  size_t count = 1;
  for (const int32_t size : sizes) {
    if (size != 0 && count > kMostElements / static_cast<size_t>(size)) RaiseScript(error::kOutOfMemory);
    count *= static_cast<size_t>(size);
  }
  return count;
}

int32_t SizeOf(int32_t upper_bound) {
  if (upper_bound < -1 || upper_bound == INT32_MAX) RaiseScript(error::kSubscriptOutOfRange);
  return upper_bound + 1;
}

}  // namespace

int32_t Machine::IndexNumber(const Variant& index) {
  if (index.Is(VarType::kInteger) || index.Is(VarType::kLong)) return index.whole();
  const Variant plain = PlainCopy(index);
  ChargeReading(plain);
  return ToLong(plain);
}

// The first index runs fastest.
size_t Machine::ElementOffset(const ArrayBody& array, Arguments indexes) {
  // A dynamic array without bounds has no element, not even for no index.
  if (indexes.empty() || indexes.size() != array.sizes.size()) RaiseScript(error::kSubscriptOutOfRange);
  size_t offset = 0;
  size_t stride = 1;
  for (size_t dimension = 0; dimension < indexes.size(); ++dimension) {
    const int32_t index = IndexNumber(indexes[dimension]);
    if (index < 0 || index >= array.sizes[dimension]) RaiseScript(error::kSubscriptOutOfRange);
    offset += stride * static_cast<size_t>(index);
    stride *= static_cast<size_t>(array.sizes[dimension]);
  }
  return offset;
}

Variant Machine::IndexedValue(const Variant& object, Arguments indexes) {
  if (object.Is(VarType::kArray)) {
    const Variant held(object);
    const size_t offset = ElementOffset(held.array(), indexes);
    return held.array().elements[offset];
  }
  if (!object.Is(VarType::kObject)) RaiseScript(error::kTypeMismatch);
  const Variant held(object);
  Object& target = ObjectOf(held);
  return target.Get(RequireDefault(target), indexes);
}

// Also what parameters stand for: the variable of the caller that holds the array or the index.
const Instruction* Machine::SlowIndex(const Instruction* pc) {
  if (const Variant* const element = QuickElement(At(pc->b), At(pc->c))) {
    At(pc->a) = *element;
    return pc + 1;
  }
  Variant index(At(pc->c));
  Variant value = IndexedValue(At(pc->b), {&index, 1});
  At(pc->a) = std::move(value);
  return pc + 1;
}

// What runs here may end the array that the left operand has borrowed from: that one becomes a copy first.
const Instruction* Machine::SlowBorrow(const Instruction* pc) {
  if (Variant* const element = QuickElement(At(pc->b), At(pc->c))) {
    Register(pc->a) = Variant::ReferenceTo(element);
    return pc + 1;
  }
  if (pc->n) {
    Variant& left = Register(pc->n - 1);
    if (left.IsReference()) left = Variant(*left.target());
  }
  Variant index(At(pc->c));
  Variant value = IndexedValue(At(pc->b), {&index, 1});
  Register(pc->a) = std::move(value);
  return pc + 1;
}

const Instruction* Machine::SlowStoreIndex(const Instruction* pc) {
  Variant& array = At(pc->a);
  const Variant& value = At(pc->b);
  if (array.Is(VarType::kArray) && value.type() <= VarType::kString) {
    OwnArray(array);
    if (Variant* const element = QuickElement(array, At(pc->c))) {
      *element = value;
      return pc + 1;
    }
  }
  StoreIndexed(array, {&At(pc->c), 1}, value, false);
  return pc + 1;
}

void Machine::StoreIndexed(Variant& object, Arguments indexes, const Variant& value, bool set) {
  if (set) ObjectOrNothing(value);
  if (object.Is(VarType::kArray)) {
    Variant stored = set ? value : CopyOf(PlainCopy(value));
    for (Variant& index : indexes) {
      if (index.Is(VarType::kObject)) index = PlainCopy(index);
    }
    if (!object.Is(VarType::kArray)) RaiseScript(error::kTypeMismatch);
    ArrayBody& body = OwnArray(object);
    body.elements[ElementOffset(body, indexes)] = std::move(stored);
    return;
  }
  if (!object.Is(VarType::kObject)) RaiseScript(error::kTypeMismatch);
  const Variant held(object);
  Object& target = ObjectOf(held);
  const Variant stored(value);
  if (set) {
    target.PutReference(RequireDefault(target), indexes, stored);
  } else {
    target.Put(RequireDefault(target), indexes, stored);
  }
}

Ref<ArrayBody> Machine::MakeArray(std::vector<int32_t> sizes, bool fixed) {
  const size_t count = sizes.empty() ? 0 : CheckedCount(sizes);
  Ref<ArrayBody> body = MakeRef<ArrayBody>(std::vector<int32_t>{}, fixed);
  body->sizes = std::move(sizes);
  Variant holder(body);
  Resize(holder, count);
  return body;
}

Ref<ArrayBody> Machine::CloneArray(const ArrayBody& array) {
  const std::vector<Variant>& from = array.elements;
  Ref<ArrayBody> copy = MakeRef<ArrayBody>(std::vector<int32_t>{}, array.fixed);
  copy->sizes = array.sizes;
  engine_.ChargeMemory(LiveBytes::Block(from.size() * sizeof(Variant)));
  copy->elements.reserve(from.size());
  copy->CountBytes();
  for (size_t at = 0; at < from.size();) {
    const size_t piece = std::min(kPieceElements, from.size() - at);
    Charge(1 + piece / kElementsPerStep);
    const auto first = from.begin() + static_cast<std::ptrdiff_t>(at);
    copy->elements.insert(copy->elements.end(), first, first + static_cast<std::ptrdiff_t>(piece));
    at += piece;
  }
  return copy;
}

// The array holds `count` elements from now on, in as many as it has of each dimension. What is left over ends last,
// when the array is whole again: its end may run scripts that see the array.
void Machine::Resize(Variant& array, size_t count) {
  const Variant held(array);
  auto& body = const_cast<ArrayBody&>(held.array());
  if (count < body.elements.size()) {
    const Ref<ArrayBody> smaller = MakeArray({}, body.fixed);
    smaller->sizes = body.sizes;
    smaller->elements.reserve(count);
    const auto end = body.elements.begin() + static_cast<std::ptrdiff_t>(count);
    smaller->elements.assign(std::make_move_iterator(body.elements.begin()), std::make_move_iterator(end));
    smaller->CountBytes();
    array = Variant(smaller);
    return;
  }
  if (count > body.elements.capacity()) {
    size_t room = std::max(count, 2 * body.elements.size());
    if (LiveBytes::Block(room * sizeof(Variant)) > engine_.memory_left()) room = count;
    engine_.ChargeMemory(LiveBytes::Block(room * sizeof(Variant)));
    Charge(body.elements.size() / kElementsPerStep);
    body.elements.reserve(room);
  }
  body.CountBytes();
  for (size_t at = body.elements.size(); at < count; at += kPieceElements) {
    Charge(1 + std::min(kPieceElements, count - at) / kElementsPerStep);
  }
  body.elements.resize(count);
}

Variant Machine::NewArray(const std::vector<int32_t>& bounds) {
  std::vector<int32_t> sizes;
  std::transform(bounds.begin(), bounds.end(), std::back_inserter(sizes), SizeOf);
  if (sizes.size() > kMostDimensions) RaiseScript(error::kSubscriptOutOfRange);
  const bool fixed = !sizes.empty();
  return Variant(MakeArray(std::move(sizes), fixed));
}

void Machine::ReDimArray(Variant& target, Arguments bounds, bool preserve) {
  if (!preserve && target.Is(VarType::kArray) && target.array().fixed) RaiseScript(error::kArrayLocked);
  std::vector<int32_t> sizes;
  for (const Variant& bound : bounds) sizes.push_back(SizeOf(IndexNumber(bound)));
  if (sizes.size() > kMostDimensions) RaiseScript(error::kSubscriptOutOfRange);
  const size_t count = CheckedCount(sizes);
  const bool was_array = target.Is(VarType::kArray);
  if (was_array && (target.array().fixed || target.array().pins > 0)) RaiseScript(error::kArrayLocked);
  if (!preserve || !was_array || target.array().sizes.empty()) {
    target = Variant(MakeArray(std::move(sizes), false));
    return;
  }
  const std::vector<int32_t>& old = target.array().sizes;
  if (old.size() != sizes.size() || !std::equal(old.begin(), old.end() - 1, sizes.begin())) {
    RaiseScript(error::kSubscriptOutOfRange);
  }
  Variant resized{Ref<ArrayBody>(&OwnArray(target))};
  Resize(resized, count);
  auto& body = const_cast<ArrayBody&>(resized.array());
  body.sizes = std::move(sizes);
  target.Swap(resized);
}

// A fixed array keeps its size and loses its values, one after the other: the end of one may run scripts that see the
// array.
void Machine::EraseArray(Variant& target) {
  if (!target.Is(VarType::kArray)) RaiseScript(error::kTypeMismatch);
  if (target.array().pins > 0) RaiseScript(error::kArrayLocked);
  if (!target.array().fixed) {
    target = Variant(MakeArray({}, false));
    return;
  }
  const Ref<ArrayBody> body(&OwnArray(target));
  for (size_t at = 0; at < body->elements.size(); ++at) {
    if (at % kPieceElements == 0) Charge(kPieceElements / kElementsPerStep);
    const Variant ending = std::move(body->elements[at]);
  }
}

Variant Machine::IterationOver(const Variant& collection) {
  const Variant held(collection);
  if (held.Is(VarType::kArray)) {
    return Variant(MakeRef<IterationState>(Ref<ArrayBody>(const_cast<ArrayBody*>(&held.array()))));
  }
  if (!held.Is(VarType::kObject)) RaiseScript(error::kNotANumberedObject);
  std::unique_ptr<Enumeration> items = ObjectOf(held).Enumerate();
  if (!items) RaiseScript(error::kNotANumberedObject);
  return Variant(MakeRef<IterationState>(std::move(items)));
}

}  // namespace kestrun::vbs
