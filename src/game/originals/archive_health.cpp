#include "game/originals/archive_health.h"

#include <algorithm>
#include <set>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/pff/cls_pff.h"
#include "formats/pff/pff_layout.h"
#include "game/originals/ledger.h"
#include "game/originals/present_content.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/settings.h"

namespace kestrun::originals {
namespace {

struct Extent {
  uint64_t start = 0;
  uint64_t end = 0;
  std::string name;
};

// Failures that are the archive's own; any other is the file's, such as one that the game holds open.
bool IsArchiveFault(int error_number) {
  return error_number == error::kInvalidFileFormat || error_number == error::kInputPastEnd ||
         error_number == error::kSubscriptOutOfRange;
}

std::vector<Extent> LiveExtents(ClsPFF& archive) {
  std::vector<Extent> extents;
  for (int32_t number = 0; number < archive.PFFTotalFiles(); ++number) {
    const auto length = static_cast<uint32_t>(archive.FileLength(number));
    if (length == 0 || archive.FileDeleted(number)) continue;
    const uint64_t start = static_cast<uint32_t>(archive.FileOffset(number));
    extents.push_back({start, start + length, archive.FileName(number)});
  }
  std::sort(extents.begin(), extents.end(),
            [](const Extent& left, const Extent& right) { return left.start < right.start; });
  return extents;
}

Extent TableExtent(const ClsPFF& archive) {
  const uint64_t start = static_cast<uint32_t>(archive.PFFTableOffset());
  const auto count = static_cast<uint64_t>(archive.PFFTotalFiles());
  const uint64_t stride = static_cast<uint32_t>(archive.PFFItemSize());
  return {start, start + (count - 1) * stride + pff::kEntryBytes, ""};
}

std::string Says(const std::string& path, const std::string& what) {
  return "The archive '" + path + "' says that " + what + ".";
}

std::optional<std::string> FindPlaceFault(const std::string& path, ClsPFF& archive, uint64_t file_bytes) {
  const Extent table = TableExtent(archive);
  const std::vector<Extent> extents = LiveExtents(archive);
  const Extent* furthest = nullptr;
  for (const Extent& extent : extents) {
    if (extent.start < pff::kHeaderBytes) return Says(path, "'" + extent.name + "' lies over its header");
    if (extent.end > file_bytes) return Says(path, "'" + extent.name + "' lies behind its end");
    if (extent.start < table.end && table.start < extent.end) {
      return Says(path, "'" + extent.name + "' lies over its table");
    }
    if (furthest && extent.start < furthest->end) {
      return Says(path, "'" + furthest->name + "' and '" + extent.name + "' lie over each other");
    }
    if (!furthest || extent.end > furthest->end) furthest = &extent;
  }
  return std::nullopt;
}

std::string KeptNames(const std::string& path) {
  const Place archive = PlaceOf(path);
  std::string names;
  const Index index = ReadIndex();
  for (const auto& [key, record] : index.records()) {
    const Place& place = record.place;
    const bool is_here = EqualsNoCase(place.folder, archive.folder) && EqualsNoCase(place.file, archive.file);
    if (!is_here || place.entry.empty() || record.versions.empty()) continue;
    if (record.versions.front().IsAbsence()) continue;
    names += (names.empty() ? "\"" : ", \"") + place.entry + "\"";
  }
  return names;
}

}  // namespace

std::optional<std::string> FindArchiveFault(const std::string& path) {
  if (!FileExists(path)) return std::nullopt;
  ClsPFF archive;
  try {
    LoadArchive(archive, path);
    const uint64_t bytes = platform().files().Open(path, OpenMode::kRead)->Size();
    return FindPlaceFault(path, archive, bytes);
  } catch (const RuntimeError& failure) {
    if (!IsArchiveFault(failure.number())) return std::nullopt;
    return failure.description();
  }
}

std::string TellArchiveFault(const std::string& fault, const std::string& path) {
  std::string names;
  Attempt([&] { names = KeptNames(path); });
  const std::string kept =
      names.empty() ? "No originals of it are kept. Install the game's archive again."
                    : "Originals are kept of " + names +
                          ". Install the game's archive again, or take \"Restore stock missions ...\" in the "
                          "Actions menu to put them back.";
  return fault + std::string(kCrLf) + kept;
}

std::string KnownGameFolder() {
  std::string folder;
  Attempt([&] { folder = ReadSetting(setting::kGameFolder); });
  std::string beside = platform().program().Folder();
  if (folder.empty() && FileExists(beside + "\\dflwdem.exe")) return beside;
  return folder;
}

void CheckKnownGameArchive() {
  static std::set<std::string> told;
  Attempt([] {
    const std::string folder = KnownGameFolder();
    if (folder.empty()) return;
    const std::string path = folder + "\\" + ReadSetting(setting::kArchiveName);
    const std::optional<std::string> fault = FindArchiveFault(path);
    if (fault && told.insert(ToLower(path)).second) MsgBox(TellArchiveFault(*fault, path));
  });
}

}  // namespace kestrun::originals
