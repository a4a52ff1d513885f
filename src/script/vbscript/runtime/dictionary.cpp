#include "script/vbscript/runtime/dictionary.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#include "script/vbscript/runtime/builders.h"
#include "script/vbscript/runtime/conversions.h"
#include "script/vbscript/runtime/errors.h"
#include "script/vbscript/runtime/text_search.h"

namespace kestrun::vbs {
namespace {

// More items than any script of this program has a use for; the bound keeps a runaway loop from taking the machine.
constexpr size_t kMostItems = 4'000'000;

bool IsNumberKey(const Variant& key) {
  switch (key.type()) {
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kByte:
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kCurrency:
    case VarType::kDate: return true;
    default: return false;
  }
}

constexpr size_t kNowhere = SIZE_MAX;
constexpr size_t kFirstSlots = 16;
// Hashing and comparing a text takes about as long as copying it this many times.
constexpr size_t kHashingPasses = 8;

// Spreads the bits of a key over the whole word.
uint64_t Spread(uint64_t bits) {
  bits = (bits ^ bits >> 32) * 0x9E3779B97F4A7C15U;
  return bits ^ bits >> 29;
}

bool IsCounting(const Variant& key) { return key.Is(VarType::kInteger) || key.Is(VarType::kLong); }

double NumberOf(const Variant& key) { return (IsCounting(key) ? key.whole() : ToDouble(key)) + 0.0; }

uint64_t HashText(const std::u16string& text, bool ignore_case) {
  uint64_t hash = 14695981039346656037U;  // FNV-1a
  for (const char16_t unit : text) hash = (hash ^ (ignore_case ? LowerUnit(unit) : unit)) * 1099511628211U;
  return Spread(hash);
}

bool EqualTexts(const std::u16string& left, const std::u16string& right, bool ignore_case) {
  if (!ignore_case || left.size() != right.size()) return left == right;
  for (size_t at = 0; at < left.size(); ++at) {
    if (LowerUnit(left[at]) != LowerUnit(right[at])) return false;
  }
  return true;
}

void CheckKey(const Variant& key) {
  if (key.Is(VarType::kArray) || key.Is(VarType::kError)) RaiseScript(error::kInvalidProcedureCall);
}

Dictionary& Self(Object& object) { return static_cast<Dictionary&>(object); }

constexpr MemberId kItemMember = 0;

constexpr std::array kRows{
    Member{"Item", MemberKind::kReadWrite, 1, 1,
           [](Object& self, Arguments arguments) { return Self(self).Item(arguments[0]); },
           [](Object& self, Arguments arguments, const Variant& value) { Self(self).SetItem(arguments[0], value); }},
    Member{"Add", MemberKind::kMethod, 2, 2,
           [](Object& self, Arguments arguments) {
             Self(self).Add(arguments[0], arguments[1]);
             return Variant();
           }},
    Member{"CompareMode", MemberKind::kReadWrite, 0, 0,
           [](Object& self, Arguments) { return Variant(int32_t{Self(self).compare_mode()}); },
           [](Object& self, Arguments, const Variant& value) { Self(self).set_compare_mode(ToLong(value)); }},
    Member{"Count", MemberKind::kReadOnly, 0, 0,
           [](Object& self, Arguments) { return CountValue(Self(self).Count()); }},
    Member{"Exists", MemberKind::kMethod, 1, 1,
           [](Object& self, Arguments arguments) { return Variant(Self(self).Exists(arguments[0])); }},
    Member{"Items", MemberKind::kMethod, 0, 0, [](Object& self, Arguments) { return Self(self).Items(); }},
    Member{"Key", MemberKind::kWriteOnly, 1, 1, nullptr,
           [](Object& self, Arguments arguments, const Variant& value) { Self(self).ChangeKey(arguments[0], value); }},
    Member{"Keys", MemberKind::kMethod, 0, 0, [](Object& self, Arguments) { return Self(self).Keys(); }},
    Member{"Remove", MemberKind::kMethod, 1, 1,
           [](Object& self, Arguments arguments) {
             Self(self).Remove(arguments[0]);
             return Variant();
           }},
    Member{"RemoveAll", MemberKind::kMethod, 0, 0,
           [](Object& self, Arguments) {
             Self(self).RemoveAll();
             return Variant();
           }},
};

constexpr MemberTable kMembers{nullptr, kRows};

// The keys of one moment.
class KeyWalk final : public Enumeration {
 public:
  explicit KeyWalk(Variant keys) : keys_(std::move(keys)) {}
  bool Next(Variant& item) override {
    const std::vector<Variant>& keys = keys_.array().elements;
    if (at_ == keys.size()) return false;
    item = keys[at_++];
    return true;
  }

