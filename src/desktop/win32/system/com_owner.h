// A move-only owner of one COM reference.
#pragma once

#include <utility>

#include "desktop/win32/system/windows_api.h"

namespace kestrun {

template <class Interface>
class ComOwner {
 public:
  ComOwner() = default;
  ComOwner(ComOwner&& other) noexcept : target_(std::exchange(other.target_, nullptr)) {}
  ComOwner& operator=(ComOwner&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.target_, nullptr));
    return *this;
  }
  ComOwner(const ComOwner&) = delete;
  ComOwner& operator=(const ComOwner&) = delete;
  ~ComOwner() { Reset(); }

  [[nodiscard]] Interface* get() const { return target_; }
  Interface* operator->() const { return target_; }
  explicit operator bool() const { return target_ != nullptr; }
  // Where a call puts a new reference; what was held before is released.
  [[nodiscard]] Interface** Receive() {
    Reset();
    return &target_;
  }
  // Hands the reference over to somebody who releases it by hand.
  [[nodiscard]] Interface* Detach() { return std::exchange(target_, nullptr); }
  // One more owner of a reference that somebody else holds.
  [[nodiscard]] static ComOwner Share(Interface* target) {
    ComOwner owner;
    if (target) target->AddRef();
    owner.target_ = target;
    return owner;
  }
  [[nodiscard]] void** ReceiveAny() { return reinterpret_cast<void**>(Receive()); }

 private:
  void Reset(Interface* target = nullptr) {
    if (Interface* old = std::exchange(target_, target)) old->Release();
  }

  Interface* target_ = nullptr;
};

}  // namespace kestrun
