#include "base/ref.h"

#include <vector>

namespace kestrun {
namespace {

constexpr int kDeepestNesting = 64;

struct Graveyard {
  int nesting = 0;
  std::vector<RefCounted*> waiting;
};

Graveyard& TheGraveyard() {
  static Graveyard graveyard;
  return graveyard;
}

}  // namespace

void RefCounted::Destroy(RefCounted* object) noexcept {
  Graveyard& graveyard = TheGraveyard();
  if (graveyard.nesting >= kDeepestNesting) {
    graveyard.waiting.push_back(object);
    return;
  }
  ++graveyard.nesting;
  delete object;
  --graveyard.nesting;
  while (graveyard.nesting == 0 && !graveyard.waiting.empty()) {
    RefCounted* const next = graveyard.waiting.back();
    graveyard.waiting.pop_back();
    ++graveyard.nesting;
    delete next;
    --graveyard.nesting;
  }
}

}  // namespace kestrun
