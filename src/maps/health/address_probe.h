// Asks a web address for the beginning of the map behind it, while the program does other things.
#pragma once

#include <memory>
#include <string>

#include "maps/health/map_facts.h"

namespace kestrun {

class AddressProbe {
 public:
  // Sends the request. Its end leaves the answer, however much of it is still to come.
  explicit AddressProbe(const std::string& url);
  ~AddressProbe();
  AddressProbe(const AddressProbe&) = delete;
  AddressProbe& operator=(const AddressProbe&) = delete;

  // Takes in what has arrived. True while there may be more. A server that has not answered after twenty seconds does
  // not answer. Never waits and never raises.
  [[nodiscard]] bool Advance();
  // Once Advance has given false.
  [[nodiscard]] const MapFacts& facts() const { return facts_; }
  // Whether a server answered anything, if only that it has no such map.
  [[nodiscard]] bool HasServerSpoken() const;

 private:
  class Receiver;
  void TakeEnd();
  void Fail(const std::string& why);

  MapFacts facts_;
  uint64_t began_ms_;
  std::unique_ptr<Receiver> receiver_;
  std::unique_ptr<class BackgroundRequest> request_;
};

}  // namespace kestrun
