// Intrusive reference counting for everything that scripts and windows share on the one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

namespace kestrun {

// Base of objects whose lifetime is a count of Ref<T>. Not thread-safe on purpose: all logic runs on one thread.
class RefCounted {
 public:
  RefCounted() = default;
  RefCounted(const RefCounted&) = delete;
  RefCounted& operator=(const RefCounted&) = delete;

  void Retain() noexcept { ++references_; }
  void Release() noexcept {
    if (--references_ == 0) LastReferenceGone();
  }
  [[nodiscard]] uint32_t references() const noexcept { return references_; }

  // What such objects take is counted, because scripts can make and keep them.
  static void* operator new(size_t size);
  static void operator delete(void* block, size_t size) noexcept;

 protected:
  virtual ~RefCounted() = default;
  // Called when the count reaches zero; the default destroys the object.
  virtual void LastReferenceGone() noexcept { Destroy(this); }
  // Deletes, or queues the deletion when many owners are ending inside each other: a chain of a million objects must
  // not take a million stack frames to end. The queue is linked through the objects, so that it needs no memory.
  static void Destroy(RefCounted* object) noexcept;

 private:
  inline static int nesting_ = 0;  // of objects that are ending inside each other
  inline static RefCounted* waiting_ = nullptr;
  RefCounted* next_waiting_ = nullptr;
  uint32_t references_ = 0;
};

// Owning pointer to a RefCounted. Empty by default.
template <class T>
class Ref {
 public:
  Ref() noexcept = default;
  Ref(std::nullptr_t) noexcept {}
  explicit Ref(T* target) noexcept : target_(target) {
    if (target_) target_->Retain();
  }
  Ref(const Ref& other) noexcept : Ref(other.target_) {}
  Ref(Ref&& other) noexcept : target_(std::exchange(other.target_, nullptr)) {}
  template <class U>
  Ref(const Ref<U>& other) noexcept : Ref(other.get()) {}
  ~Ref() { Reset(); }

  Ref& operator=(Ref other) noexcept {
    std::swap(target_, other.target_);
    return *this;
  }

  void Reset() noexcept {
    if (T* old = std::exchange(target_, nullptr)) old->Release();
  }

  // Hands the reference over to somebody who counts by hand.
  [[nodiscard]] T* Detach() noexcept { return std::exchange(target_, nullptr); }

  [[nodiscard]] T* get() const noexcept { return target_; }
  T& operator*() const noexcept { return *target_; }
  T* operator->() const noexcept { return target_; }
  explicit operator bool() const noexcept { return target_ != nullptr; }
  friend bool operator==(const Ref& left, const Ref& right) noexcept { return left.target_ == right.target_; }

 private:
  T* target_ = nullptr;
};

template <class T, class... Arguments>
[[nodiscard]] Ref<T> MakeRef(Arguments&&... arguments) {
  return Ref<T>(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace kestrun
