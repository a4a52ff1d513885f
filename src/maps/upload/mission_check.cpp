#include "maps/upload/mission_check.h"

#include "base/text.h"
#include "formats/zip/cls_zip.h"
#include "formats/zip/member_path.h"
#include "maps/preview_search.h"
#include "platform/platform.h"
#include "program/path_text.h"

namespace kestrun {
namespace {

constexpr size_t kMostNameCharacters = 32;

bool IsMissionMember(const std::string& name) {
  constexpr std::string_view kMissionEnd = "bms";
  return ToLower(name).ends_with(kMissionEnd);
}

// Unpacks one member and gives its path. What an earlier zip left there must not pass for a member that cannot be
// unpacked.
std::string Unpack(Cls_Zip& zip, int32_t member, const std::string& folder) {
  std::string path = folder + "\\" + zip::WithSeparators(zip.FileName(member), '\\');
  if (zip::StaysInside(zip.FileName(member)) && FileExists(path)) platform().files().Delete(path);
  Cls_Zip::Selection selection(static_cast<size_t>(zip.FileCount()) + 1);
  selection.at(static_cast<size_t>(member)) = true;
  static_cast<void>(zip.UnPack(selection, folder));
  return path;
}

std::optional<UploadInfo> ReadMember(Cls_Zip& zip, int32_t member, const std::string& folder, const ReadMission& read) {
  const std::string path = Unpack(zip, member, folder);
  return zip::StaysInside(zip.FileName(member)) ? read(path) : std::nullopt;
}

}  // namespace

bool FileNamesMission(const std::string& file_name, const std::string& mission) {
  if (TrimBlanks(mission).empty()) return false;
  return ToLower(file_name).find(ToLower(mission)) != std::string::npos ||
         MatchesPattern(file_name, "*" + mission + "*");
}

std::string ServiceMissionName(const std::string& name) {
  return ToUtf8(ToUtf16(WithoutServiceSigns(name)).substr(0, kMostNameCharacters));
}

std::optional<UploadInfo> FindMission(const std::string& zip_path, const std::string& folder, const ReadMission& read,
                                      const UploadLog& log) {
  const Ref<Cls_Zip> zip = MakeRef<Cls_Zip>();
  static_cast<void>(zip->Get_Contents(zip_path));
  for (int32_t member = 1; member <= zip->FileCount(); ++member) {
    if (!IsMissionMember(zip->FileName(member)) || zip->IsDir(member)) continue;
    if (std::optional<UploadInfo> info = ReadMember(*zip, member, folder, read)) return info;
    log("Could not extract mission info " + zip->FileName(member));
  }
  log("Errors zip file " + zip_path);
  return std::nullopt;
}

}  // namespace kestrun
