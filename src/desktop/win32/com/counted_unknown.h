// The references that others hold to one of our COM objects. They may be let go of on any thread; the object itself is
// destroyed on the program's thread only, because what it holds belongs there.
#pragma once

#include <utility>

#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {

class CountedUnknown {
 public:
  CountedUnknown() = default;
  CountedUnknown(const CountedUnknown&) = delete;
  CountedUnknown& operator=(const CountedUnknown&) = delete;

  ULONG Retain();
  // Destroys the object with its last reference; on another thread leaves that to DestroyAbandoned.
  ULONG LetGo();
  // True on the thread that the object was made on.
  [[nodiscard]] bool IsOwnThread() const { return GetCurrentThreadId() == thread_; }

  // Destroys what lost its last reference on another thread.
  static void DestroyAbandoned();

 protected:
  virtual ~CountedUnknown() = default;

 private:
  const DWORD thread_ = GetCurrentThreadId();
  ULONG references_ = 0;
};

// Makes one of our COM objects, with its first reference. `Interface` is the one it is known by.
template <class Interface, class Made, class... Parameters>
[[nodiscard]] ComOwner<Interface> MakeUnknown(Parameters&&... parameters) {
  return ComOwner<Interface>::Share(new Made(std::forward<Parameters>(parameters)...));
}

}  // namespace kestrun
