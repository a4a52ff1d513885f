// The ground under a test: a headless platform, a temporary folder whose name no single-byte code page can hold, and
// the promise that every box that was laid down is shown and no other.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "base/text.h"
#include "desktop/headless/headless_platform.h"
#include "forms/window_registry.h"
#ifdef _WIN32
#include "desktop/win32/system/win32_files.h"
#else
#include "desktop/headless/posix_files.h"
#endif

namespace kestrun {

#ifdef _WIN32
using NativeFileSystem = Win32FileSystem;
#else
using NativeFileSystem = PosixFileSystem;
#endif

// A new empty folder, removed with all it holds at the end. UTF-8 path without a trailing separator.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

class HeadlessTest : public testing::Test {
 protected:
  HeadlessTest();
  // Windows, and what the clock still holds of them, go while the platform is there.
  ~HeadlessTest() override;

  void TearDown() override;

  // Paths as the program joins them: with "\".
  [[nodiscard]] std::string Folder() const { return folder_.path(); }
  [[nodiscard]] std::string Path(std::string_view name) const { return Folder() + "\\" + std::string(name); }
  [[nodiscard]] std::string ProgramPath(std::string_view name) const {
    return Path("program") + "\\" + std::string(name);
  }

  // What a user does who drops files from the desktop on a window: nothing, unless the window is shown and takes them.
  static void DropFiles(Form& form, const std::vector<std::string>& paths);

  // Whole files by path. Always through the real file system, whatever the platform uses at the moment.
  void WriteFile(std::string_view path, std::string_view content) { native_files.WriteAll(path, AsBytes(content)); }
  void WriteFile(std::string_view path, ByteView content) { native_files.WriteAll(path, content); }
  void WriteFile(std::string_view path, const Bytes& content) { native_files.WriteAll(path, content); }
  [[nodiscard]] std::string ReadFile(std::string_view path) { return std::string(AsChars(native_files.ReadAll(path))); }
  [[nodiscard]] bool FileIsThere(std::string_view path) { return native_files.Exists(path); }

 private:
  TemporaryFolder folder_;

 protected:
  NativeFileSystem native_files;
  HeadlessPlatform desktop{native_files};

 private:
  PlatformInstallation installation_{desktop};
};

}  // namespace kestrun
