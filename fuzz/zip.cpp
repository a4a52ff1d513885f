// Any bytes as a zip archive: list it, ask all its members, extract it. Nothing may be written outside the folder.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <string>

#include "base/runtime_error.h"
#include "desktop/headless/headless_platform.h"
#include "formats/zip/cls_zip.h"
#include "fuzz_files.h"

namespace {

// The walk of a file without a directory asks for ever; a member of a hostile archive may warn each time.
struct EndOfPatience : std::exception {};
constexpr int kMostBoxes = 64;

void AskAll(const kestrun::Cls_Zip& zip, int32_t member) {
  static_cast<void>(zip.FileName(member) + zip.CommentsFile(member) + zip.Method(member));
  static_cast<void>(zip.SystemMadeBy(member) + zip.SystemNeeded(member) + zip.VersionMadeBy(member));
  static_cast<void>(zip.VersionNeeded(member));
  static_cast<void>(zip.FileDateTime(member));
  static_cast<void>(zip.IsDir(member) || zip.Encrypted(member));
  static_cast<void>(zip.CRC32(member) + zip.Compressed_Size(member) + zip.UnCompressed_Size(member));
}

void RequireInside(const std::string& path) {
  if (path == "a.zip" || path == "out") return;
  const bool leads_away = path.find("..\\") != std::string::npos || path.ends_with("..") ||
                          path.find_first_of(std::string_view(":\0/", 3)) != std::string::npos;
  if (!path.starts_with("out\\") || leads_away) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kestrun::MemoryFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  const kestrun::ByteView input(data, size);
  files.content["a.zip"].assign(input.begin(), input.end());
  int boxes = 0;
  platform.OnUnexpected([&boxes](const kestrun::UnexpectedQuestion&) {
    if (++boxes == kMostBoxes) throw EndOfPatience();
  });
  // One password is answered; from the second question on the box is cancelled.
  platform.dialogs().ExpectInput("Give Password", "secret");

  const auto zip = kestrun::MakeRef<kestrun::Cls_Zip>();
  kestrun::Attempt([&] { zip->Get_Contents("a.zip"); });
  for (int32_t at = 0; at <= std::min(zip->FileCount(), 50); ++at) AskAll(*zip, at);
  boxes = 0;
  const kestrun::Cls_Zip::Selection all(static_cast<size_t>(zip->FileCount()) + 1, true);
  kestrun::Attempt([&] { zip->UnPack(all, "out"); });
  for (const auto& [path, content] : files.content) RequireInside(path);
  for (const std::string& folder : files.folders) RequireInside(folder);
  return 0;
}
