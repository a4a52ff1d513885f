// Add-ins of the auto host: the list of them in the settings, and how one is made and registered. What makes objects
// and registers components is installed by the platform's start; without it no add-in can be made.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/object.h"

namespace kestrun {

struct AddIn {
  std::string name;  // the text of its menu item
  std::string id;    // a class or program identifier
};

// The stored add-ins; what stands for an identifier that is missing depends on who asks. At most 500: the count comes
// from a file. Error 13 when the count is no number.
[[nodiscard]] std::vector<AddIn> ReadAddIns(const std::string& missing_id);
// Keys of add-ins beyond these stay in the file, unread.
void WriteAddIns(const std::vector<AddIn>& add_ins);

struct AddInServices {
  // Makes an object from a class or program identifier; raises error 429 when that is not possible.
  std::function<Ref<Object>(const std::string& id)> create;
  // Runs a component's entry for registering or unregistering itself.
  std::function<bool(const std::string& file, bool unregister)> register_component;
};
void InstallAddInServices(AddInServices services);

[[nodiscard]] Ref<Object> CreateAddIn(const std::string& id);

// Lets components register themselves.
class clsRegister {
 public:
  // Whether the component's own entry ran to its end; its result is not looked at. False for a file that is not there
  // or has no such entry, as a program has none.
  [[nodiscard]] bool RegSvr32(const std::string& FileName, bool bUnReg) const;
};

}  // namespace kestrun
