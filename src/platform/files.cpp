#include "platform/files.h"

#include "base/runtime_error.h"

namespace kestrun {

Bytes FileSystem::ReadAll(std::string_view path) {
  const std::unique_ptr<File> file = Open(path, OpenMode::kRead);
  Bytes bytes(file->Size());
  if (file->ReadAt(0, bytes) != bytes.size()) Raise(error::kInputPastEnd);
  return bytes;
}

void FileSystem::WriteAll(std::string_view path, ByteView bytes) {
  const std::unique_ptr<File> file = Open(path, OpenMode::kCreate);
  file->WriteAt(0, bytes);
  file->Close();
}

void FileSystem::Append(std::string_view path, ByteView bytes) {
  const std::unique_ptr<File> file = Open(path, OpenMode::kReadWrite);
  file->WriteAt(file->Size(), bytes);
  file->Close();
}

}  // namespace kestrun
