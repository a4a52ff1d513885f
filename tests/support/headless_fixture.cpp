#include "support/headless_fixture.h"

#include <filesystem>
#include <random>

namespace kestrun {
namespace {

std::filesystem::path NativePath(const std::string& path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  const std::u8string parent = std::filesystem::temp_directory_path().u8string();
  do {
    const std::filesystem::path name = NativePath("kestrun Карты 地図 é😀 " + std::to_string(random()));
    const std::u8string path = (std::filesystem::path(parent) / name).u8string();
    path_.assign(path.begin(), path.end());
  } while (!std::filesystem::create_directory(NativePath(path_)));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(NativePath(path_), ignored);
}

HeadlessTest::HeadlessTest() {
  native_files.MakeFolder(Path("program"));
  native_files.MakeFolder(Path("temp"));
  desktop.program().folder = Path("program");
  desktop.shell().temporary_folder = Path("temp");
  desktop.OnUnexpected([](const UnexpectedQuestion& question) {
    ADD_FAILURE() << "nobody expected: " << question.text << "\n(" << question.detail << ")";
  });
}

HeadlessTest::~HeadlessTest() {
  CloseAllWindows();
  desktop.clock().Clear();
}

void HeadlessTest::TearDown() {
  for (const std::string& line : desktop.dialogs().Unused()) ADD_FAILURE() << "expected, but never shown: " << line;
  for (const std::string& line : desktop.windowing().Unused()) ADD_FAILURE() << "expected, but never shown: " << line;
}

void HeadlessTest::DropFiles(Form& form, const std::vector<std::string>& paths) {
  if (form.IsShown()) DispatchEvent(&form, [&] { form.FilesDropped(paths); });
}

}  // namespace kestrun
