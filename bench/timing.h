// How long something takes, for benchmarks that compare the medians or the fastest of rounds.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace kestrun {

template <class Work>
[[nodiscard]] double Milliseconds(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The shorter of `fastest_ms` and the time that the work takes now.
template <class Work>
void KeepFastest(double& fastest_ms, Work&& work) {
  fastest_ms = std::min(fastest_ms, Milliseconds(work));
}

// Of at least one time.
[[nodiscard]] inline double Median(std::vector<double> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

}  // namespace kestrun
