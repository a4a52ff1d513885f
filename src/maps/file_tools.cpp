#include "maps/file_tools.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <utility>

#include "base/crc32.h"
#include "base/number.h"
#include "base/runtime_error.h"
#include "platform/platform.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/program_pictures.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

// The shell tells the icon of a type only by a file of that type.
constexpr const char* kScratchName = "tmp1304930549302.";
// What an entry needs of its text's width.
constexpr double kRoom = 1.1;

// A scratch file that goes when it is no longer needed.
class ScratchFile {
 public:
  // In the root of the first drive; where a user may not write there, in the temporary folder.
  explicit ScratchFile(const std::string& name) : path_("c:\\" + name) {
    if (Attempt([&] { Make(); })) return;
    path_ = SpecialFolder(folder::kTemporary) + name;
    Make();
  }
  ~ScratchFile() {
    Attempt([&] { platform().files().Delete(path_); });
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  void Make() const { platform().files().Open(path_, OpenMode::kReadWrite)->Close(); }

  std::string path_;
};

void DeleteForced(const std::string& path) {
  FileSystem& files = platform().files();
  files.ClearReadOnly(path);
  files.Delete(path);
}

// What is never deleted: a drive, the root of all folders, a shared folder of another machine.
bool IsRoot(std::string_view path) {
  constexpr std::string_view kSeparators = "\\/";
  path = path.substr(0, path.find_last_not_of(kSeparators) + 1);
  if (path.empty() || path.ends_with(':')) return true;
  const size_t server = path.find_first_not_of(kSeparators);
  if (server != 2) return false;
  const size_t share = path.find_first_of(kSeparators, server);
  return share == std::string_view::npos || path.find_first_of(kSeparators, share + 1) == std::string_view::npos;
}

// Only a folder that the system calls full is listed. A link to a folder goes as an empty folder or as a file, and one
// that cannot go is a failure: what it leads to is never listed here.
void RemoveTree(const std::string& folder) {
  FileSystem& files = platform().files();
  files.ClearReadOnly(folder);
  try {
    return files.RemoveFolder(folder);
  } catch (const RuntimeError& failure) {
    if (failure.number() != error::kPathFileAccess) return files.Delete(folder);
  }
  for (const FolderEntry& entry : files.List(folder)) {
    const std::string path = folder + "\\" + entry.name;
    if (entry.is_folder) {
      RemoveTree(path);
    } else {
      DeleteForced(path);
    }
  }
  files.RemoveFolder(folder);
}

}  // namespace

int32_t FileChecksum(const std::string& Path) {
  const std::unique_ptr<File> file = platform().files().Open(Path, OpenMode::kRead);
  std::array<uint8_t, 0x10000> piece;
  uint32_t state = crc32::kStart;
  size_t taken = piece.size();
  for (uint64_t offset = 0; taken == piece.size(); offset += taken) {
    taken = file->ReadAt(offset, piece);
    state = crc32::Update(state, ByteView(piece).first(taken));
  }
  return static_cast<int32_t>(~crc32::Next(state, 0));
}

bool DeleteFolder(const std::string& Path) {
  const std::string folder = WithoutLastBackslash(Path);
  if (IsRoot(folder)) return false;
  return Attempt([&] {
           if (!platform().files().IsFolder(folder)) Raise(error::kPathNotFound);
           RemoveTree(folder);
         }) &&
         !platform().files().Exists(folder);
}

Ref<Picture> GetIcon(const std::string& Extension, int32_t Size) {
  if (Extension.empty()) return {};
  Ref<Picture> picture;
  const auto ask = [&] {
    const ScratchFile scratch(kScratchName + Extension);
    auto icon = platform().pictures().FileIcon(scratch.path(), static_cast<uint32_t>(Size));
    picture = icon ? MakeRef<Picture>(icon->width, icon->height, std::move(icon->pixels)) : MapPicture();
  };
  RunCommand(ask, "GetIcon()");
  return picture;
}

void FitListWidth(const Form& Form, ListBox& List) {
  Windowing& windowing = platform().windowing();
  const int twips_per_pixel = windowing.Screen().twips_per_pixel;
  int widest = 0;
  for (int row = 0; row < List.ListCount(); ++row) {
    const int width_twips = windowing.TextWidth(List.List(row), Form.Font);
    widest = std::max(widest, RoundToInt(width_twips * kRoom / twips_per_pixel));
  }
  List.HorizontalExtent = widest;
}

}  // namespace kestrun
