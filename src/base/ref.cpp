#include "base/ref.h"

#include <new>

#include "base/live_bytes.h"

namespace kestrun {
namespace {

constexpr int kDeepestNesting = 64;

}  // namespace

void* RefCounted::operator new(size_t size) {
  void* const block = ::operator new(size);
  LiveBytes::Add(LiveBytes::Block(size));
  return block;
}

void RefCounted::operator delete(void* block, size_t size) noexcept {
  LiveBytes::Remove(LiveBytes::Block(size));
  ::operator delete(block);
}

void RefCounted::Destroy(RefCounted* object) noexcept {
  if (nesting_ >= kDeepestNesting) {
    object->next_waiting_ = std::exchange(waiting_, object);
    return;
  }
  ++nesting_;
  delete object;
  --nesting_;
  while (nesting_ == 0 && waiting_) {
    RefCounted* const next = waiting_;
    waiting_ = next->next_waiting_;
    ++nesting_;
    delete next;
    --nesting_;
  }
}

}  // namespace kestrun
