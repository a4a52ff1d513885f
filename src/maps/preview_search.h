// The search for a map's picture on the Mapping Center: what is asked for, and what the answer says.
#pragma once

#include <string>
#include <vector>

namespace kestrun {

// A map's name as the service takes it: without ? ' * \ / [ ] and ".
[[nodiscard]] std::string WithoutServiceSigns(const std::string& name);

// The map's file name without its last four characters, such as Big2 of C:\maps\Big2.bms.
[[nodiscard]] std::string MapBaseName(const std::string& map);

// The name that is searched for: the base name with each digit between percent signs, which stand for anything at the
// service, and without the signs above.
[[nodiscard]] std::string PreviewSearchName(const std::string& map);

// Asks the service, whose address is that of the site file. Empty on every failure.
[[nodiscard]] std::string SearchPreviews(const std::string& service, const std::string& map);

// The addresses in the service's answer: one a line, none for an empty answer and for "no map". What is no address of
// http or https is left out; at most a thousand are taken.
[[nodiscard]] std::vector<std::string> PreviewAddresses(const std::string& reply);

// What a list shows for an address: the part behind its last separator, with blanks for "%20".
[[nodiscard]] std::string PreviewName(const std::string& address);

}  // namespace kestrun
