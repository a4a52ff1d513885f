#include <array>
#include <string>
#include <string_view>

#include "base/text.h"
#include "platform/platform.h"
#include "program/commands.h"

namespace kestrun {
namespace {

constexpr std::array<std::string_view, 21> kFirstPage{
    "Kestrun Command Line Parameters:",
    "",
    "? or /? -?: Shows this message.",
    "filename :filename can be a .bms map, .lst auto host list or a .stl style file. Kestrun will load the file in "
    "it's "
    "default editor.",
    "-open: shows the load map from screen.",
    "-autohost: loads the autohost.",
    "-nameeditor: loads the name editor.",
    "-url: shows the load map from URL screen.",
    "-messenger: shows the auto messenger screen.",
    "-ihelp: downloads the new help form internet.",
    "-about: shows the about screen.",
    "-mapupdate: shows the map updater.",
    "-moreplayers: shows the make room for more players screen.",
    "-update: connects to internet and downloads the new update.",
    "C:\\map.bms: loads map c:\\map.bms",
    "-options: shows the options screen.",
    "-mapinfo filename: shows the map info of filename",
    "-safe: use safe mode (don't load too much things at startup) use this if kestrun has errors at startup",
    "-style filename: use a style file",
    "",
    "     Page 1 of 2",
};

constexpr std::array<std::string_view, 5> kSecondPage{
    "-<FORMNAME>: loads a window with name=<FORMNAME>",
    "-pack \"pfffile\" \"rename\" \"filepath or url\" /z: packs a file into the pfffile with 'rename' as filename "
    "downloads urls, use /z to for zipped file extraction.",
    "All command line parameters can be used with the kestrun:// protocol in Internet Explorer.",
    "",
    "     Page 2 of 2",
};

template <size_t kCount>
std::string Page(const std::array<std::string_view, kCount>& lines) {
  std::string page;
  for (const std::string_view line : lines) page.append(line).append(kCrLf);
  return page;
}

}  // namespace

void ShowCommandHelp() {
  MsgBox(Page(kFirstPage));
  MsgBox(Page(kSecondPage));
}

}  // namespace kestrun
