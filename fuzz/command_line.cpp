// The command text through the shell form, the quoted form and the command table, on an empty platform.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/headless/headless_platform.h"
#include "forms/window_registry.h"
#include "platform/files.h"
#include "program/commands.h"
#include "program/pack_command.h"

namespace {

// A disk with nothing on it that takes nothing.
class NoFiles final : public kestrun::FileSystem {
 public:
  std::unique_ptr<kestrun::File> Open(std::string_view, kestrun::OpenMode) override { Refuse(); }
  bool Exists(std::string_view) override { return false; }
  bool IsFolder(std::string_view) override { return false; }
  void Copy(std::string_view, std::string_view) override { Refuse(); }
  void Delete(std::string_view) override { Refuse(); }
  void Rename(std::string_view, std::string_view) override { Refuse(); }
  void Replace(std::string_view, std::string_view) override { Refuse(); }
  void MakeFolder(std::string_view) override { Refuse(); }
  void RemoveFolder(std::string_view) override { Refuse(); }
  std::vector<kestrun::FolderEntry> List(std::string_view) override { Refuse(); }
  uint64_t WriteTime(std::string_view) override { Refuse(); }
  void SetWriteTime(std::string_view, uint64_t) override { Refuse(); }
  void SetLocalTimes(std::string_view, const kestrun::LocalFileTimes&) override { Refuse(); }
  std::string CurrentFolder() override { return "C:\\"; }
  void FlushFolder(std::string_view) override {}
  std::string TruePath(std::string_view path) override { return std::string(path); }
  std::unique_ptr<kestrun::FileLock> TryLock(std::string_view, std::string_view) override {
    return std::make_unique<kestrun::FileLock>();
  }

 private:
  [[noreturn]] static void Refuse() { kestrun::Raise(kestrun::error::kFileNotFound); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  NoFiles files;
  kestrun::HeadlessPlatform platform(files);
  const kestrun::PlatformInstallation installation(platform);
  platform.program().folder = "C:\\Kestrun";
  platform.shell().temporary_folder = "C:\\Temp";
  platform.OnUnexpected([](const kestrun::UnexpectedQuestion&) {});

  const std::string text(reinterpret_cast<const char*>(data), size);
  static_cast<void>(kestrun::JoinCommandWords(kestrun::Split(text, " ")));
  static_cast<void>(kestrun::ProcessCommand(text));
  static_cast<void>(kestrun::ProcessCommand("-pack " + text));
  static_cast<void>(kestrun::ProcessCommand("-restore " + text));
  kestrun::CloseAllWindows();
  return 0;
}
