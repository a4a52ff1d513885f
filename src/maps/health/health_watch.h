// The facts of the maps that a window shows, read behind its back: whoever paints a row asks for that row's facts, gets
// what is known, and is told when more is.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "maps/health/map_facts.h"

namespace kestrun {

class HealthWatch {
 public:
  // `changed` runs on the windows' thread when facts have come in that differ from those before.
  explicit HealthWatch(std::function<void()> changed);
  ~HealthWatch();
  HealthWatch(const HealthWatch&) = delete;
  HealthWatch& operator=(const HealthWatch&) = delete;

  // The facts of a local file, or null while nothing is known of it. They are read in the background when they are not
  // known or older than some seconds; a file that has kept its size and date is not opened for its content again. Files
  // that were asked for last are read first, and those that nobody has asked for again for long are left out: a list
  // that is scrolled through does not read all its rows. Never waits for the disk.
  [[nodiscard]] const MapFacts* Look(const std::string& path);
  // Of a web address, as the last check of the list found it.
  void Keep(const std::string& address, const MapFacts& facts);
  [[nodiscard]] const MapFacts* Kept(const std::string& address) const;
  // What is known stays and is read again when it is asked for.
  void LookAgain();

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace kestrun
