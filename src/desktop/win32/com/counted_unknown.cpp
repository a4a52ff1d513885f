#include "desktop/win32/com/counted_unknown.h"

#include <algorithm>
#include <vector>

namespace kestrun {
namespace {

// Guards the counts, and the list of objects without references that wait for the program's thread. Components may let
// go of what they hold while the process ends: the lock is then still there.
SRWLOCK counting = SRWLOCK_INIT;

class CountingLock {
 public:
  CountingLock() { AcquireSRWLockExclusive(&counting); }
  ~CountingLock() { ReleaseSRWLockExclusive(&counting); }
  CountingLock(const CountingLock&) = delete;
  CountingLock& operator=(const CountingLock&) = delete;
};

std::vector<CountedUnknown*>& Abandoned() {
  static std::vector<CountedUnknown*> list;
  return list;
}

}  // namespace

ULONG CountedUnknown::Retain() {
  const CountingLock lock;
  if (references_ == 0) std::erase(Abandoned(), this);
  return ++references_;
}

ULONG CountedUnknown::LetGo() {
  {
    const CountingLock lock;
    if (--references_ > 0) return references_;
    if (!IsOwnThread()) {
      Abandoned().push_back(this);
      return 0;
    }
  }
  delete this;
  return 0;
}

void CountedUnknown::DestroyAbandoned() {
  for (;;) {
    CountedUnknown* next = nullptr;
    {
      const CountingLock lock;
      std::vector<CountedUnknown*>& list = Abandoned();
      const auto found = std::ranges::find_if(list, &CountedUnknown::IsOwnThread);
      if (found == list.end()) return;
      next = *found;
      list.erase(found);
    }
    delete next;
  }
}

}  // namespace kestrun
