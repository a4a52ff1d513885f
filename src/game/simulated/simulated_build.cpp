#include "game/simulated/simulated_build.h"

#include <algorithm>

#include "game/builds.h"

namespace kestrun {
namespace {

constexpr SimulatedBuild FromMessenger(const MessengerBuild& build) {
  return {build.window_title,
          {static_cast<uint32_t>(build.MemoryAdress), 0},
          0,
          static_cast<uint32_t>(build.GameEndAddress)};
}

constexpr void AddHost(SimulatedBuild& build, const HostBuild& host) {
  const auto line = static_cast<uint32_t>(host.MemoryAdress);
  if (build.text_lines[0] != line) build.text_lines[1] = line;
  build.round_clock = static_cast<uint32_t>(host.GameTimer);
  build.running_byte = static_cast<uint32_t>(host.GameEndAddr);
}

constexpr auto JoinTables() {
  std::array<SimulatedBuild, kMessengerBuilds.size()> builds{};
  std::ranges::transform(kMessengerBuilds, builds.begin(), FromMessenger);
  for (const HostBuild& host : kHostBuilds) {
    for (SimulatedBuild& build : builds) {
      if (build.title == host.window_title) AddHost(build, host);
    }
  }
  return builds;
}

constexpr auto kBuilds = JoinTables();

}  // namespace

std::span<const SimulatedBuild> SimulatedBuilds() { return kBuilds; }

}  // namespace kestrun
