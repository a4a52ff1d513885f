#include "program/load_archive.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/file_error.h"
#include "program/path_text.h"

namespace kestrun {

void LoadArchive(ClsPFF& archive, const std::string& path) {
  constexpr std::array kInTheWay{error::kPermissionDenied, error::kPathFileAccess, error::kFileAlreadyOpen,
                                 error::kDeviceIo, error::kDiskNotReady};
  std::optional<RuntimeError> failure;
  archive.PFFError = [&failure](int32_t number, const std::string& description) {
    failure = RuntimeError(number, description);
  };
  static_cast<void>(archive.LoadPff(path));
  archive.PFFError = nullptr;
  if (!failure || !FileExists(path)) return;
  if (std::find(kInTheWay.begin(), kInTheWay.end(), failure->number()) != kInTheWay.end()) {
    throw FileError(*failure, path);
  }
}

}  // namespace kestrun
