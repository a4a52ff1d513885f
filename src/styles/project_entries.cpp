#include "styles/project_entries.h"

#include <algorithm>

#include "base/text.h"
#include "formats/pff/cls_pff.h"

namespace kestrun {

const EntryFolder& FolderOfEntry(std::string_view name) {
  const std::string wanted = " " + ToLower(ClsPFF::GetFileExt(name)) + " ";
  const auto* found = std::find_if(kEntryFolders.begin(), kEntryFolders.end(), [&wanted](const EntryFolder& folder) {
    return wanted.size() > 2 && folder.extensions.find(wanted) != std::string_view::npos;
  });
  return found == kEntryFolders.end() ? kEntryFolders.back() : *found;
}

}  // namespace kestrun
