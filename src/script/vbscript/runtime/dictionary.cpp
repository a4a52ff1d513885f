#include "script/vbscript/runtime/dictionary.h"

#include <array>
#include <functional>

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

size_t HashText(const std::u16string& text, bool ignore_case) {
  uint64_t hash = 14695981039346656037U;  // FNV-1a
  for (const char16_t unit : text) hash = (hash ^ (ignore_case ? LowerUnit(unit) : unit)) * 1099511628211U;
  return static_cast<size_t>(hash);
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

size_t Dictionary::KeyHash::operator()(const Variant& key) const {
  if (IsNumberKey(key)) return std::hash<double>()(ToDouble(key));
  if (key.Is(VarType::kString)) return HashText(key.text(), *ignore_case);
  if (key.Is(VarType::kObject)) return std::hash<const void*>()(key.object());
  return static_cast<size_t>(key.type()) * 31 + (key.Is(VarType::kBoolean) && key.boolean() ? 1 : 0);
}

bool Dictionary::KeyEqual::operator()(const Variant& left, const Variant& right) const {
  if (IsNumberKey(left)) return IsNumberKey(right) && ToDouble(left) == ToDouble(right);
  if (left.type() != right.type()) return false;
  switch (left.type()) {
    case VarType::kString: return EqualTexts(left.text(), right.text(), *ignore_case);
    case VarType::kObject: return left.object() == right.object();
    case VarType::kBoolean: return left.boolean() == right.boolean();
    default: return true;
  }
}

Dictionary::Dictionary(RuntimeContext&) : places_(16, KeyHash{&ignore_case_}, KeyEqual{&ignore_case_}) {}

const MemberTable& Dictionary::Members() const { return kMembers; }

MemberId Dictionary::DefaultMember() const { return kItemMember; }

std::unique_ptr<Enumeration> Dictionary::Enumerate() { return std::make_unique<KeyWalk>(Keys()); }

Dictionary::Entry& Dictionary::Append(const Variant& key, const Variant& item) {
  if (places_.size() >= kMostItems) RaiseScript(error::kOutOfMemory);
  DropGaps();
  places_.emplace(key, entries_.size());
  return entries_.emplace_back(Entry{key, item});
}

// Gaps are dropped once they outnumber the items, so that adding and removing by turns stays cheap.
void Dictionary::DropGaps() {
  if (entries_.size() < 32 || entries_.size() < places_.size() * 2) return;
  std::vector<Entry> kept;
  kept.reserve(places_.size() + 1);
  for (Entry& entry : entries_) {
    if (!entry.present) continue;
    places_[entry.key] = kept.size();
    kept.push_back(std::move(entry));
  }
  entries_ = std::move(kept);
}

Dictionary::Entry& Dictionary::FindOrAdd(const Variant& key) {
  CheckKey(key);
  const auto found = places_.find(key);
  return found == places_.end() ? Append(key, Variant()) : entries_[found->second];
}

void Dictionary::Add(const Variant& key, const Variant& item) {
  if (Exists(key)) RaiseScript(error::kKeyExists);
  Append(key, item);
}

bool Dictionary::Exists(const Variant& key) const {
  CheckKey(key);
  return places_.contains(key);
}

const Variant& Dictionary::Item(const Variant& key) { return FindOrAdd(key).item; }

void Dictionary::SetItem(const Variant& key, const Variant& item) {
  // The old item is let go last: its end may run code that comes back here.
  Variant value = item;
  FindOrAdd(key).item.Swap(value);
}

void Dictionary::ChangeKey(const Variant& key, const Variant& new_key) {
  CheckKey(key);
  CheckKey(new_key);
  const auto found = places_.find(key);
  if (found == places_.end()) RaiseScript(error::kElementNotFound);
  const size_t place = found->second;
  const auto same = places_.find(new_key);
  if (same != places_.end() && same->second != place) RaiseScript(error::kKeyExists);
  places_.erase(found);
  places_.emplace(new_key, place);
  entries_[place].key = new_key;
}

void Dictionary::Remove(const Variant& key) {
  CheckKey(key);
  const auto found = places_.find(key);
  if (found == places_.end()) RaiseScript(error::kElementNotFound);
  const Entry removed = std::move(entries_[found->second]);
  entries_[found->second].present = false;
  places_.erase(found);
}

void Dictionary::RemoveAll() {
  places_.clear();
  const std::vector<Entry> removed = std::exchange(entries_, {});
}

template <class Pick>
Variant Dictionary::List(Pick pick) const {
  Ref<ArrayBody> list = MakeRef<ArrayBody>(std::vector<int32_t>{});
  list->sizes = {static_cast<int32_t>(Count())};
  list->elements.reserve(Count());
  for (const Entry& entry : entries_) {
    if (entry.present) list->elements.push_back(pick(entry));
  }
  return Variant(std::move(list));
}

Variant Dictionary::Keys() const {
  return List([](const Entry& entry) { return entry.key; });
}

Variant Dictionary::Items() const {
  return List([](const Entry& entry) { return entry.item; });
}

void Dictionary::set_compare_mode(int mode) {
  if (Count() != 0 || mode < 0 || mode > 2) RaiseScript(error::kInvalidProcedureCall);
  places_.clear();
  ignore_case_ = mode != 0;
}

}  // namespace kestrun::vbs
