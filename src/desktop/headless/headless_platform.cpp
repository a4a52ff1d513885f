#include "desktop/headless/headless_platform.h"

namespace kestrun {

Bytes HeadlessProgram::Resource(std::string_view type, int number) {
  const auto found = resources.find({std::string(type), number});
  if (found == resources.end()) RaiseMissingResource(number);
  return found->second;
}

HeadlessPlatform::HeadlessPlatform(FileSystem& files) : files_(files) {}

HeadlessPlatform::~HeadlessPlatform() = default;

void HeadlessPlatform::OnUnexpected(const UnexpectedHandler& handler) {
  dialogs_.on_unexpected = handler;
  windowing_.on_unexpected = handler;
}

}  // namespace kestrun
