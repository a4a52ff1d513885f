#include "frame/pack_zip.h"

#include "base/runtime_error.h"

namespace kestrun {

void PackZipMembers(ClsPFF&, const std::string& zip_path, const std::string&) {
  Raise(error::kAutomationError, "The zip file '" + zip_path + "' cannot be read: this program has no zip reader yet.");
}

}  // namespace kestrun
