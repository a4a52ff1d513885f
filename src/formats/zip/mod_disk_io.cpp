#include "formats/zip/mod_disk_io.h"

#include <algorithm>
#include <cmath>

#include "base/calendar.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/zip/member_path.h"
#include "formats/zip/zip_texts.h"
#include "platform/platform.h"

namespace kestrun::zip {
namespace {

// What paths and names of Windows may have, in UTF-16 units.
constexpr size_t kLongestPath = 259;
constexpr size_t kLongestName = 255;

void ShowWriteError() { MsgBox("error writing file"); }

// Length of what stands in front of the first folder of a path whose separators are all the same: "C:\",
// "\\server\share\" or "\". Zero for a path that starts at the current folder.
size_t RootLength(std::string_view path, char separator) {
  if (path.size() >= 2 && path[1] == ':') return path.size() > 2 && path[2] == separator ? 3 : 2;
  if (path.size() < 2 || path[0] != separator) return path.empty() || path[0] != separator ? 0 : 1;
  if (path[1] != separator) return 1;
  const size_t server_end = path.find(separator, 2);
  const size_t share_end = server_end == std::string_view::npos ? server_end : path.find(separator, server_end + 1);
  return share_end == std::string_view::npos ? path.size() : share_end + 1;
}

// Raises when something else than a folder is in the way, too.
void MakeFoldersBehind(size_t root_length, std::string_view path, char separator) {
  FileSystem& files = platform().files();
  for (size_t end = path.find(separator, root_length); end != std::string_view::npos;
       end = path.find(separator, end + 1)) {
    const std::string_view folder = path.substr(0, end);
    if (folder.size() <= root_length || files.IsFolder(folder)) continue;
    files.MakeFolder(folder);
  }
}

bool IsTooLong(std::string_view path, char separator) {
  if (ToUtf16(path).size() > kLongestPath) return true;
  const std::vector<std::string> names = Split(path, std::string_view(&separator, 1));
  return std::any_of(names.begin(), names.end(),
                     [](const std::string& name) { return ToUtf16(name).size() > kLongestName; });
}

// False when it could not be written, which is told.
bool WriteFile(const std::string& path, ByteView bytes, char separator) {
  FileSystem& files = platform().files();
  if (files.Exists(path)) Attempt([&] { files.Delete(path); });
  try {
    files.WriteAll(path, bytes);
    return true;
  } catch (const RuntimeError&) {
    if (IsTooLong(path, separator)) throw;
    ShowWriteError();
    return false;
  }
}

void SetFileDates(const std::string& path, uint16_t date, uint16_t time) {
  const uint64_t member_time = DosFileTime(date, time);
  if (member_time == 0) return;
  constexpr double kUnitsPerDay = 86400.0 * 10'000'000;
  const double days = std::floor(platform().clock().LocalDateTime()) - static_cast<double>(DayNumber(1601, 1, 1));
  const auto today = static_cast<uint64_t>(days * kUnitsPerDay);
  Attempt([&] { platform().files().SetLocalTimes(path, {member_time, today, member_time}); });
}

}  // namespace

bool CreateFolders(std::string_view path) {
  const char separator = PathSeparator();
  const std::string folder = WithTrailingSeparator(WithSeparators(path, separator), separator);
  FileSystem& files = platform().files();
  if (files.IsFolder(folder)) return true;
  const size_t root_length = RootLength(folder, separator);
  if (root_length > 1 && !files.IsFolder(folder.substr(0, root_length))) return false;
  if (Attempt([&] { MakeFoldersBehind(root_length, folder, separator); })) return true;
  MsgBox("Error While Attempting to Create Directories on Destination Drive.", BoxButtons::kOk, BoxIcon::kWarning,
         "SETUP");
  return false;
}

void CreateMemberFolder(const std::string& destination, std::string_view name) {
  if (!StaysInside(name)) return ShowWriteError();
  CreateFolders(WithTrailingSeparator(destination, '\\') + std::string(name));
}

void WriteMember(const std::string& destination, std::string_view name, ByteView bytes, uint16_t date, uint16_t time) {
  if (!StaysInside(name)) return ShowWriteError();
  const char separator = PathSeparator();
  const std::string path = WithSeparators(WithTrailingSeparator(destination, separator) + std::string(name), separator);
  CreateFolders(path.substr(0, path.rfind(separator)));
  if (WriteFile(path, bytes, separator)) SetFileDates(path, date, time);
}

}  // namespace kestrun::zip
