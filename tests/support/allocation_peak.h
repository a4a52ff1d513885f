// How much memory a piece of work takes at most, counted by the address sanitizer. Without it nothing is counted.
#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define KESTRUN_COUNTS_MEMORY
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KESTRUN_COUNTS_MEMORY
#endif
#endif

#ifdef KESTRUN_COUNTS_MEMORY
#include <sanitizer/allocator_interface.h>

#include <atomic>

namespace kestrun {

// Counts from its beginning on. One at a time.
class AllocationPeak {
 public:
  AllocationPeak() {
    static const int installed = __sanitizer_install_malloc_and_free_hooks(&Allocated, &Freed);
    static_cast<void>(installed);
    bytes() = 0;
    peak() = 0;
  }
  [[nodiscard]] static long long Bytes() { return peak(); }

 private:
  static std::atomic<long long>& bytes() {
    static std::atomic<long long> count;
    return count;
  }
  static std::atomic<long long>& peak() {
    static std::atomic<long long> count;
    return count;
  }
  static void Allocated(const volatile void*, size_t size) {
    const long long now = bytes() += static_cast<long long>(size);
    if (now > peak()) peak() = now;
  }
  static void Freed(const volatile void* block) {
    if (block) bytes() -= static_cast<long long>(__sanitizer_get_allocated_size(const_cast<const void*>(block)));
  }
};

}  // namespace kestrun
#endif
