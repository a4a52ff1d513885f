// Scripting.Dictionary: items by key, in the order in which the keys came.
#pragma once

#include <cstdint>
#include <vector>

#include "base/object.h"
#include "script/vbscript/runtime/context.h"

namespace kestrun::vbs {

// Keys are compared by value: numbers and dates of any type by their number, texts by their units or without regard to
// case, objects by identity. Arrays are no keys (error 5).
class Dictionary final : public TableObject {
 public:
  explicit Dictionary(RuntimeContext& context);

  [[nodiscard]] std::string TypeName() const override { return "Dictionary"; }
  [[nodiscard]] const MemberTable& Members() const override;
  [[nodiscard]] MemberId DefaultMember() const override;
  // Walks the keys that are there when the walk begins.
  [[nodiscard]] std::unique_ptr<Enumeration> Enumerate() override;

  // Error 457 when the key is there.
  void Add(const Variant& key, const Variant& item);
  [[nodiscard]] bool Exists(const Variant& key) const;
  // A key that is not there is added with Empty.
  [[nodiscard]] const Variant& Item(const Variant& key);
  void SetItem(const Variant& key, const Variant& item);
  // Gives an item another key. 32811 when there is no such item, 457 when the new key is there.
  void ChangeKey(const Variant& key, const Variant& new_key);
  // 32811 when the key is not there.
  void Remove(const Variant& key);
  void RemoveAll();
  [[nodiscard]] Variant Keys() const;
  [[nodiscard]] Variant Items() const;
  [[nodiscard]] size_t Count() const { return count_; }
  [[nodiscard]] int compare_mode() const { return ignore_case_ ? 1 : 0; }
  // Error 5 once there are items.
  void set_compare_mode(int mode);

 private:
  struct Entry {
    Variant key;
    Variant item;
    uint64_t hash = 0;
    bool present = true;
  };

  [[nodiscard]] uint64_t HashOf(const Variant& key) const;
  [[nodiscard]] bool SameKey(const Variant& left, const Variant& right) const;
  // The place of a key's entry, or kNowhere. Error 5 for what is no key.
  [[nodiscard]] size_t Find(const Variant& key, uint64_t hash) const;
  [[nodiscard]] size_t FindPresent(const Variant& key) const;
  Entry& FindOrAdd(const Variant& key);
  Entry& Append(const Variant& key, const Variant& item, uint64_t hash);
  void Link(size_t place);
  void Rebuild();
  void MakeRoom();
  void CountBytes() { bytes_.Set(LiveBytes::BlockOf(entries_) + LiveBytes::BlockOf(slots_)); }
  void Charge(uint64_t steps) const;
  void ChargeMemory(size_t bytes) const;
  template <class Pick>
  [[nodiscard]] Variant List(Pick pick) const;

  Ref<ContextHandle> handle_;
  LiveBytes bytes_;
  bool ignore_case_ = false;
  size_t count_ = 0;
  std::vector<Entry> entries_;  // in the order of their coming, with gaps where items were removed
  // Open addressing: places in entries_ plus one, 0 for a free slot. A slot whose entry is gone, or has another key by
  // now, is passed over and dropped at the next rebuild.
  std::vector<uint32_t> slots_;
  size_t used_slots_ = 0;
};

}  // namespace kestrun::vbs
