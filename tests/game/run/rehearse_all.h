// A rehearsal with all that it needs read at once.
#pragma once

#include "game/run/rehearsal.h"
#include "platform/platform.h"

namespace kestrun {

// Reads the maps that the night asks for until it asks for no more.
[[nodiscard]] inline Rehearsal RehearseAll(const RehearsalPlan& plan) {
  RehearsedMaps maps;
  for (;;) {
    Rehearsal night = Rehearse(plan, maps);
    if (night.unread.empty()) return night;
    for (const std::string& path : night.unread) maps.emplace(path, ReadRehearsedMap(platform().files(), path));
  }
}

}  // namespace kestrun
