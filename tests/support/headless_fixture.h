// The ground under a test: a headless platform, a temporary folder whose name no single-byte code page can hold, and
// the promise that every box that was laid down is shown and no other.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <random>
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
  TemporaryFolder() {
    std::random_device random;
    do
      path_ =
          std::filesystem::temp_directory_path() / std::filesystem::path(u8"kestrun Карты 地図 é😀 " + Digits(random()));
    while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::string path() const {
    const std::u8string text = path_.u8string();
    return {text.begin(), text.end()};
  }

 private:
  static std::u8string Digits(unsigned number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
  }

  std::filesystem::path path_;
};

class HeadlessTest : public testing::Test {
 protected:
  HeadlessTest() {
    native_files.MakeFolder(Path("program"));
    native_files.MakeFolder(Path("temp"));
    desktop.program().folder = Path("program");
    desktop.shell().temporary_folder = Path("temp");
    desktop.OnUnexpected([](const UnexpectedQuestion& question) {
      ADD_FAILURE() << "nobody expected: " << question.text << "\n(" << question.detail << ")";
    });
  }

  // Windows, and what the clock still holds of them, go while the platform is there.
  ~HeadlessTest() override {
    CloseAllWindows();
    desktop.clock().Clear();
  }

  void TearDown() override {
    for (const std::string& line : desktop.dialogs().Unused()) ADD_FAILURE() << "expected, but never shown: " << line;
    for (const std::string& line : desktop.windowing().Unused()) ADD_FAILURE() << "expected, but never shown: " << line;
  }

  // Paths as the program joins them: with "\".
  [[nodiscard]] std::string Folder() const { return folder_.path(); }
  [[nodiscard]] std::string Path(std::string_view name) const { return Folder() + "\\" + std::string(name); }
  [[nodiscard]] std::string ProgramPath(std::string_view name) const {
    return Path("program") + "\\" + std::string(name);
  }

  // What a user does who drops files from the desktop on a window: nothing, unless the window is shown and takes them.
  static void DropFiles(Form& form, const std::vector<std::string>& paths) {
    if (form.IsShown()) DispatchEvent(&form, [&] { form.FilesDropped(paths); });
  }

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
