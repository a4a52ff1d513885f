#include "desktop/headless/headless_platform.h"

#include "platform/folder_rights.h"

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace kestrun {
namespace {

#ifndef _WIN32
bool MayAddFile(const std::string& folder) {
  return ::faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0 || errno != EACCES;
}
constexpr FolderRightsProbe kProbe = &MayAddFile;
#else
constexpr FolderRightsProbe kProbe = nullptr;  // its tests run with all rights
#endif

}  // namespace

Bytes HeadlessProgram::Resource(std::string_view type, int number) {
  const auto found = resources.find({std::string(type), number});
  if (found == resources.end()) RaiseMissingResource(number);
  return found->second;
}

HeadlessPlatform::HeadlessPlatform(FileSystem& files) : files_(files) { InstallFolderRightsProbe(kProbe); }

HeadlessPlatform::~HeadlessPlatform() { InstallFolderRightsProbe(nullptr); }

void HeadlessPlatform::OnUnexpected(const UnexpectedHandler& handler) {
  dialogs_.on_unexpected = handler;
  windowing_.on_unexpected = handler;
}

}  // namespace kestrun