 private:
  Variant keys_;
  size_t at_ = 0;
};

}  // namespace

uint64_t Dictionary::HashOf(const Variant& key) const {
  if (IsNumberKey(key)) return Spread(std::bit_cast<uint64_t>(NumberOf(key)));
  if (key.Is(VarType::kString)) {
    Charge(key.text().size() * kHashingPasses / kUnitsPerStep);
    return HashText(key.text(), ignore_case_);
  }
  if (key.Is(VarType::kObject)) return Spread(reinterpret_cast<uintptr_t>(key.object()));
  return Spread(static_cast<uint64_t>(key.type()) * 2 + (key.Is(VarType::kBoolean) && key.boolean() ? 1 : 0));
}

bool Dictionary::SameKey(const Variant& left, const Variant& right) const {
  if (IsCounting(left) && IsCounting(right)) return left.whole() == right.whole();
  if (IsNumberKey(left)) return IsNumberKey(right) && NumberOf(left) == NumberOf(right);
  if (left.type() != right.type()) return false;
  switch (left.type()) {
    case VarType::kString: return EqualTexts(left.text(), right.text(), ignore_case_);
    case VarType::kObject: return left.object() == right.object();
    case VarType::kBoolean: return left.boolean() == right.boolean();
    default: return true;
  }
}

Dictionary::Dictionary(RuntimeContext& context) : handle_(context.handle()), slots_(kFirstSlots) { CountBytes(); }

// A dictionary that a host has kept longer than its engine works on without limits.
void Dictionary::Charge(uint64_t steps) const {
  if (RuntimeContext* const context = handle_->context()) context->Charge(steps);
}

void Dictionary::ChargeMemory(size_t bytes) const {
  if (RuntimeContext* const context = handle_->context()) context->ChargeMemory(bytes);
}

const MemberTable& Dictionary::Members() const { return kMembers; }

MemberId Dictionary::DefaultMember() const { return kItemMember; }

std::unique_ptr<Enumeration> Dictionary::Enumerate() { return std::make_unique<KeyWalk>(Keys()); }

size_t Dictionary::Find(const Variant& key, uint64_t hash) const {
  const size_t mask = slots_.size() - 1;
  for (size_t slot = hash & mask; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const Entry& entry = entries_[slots_[slot] - 1];
    if (entry.present && entry.hash == hash && SameKey(entry.key, key)) return slots_[slot] - 1;
  }
  return kNowhere;
}

size_t Dictionary::FindPresent(const Variant& key) const {
  CheckKey(key);
  const size_t place = Find(key, HashOf(key));
  if (place == kNowhere) RaiseScript(error::kElementNotFound);
  return place;
}

void Dictionary::Link(size_t place) {
  const size_t mask = slots_.size() - 1;
  size_t slot = entries_[place].hash & mask;
  while (slots_[slot] != 0) slot = (slot + 1) & mask;
  slots_[slot] = static_cast<uint32_t>(place + 1);
  ++used_slots_;
}

// Drops the gaps and gives the slots room for twice as many items as there are.
void Dictionary::Rebuild() {
  const size_t count = std::bit_ceil(std::max(kFirstSlots, count_ * 4));
  ChargeMemory(LiveBytes::Block(count * sizeof(uint32_t)));
  Charge(1 + entries_.size() / kElementsPerStep);
  slots_ = std::vector<uint32_t>(count);  // from here on nothing fails
  std::erase_if(entries_, [](const Entry& entry) { return !entry.present; });
  used_slots_ = 0;
  for (size_t place = 0; place < entries_.size(); ++place) Link(place);
  CountBytes();
}

void Dictionary::MakeRoom() {
  if ((used_slots_ + 1) * 2 > slots_.size()) Rebuild();
  if (entries_.size() < entries_.capacity()) return;
  const size_t wanted = std::max<size_t>(8, entries_.size() * 2);
  ChargeMemory(LiveBytes::Block(wanted * sizeof(Entry)));
  Charge(1 + entries_.size() / kElementsPerStep);
  entries_.reserve(wanted);
  CountBytes();
}

Dictionary::Entry& Dictionary::Append(const Variant& key, const Variant& item, uint64_t hash) {
  if (count_ >= kMostItems) RaiseScript(error::kOutOfMemory);
  ChargeMemory(0);
  MakeRoom();
  Entry& entry = entries_.emplace_back(Entry{key, item, hash});
  Link(entries_.size() - 1);
  ++count_;
  return entry;
}

Dictionary::Entry& Dictionary::FindOrAdd(const Variant& key) {
  CheckKey(key);
  const uint64_t hash = HashOf(key);
  const size_t place = Find(key, hash);
  return place == kNowhere ? Append(key, Variant(), hash) : entries_[place];
}

void Dictionary::Add(const Variant& key, const Variant& item) {
  CheckKey(key);
  const uint64_t hash = HashOf(key);
  if (Find(key, hash) != kNowhere) RaiseScript(error::kKeyExists);
  Append(key, item, hash);
}

bool Dictionary::Exists(const Variant& key) const {
  CheckKey(key);
  return Find(key, HashOf(key)) != kNowhere;
}

const Variant& Dictionary::Item(const Variant& key) { return FindOrAdd(key).item; }

void Dictionary::SetItem(const Variant& key, const Variant& item) {
  // The old item is let go last: its end may run code that comes back here.
  Variant value = item;
  FindOrAdd(key).item.Swap(value);
}

void Dictionary::ChangeKey(const Variant& key, const Variant& new_key) {
  CheckKey(new_key);
  size_t place = FindPresent(key);
  const uint64_t hash = HashOf(new_key);
  const size_t same = Find(new_key, hash);
  if (same != kNowhere && same != place) RaiseScript(error::kKeyExists);
  if ((used_slots_ + 1) * 2 > slots_.size()) {
    Rebuild();
    place = FindPresent(key);
  }
  const Variant old_key = std::exchange(entries_[place].key, new_key);
  entries_[place].hash = hash;
  Link(place);
}

void Dictionary::Remove(const Variant& key) {
  const size_t place = FindPresent(key);
  const Entry removed = std::move(entries_[place]);
  entries_[place].present = false;
  --count_;
}

void Dictionary::RemoveAll() {
  count_ = 0;
  used_slots_ = 0;
  slots_.resize(kFirstSlots);
  slots_.shrink_to_fit();
  std::fill(slots_.begin(), slots_.end(), 0);
  const std::vector<Entry> removed = std::exchange(entries_, {});
  Charge(removed.size() / kElementsPerStep);
  CountBytes();
}

template <class Pick>
Variant Dictionary::List(Pick pick) const {
  RuntimeContext* const context = handle_->context();
  if (!context) Raise(error::kObjectRequired);
  ListBuilder list(*context, Count());
  for (const Entry& entry : entries_) {
    if (entry.present) list.Append(pick(entry));
  }
  return list.Take();
}

Variant Dictionary::Keys() const {
  return List([](const Entry& entry) { return entry.key; });
}

Variant Dictionary::Items() const {
  return List([](const Entry& entry) { return entry.item; });
}

void Dictionary::set_compare_mode(int mode) {
  if (Count() != 0 || mode < 0 || mode > 2) RaiseScript(error::kInvalidProcedureCall);
  RemoveAll();
  ignore_case_ = mode != 0;
}

}  // namespace kestrun::vbs
