// How the entries of a style project are sorted into folders, by their extension.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace kestrun {

enum class EntryKind { kText, kModule, kImage, kSound, kOther };

// One folder of the project's tree.
struct EntryFolder {
  EntryKind kind;
  std::string_view key;          // of the folder's node
  std::string_view text;         // that the folder shows
  std::string_view node_suffix;  // behind the entry's number in the key of its node
  int image;                     // number of the picture of the folder's entries; 0 for the one with the key "mod"
  std::string_view extensions;   // in small letters, with a blank around each
};

inline constexpr std::array kEntryFolders{
    EntryFolder{EntryKind::kText, "TEXT", "Text files", "TEXT", 1, " txt "},
    EntryFolder{EntryKind::kModule, "VBS", "Modules", "MOD", 0, " vbs js "},
    EntryFolder{EntryKind::kImage, "PICTUREFOLDER", "Images", "IMAGE", 2, " jpg jpeg bmp dib gif wmf emf cur ico "},
    EntryFolder{EntryKind::kSound, "SOUNDFOLDER", "Sounds", "SOUND", 3, " wav "},
    EntryFolder{EntryKind::kOther, "RES", "Resources", "FILE", 5, ""},
};

// The folder of an entry: by what is behind the last "." of its name, in any case of letters.
[[nodiscard]] const EntryFolder& FolderOfEntry(std::string_view name);

}  // namespace kestrun
