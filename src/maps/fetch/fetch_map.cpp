#include "maps/fetch/fetch_map.h"

#include <optional>

#include "base/text.h"
#include "formats/zip/cls_zip.h"
#include "formats/zip/member_path.h"
#include "maps/fetch/fetch_turn.h"
#include "maps/fetch/frmzip.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/window_kit/run_command.h"
#include "web/download_file.h"
#include "web/fetch_scope.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

constexpr const char* kQuestion = "Kestrun detected a zip file. Do you want to load maps that are inside the zip file?";

// Where members of zips go; each replaces the one of its name.
std::string UnzipFolder() { return WithoutLastBackslash(SpecialFolder(folder::kTemporary)) + "\\tempzip"; }

// No server is asked about a member that is called like a web address.
void ListMaps(const Cls_Zip& zip, frmzip& window) {
  constexpr bool kNoServer = true;
  for (int32_t member = 1; member <= zip.FileCount(); ++member) {
    const std::string name = zip.FileName(member);
    if (GetExtension(name) == "bms" && !zip.IsDir(member)) window.AddMap(GetFileName(name, kNoServer), member);
  }
}

// How often a list of members was made: all are shown in the one window.
int64_t lists_made = 0;

// The number of the member that the user wants, kNoZipMember for none. An event may ask for another zip while this one
// is being asked about: the window is that zip's then, and so is the choice.
int32_t AskForMember(const Cls_Zip& zip) {
  const int64_t this_list = ++lists_made;
  const Ref<frmzip> window(&Window<frmzip>());
  window->LstZip.Clear();
  ListMaps(zip, *window);
  // The list is drawn before the window takes the input.
  RunPendingEvents();
  window->LstZip.Refresh();
  window->ShowModal();
  return this_list == lists_made ? ChosenZipMember() : kNoZipMember;
}

std::string UnzipChosenMap(const std::string& path) {
  const Ref<Cls_Zip> zip = MakeRef<Cls_Zip>();
  static_cast<void>(zip->Get_Contents(path));
  Cls_Zip::Selection selection(static_cast<size_t>(zip->FileCount()) + 1);
  const int32_t member = AskForMember(*zip);
  if (member == kNoZipMember) return {};
  selection.at(static_cast<size_t>(member)) = true;
  const std::string folder = UnzipFolder();
  const std::string name = zip->FileName(member);
  TakeFetchTurn(folder);
  // A name that would lead out of the folder is not unpacked, and what it leads to is no map of this zip.
  if (!zip::StaysInside(name)) {
    static_cast<void>(zip->UnPack(selection, folder));
    return {};
  }
  // What an earlier zip left there must not pass for a member that cannot be unpacked.
  std::string map = folder + "\\" + zip::WithSeparators(name, '\\');
  if (FileExists(map)) platform().files().Delete(map);
  static_cast<void>(zip->UnPack(selection, folder));
  return map;
}

// Downloads what a web address names, `local` becoming its file, and gives its kind. Nothing when it cannot be fetched,
// which a box tells, and when the user has ended it.
std::optional<int32_t> FetchToLocal(const std::string& path, std::string& local) {
  const FetchScope fetch;
  if (IsUrl(path)) {
    local = SpecialFolder(folder::kTemporary) + "tempmap.bms";
    TakeFetchTurn(local);
    if (!DownloadFile(path, local)) {
      if (!fetch.IsCancelled()) MsgBox("Can't download: " + path);
      return std::nullopt;
    }
  }
  // The address tells the kind, and its server may be asked: the temporary name is always that of a map.
  const int32_t kind = MapFileKind(path);
  if (fetch.IsCancelled()) return std::nullopt;
  return kind;
}

}  // namespace

int32_t MapFileKind(const std::string& Path) {
  const std::string name = ToLower(GetFileName(Path));
  if (name.ends_with(".bms")) return map_file_kind::kMap;
  return name.ends_with(".zip") ? map_file_kind::kZip : map_file_kind::kOther;
}

std::string FetchMap(const std::string& Path) {
  std::string local = Path;
  RunCommand([&] {
    const std::optional<int32_t> kind = FetchToLocal(Path, local);
    if (!kind) {
      local.clear();
    } else if (*kind == map_file_kind::kZip) {
      local = GetFileFromZip(local);
    }
  });
  return local;
}

std::string GetFileFromZip(const std::string& Path) {
  std::string map;
  const auto ask = [&] {
    switch (MsgBox(kQuestion, BoxButtons::kYesNoCancel, BoxIcon::kQuestion)) {
      case BoxAnswer::kYes: map = FileExists(Path) ? UnzipChosenMap(Path) : std::string(); break;
      case BoxAnswer::kNo: map = Path; break;
      default: break;
    }
  };
  RunCommand(ask, "GetFileFromZip()");
  return map;
}

}  // namespace kestrun
